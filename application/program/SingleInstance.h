#pragma once

#include <QList>
#include <QLocalServer>
#include <QLockFile>
#include <QObject>
#include <QString>

#include <memory>

class Logger;
class QLocalSocket;

/// Finds out whether this is the user's first running instance of a program, and carries messages from later
/// instances to the first.
///
/// The first instance holds a lock file and listens on a socket beside it, both in a directory that only the user can
/// enter; the lock of an instance that crashed is taken over. A message is its length in bytes (32 bits, big-endian,
/// at most maximumMessageBytes) and its UTF-8 text; the answer is "ack". A client that breaks these rules, or takes
/// longer than five seconds over a message, is cut off.
///
/// Lives on one thread, with an event loop to receive messages. Sending needs no event loop.
class SingleInstance : public QObject
{
    Q_OBJECT

public:
    static constexpr int maximumMessageBytes = 1 << 20;

    /// The id of a program for a profile: for all that share a directory of settings, and for nobody else.
    static QString idOfProfile(QString const& program);

    /// An instance of the program `id`, a name that can be part of a file name.
    explicit SingleInstance(QString const& id, QObject* parent = nullptr);
    ~SingleInstance() override;

    /// Becomes the first instance if there is none, and tells whether this is it. Where no lock can be had at all,
    /// for want of a directory, every instance is a first one.
    bool isFirst();

    /// Sends a message to the first instance. Returns whether it was taken within `timeoutMs`; waits at most that
    /// long.
    bool sendMessage(QString const& message, int timeoutMs) const;

    /// The path of the socket; empty when there is no directory for it.
    QString socketPath() const { return _socketPath; }

signals:
    /// A later instance has sent a message. It has its answer already.
    void messageReceived(QString const& message);

private:
    void listen();
    void onNewConnection();
    void onReadyRead(QLocalSocket* client);

    QString _socketPath;
    std::unique_ptr<QLockFile> _lock;
    QLocalServer _server;
    QList<QLocalSocket*> _clients; ///< Connected, oldest first; owned by _server.

    static Logger* log;
};
