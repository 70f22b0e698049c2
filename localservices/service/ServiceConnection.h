#pragma once

#include <QByteArray>
#include <QObject>
#include <QString>
#include <QTcpSocket>

#include <memory>

class Logger;

/// One client of a service: a socket whose output is bounded. A client that reads too slowly loses its connection.
/// Lives on the service's thread; the service deletes it after closed().
class ServiceConnection : public QObject
{
    Q_OBJECT

public:
    static constexpr qint64 maximumQueued = 4 << 20;     ///< Bytes that wait to be read by the client.
    static constexpr qint64 msToFinish = 10'000;         ///< For the client to take the rest.
    static constexpr qint64 socketReadBuffer = 64 << 10; ///< Bytes; what is beyond waits at the client.

    /// Takes the socket over.
    explicit ServiceConnection(std::unique_ptr<QTcpSocket> socket, QObject* parent = nullptr);
    ~ServiceConnection() override;

    /// Handles what the client sent before the connection was made. Called once.
    void start();

    /// The client's address and port.
    QString const& peer() const { return _peer; }

    bool isOpen() const { return _open; }
    bool isFinishing() const { return !_open || _finishing; }
    qint64 bytesQueued() const { return _open ? _socket->bytesToWrite() : 0; }

    /// Called by the service now and then, to tell time-outs. The time is that of the service's tick counter.
    void checkTime(qint64 msNow);

    /// Which stream it plays; empty when none.
    virtual QString path() const { return {}; }

    /// Ends the connection at once, with whatever waits for the client; `why` goes to the log.
    void drop(QString const& why);

signals:
    void closed(ServiceConnection* connection);

    /// So many bytes more, or fewer, wait for the client.
    void queuedChanged(qint64 bytes);

protected:
    /// The next bytes from the client. What the implementation keeps of them it bounds itself.
    virtual void received(QByteArray const& bytes) = 0;

    /// Called now and then while the connection is open and not about to end.
    virtual void check(qint64 msNow) = 0;

    /// The connection is over: nothing can be sent any more.
    virtual void over() {}

    /// Sends, sharing the bytes. False when the connection is over, also by this.
    bool send(QByteArray const& bytes);

    /// Hands as much of what was sent to the system as that takes now, without a turn of the event loop.
    void flush();

    /// Leaves what the client sends with its system, and goes on.
    void pauseReading() { _isPaused = true; }
    void resumeReading();

    /// Whether the client's system has acknowledged all that was sent.
    bool hasTakenAll() const;

    /// Ends the connection when all that was sent before has gone. What the client still sends goes nowhere: closing
    /// over it would take the last answer away from the client.
    void finish();

    /// The same for a client that has done something wrong; `why` goes to the log.
    void refuse(QString const& why);

    /// Ends the connection hard when so many more bytes have been sent.
    void cutAfter(qint64 bytes) { _bytesUntilCut = bytes; }

    QTcpSocket const& socket() const { return *_socket; }

private:
    void onReadyRead();
    void onDisconnected();
    void close();
    void endOutput();
    void countQueued();

    std::unique_ptr<QTcpSocket> _socket;
    QString const _peer;
    bool _open = true;
    bool _finishing = false;
    bool _isPaused = false;
    qint64 _msFinishingSince = 0; ///< As first seen by checkTime.
    qint64 _bytesUntilCut = -1;
    qint64 _bytesCounted = 0; ///< Of those that wait, as told by queuedChanged().

    static Logger* log;
};
