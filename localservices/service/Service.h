#pragma once

#include <QHostAddress>
#include <QObject>
#include <QSet>
#include <QTcpServer>

#include <functional>
#include <memory>

class Logger;
class QTcpSocket;
class ServiceConnection;
class TickCounter;
class Timer;
class TimerFactory;

/// A service on a TCP port: takes clients, up to a number, and looks after them now and then. When too much waits for
/// all of them together, those that are furthest behind lose their connections. What it says to them is
/// the subclasses' affair. Lives on one thread.
class Service : public QObject
{
    Q_OBJECT

public:
    static constexpr int maximumConnections = 10'000;
    static constexpr qint64 maximumQueued =
        256 << 20; ///< Bytes that wait for all clients together, unless told otherwise.
    static constexpr int msBetweenChecks = 1000;

    /// `name` is for the log. Clock and factory are borrowed.
    Service(QString const& name, TickCounter& tickCounter, TimerFactory& timerFactory, QObject* parent = nullptr);
    ~Service() override;

    /// Begins to take clients, on a free port when it is 0. False when the port cannot be had; errorText() tells why.
    bool listen(QHostAddress const& address, quint16 port);
    QString errorText() const;

    QString const& name() const { return _name; }
    QHostAddress address() const { return _server.serverAddress(); }
    quint16 port() const { return _server.serverPort(); }
    int connectionCount() const { return static_cast<int>(_connections.size()); }

    /// What may wait for all clients together, in bytes.
    void setMaximumQueued(qint64 bytes) { _maximumQueued = bytes; }

    /// Takes a client whose connection came about elsewhere, or turns it away if there are enough.
    void adopt(std::unique_ptr<QTcpSocket> socket);

    /// Calls for each client; the call may close it.
    void forEachConnection(std::function<void(ServiceConnection&)> const& call);

    /// Closes the connections that play the stream, or all when the path is empty. Returns how many.
    int drop(QString const& path);

protected:
    /// A new client. Takes the socket over.
    virtual ServiceConnection* createConnection(std::unique_ptr<QTcpSocket> socket) = 0;

    /// Called now and then, for what is not about a single connection.
    virtual void lookAfter(qint64) {}

    TickCounter& tickCounter() const { return _tickCounter; }

    /// Takes nobody any more and deletes all connections. For destructors of subclasses that their connections still
    /// need.
    void closeAll();

private:
    void onNewConnection();
    void onClosed(ServiceConnection* connection);
    void onTimeout();
    void onQueuedChanged(qint64 bytes);
    void dropSlowest();

    QString const _name;
    TickCounter& _tickCounter;
    TimerFactory& _timerFactory;
    Timer* _timer;
    QTcpServer _server;
    QSet<ServiceConnection*> _connections; ///< Owned; those that are closed are deleted later.

    qint64 _maximumQueued = maximumQueued;
    qint64 _bytesQueued = 0;
    bool _isToDropSlowest = false; ///< Soon.

    static Logger* log;
};
