#pragma once

#include <QAbstractSocket>
#include <QByteArray>
#include <QHostAddress>
#include <QObject>
#include <QString>

/// A TCP connection as an interface, with the operations and the meaning of QTcpSocket. Each signal carries the
/// socket itself, so that one slot can serve many. Lives on the thread that made it; moves with moveToThread().
class TcpSocket : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    /// Drops the connection at once, with what is still to be written.
    virtual void abort() = 0;

    /// Begins to connect; connected() or error() tells the end of it.
    virtual void connectToHost(QString const& host, unsigned short port) = 0;
    virtual void connectToHost(QHostAddress const& address, unsigned short port) = 0;

    /// Closes once all is written.
    virtual void disconnectFromHost() = 0;

    virtual QByteArray readAll() = 0;

    /// Reads up to the end of a line, that included, or maxSize - 1 bytes, and ends them with a NUL.
    /// Returns the number of bytes, or -1 on error.
    virtual qint64 readLine(char* data, qint64 maxSize) = 0;

    /// The same; a maxSize of 0 sets no limit.
    virtual QByteArray readLine(qint64 maxSize = 0) = 0;

    /// Reads up to maxSize bytes. Returns their number, or -1 when the connection is gone and all is read.
    virtual qint64 read(char* data, qint64 maxSize) = 0;
    virtual qint64 bytesAvailable() const = 0;

    /// Limits what is read ahead: beyond that many bytes the other side has to wait. 0, as at first, sets no limit.
    virtual void setReadBufferSize(qint64 size) = 0;

    /// Queues bytes to be sent. Returns their number, or -1 on error.
    virtual qint64 write(QByteArray const& data) = 0;

    /// Bytes that wait to be sent.
    virtual qint64 bytesToWrite() const = 0;

    /// Sends what the system takes without blocking; whether anything went.
    virtual bool flush() = 0;

    /// Closes for reading and then as disconnectFromHost().
    virtual void close() = 0;

    /// The system's descriptor, or -1 without a connection.
    virtual int socketDescriptor() const = 0;
    virtual bool canReadLine() const = 0;
    virtual bool isValid() const = 0;
    virtual QHostAddress localAddress() const = 0;
    virtual QHostAddress peerAddress() const = 0;
    virtual quint16 localPort() const = 0;
    virtual quint16 peerPort() const = 0;

    /// The name given to connectToHost().
    virtual QString peerName() const = 0;
    virtual QAbstractSocket::SocketState state() const = 0;
    virtual QAbstractSocket::SocketError lastError() const = 0;
    virtual QString errorString() const = 0;

signals:
    void connected(TcpSocket* socket);
    void disconnected(TcpSocket* socket);
    void readyRead(TcpSocket* socket);
    void error(TcpSocket* socket, QAbstractSocket::SocketError error);
};
