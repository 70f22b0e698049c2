#pragma once

#include "TcpSocket.h"

#include <utility>

/// A TcpSocket whose other side is the test: it says when the connection stands, what comes and how it ends, and sees
/// what was written.
class FakeTcpSocket : public TcpSocket
{
    Q_OBJECT

public:
    using TcpSocket::TcpSocket;

    /// The other side accepts the connection.
    void accept();

    /// The other side sends bytes.
    void receive(QByteArray const& bytes);

    /// The connection fails; one that stands is also lost.
    void fail(QAbstractSocket::SocketError socketError, QString const& text = {});

    /// The other side closes the connection.
    void closeRemotely() { fail(QAbstractSocket::RemoteHostClosedError); }

    /// What was written since the last time.
    QByteArray takeWritten();

    /// From now on the other side reads nothing: what is written stays here, and a link that is closed waits for it.
    void stall() { _isStalled = true; }

    /// From now on nothing can be written on this connection, which stands all the same.
    void refuseWrites() { _refusesWrites = true; }

    void abort() override;
    void connectToHost(QString const& host, unsigned short port) override;
    void connectToHost(QHostAddress const& address, unsigned short port) override;
    void disconnectFromHost() override;
    QByteArray readAll() override;
    qint64 readLine(char* data, qint64 maxSize) override;
    QByteArray readLine(qint64 maxSize = 0) override;
    qint64 read(char* data, qint64 maxSize) override;
    qint64 bytesAvailable() const override { return _received.size(); }
    void setReadBufferSize(qint64) override {}
    qint64 write(QByteArray const& data) override;
    qint64 bytesToWrite() const override { return _isStalled ? _written.size() : 0; }
    bool flush() override { return std::exchange(_hasUnflushed, false); }
    void close() override { disconnectFromHost(); }
    int socketDescriptor() const override { return -1; }
    bool canReadLine() const override { return _received.contains('\n'); }
    bool isValid() const override
    {
        return _state == QAbstractSocket::ConnectedState || _state == QAbstractSocket::ClosingState;
    }
    QHostAddress localAddress() const override { return QHostAddress(QHostAddress::LocalHost); }
    QHostAddress peerAddress() const override { return QHostAddress(_host); }
    quint16 localPort() const override { return isValid() ? 49152 : 0; }
    quint16 peerPort() const override { return _port; }
    QString peerName() const override { return _host; }
    QAbstractSocket::SocketState state() const override { return _state; }
    QAbstractSocket::SocketError lastError() const override { return _error; }
    QString errorString() const override { return _errorText; }

private:
    QString _host;
    quint16 _port = 0;
    QByteArray _received;
    QByteArray _written;
    bool _hasUnflushed = false;
    bool _isStalled = false;
    bool _refusesWrites = false;
    QAbstractSocket::SocketState _state = QAbstractSocket::UnconnectedState;
    QAbstractSocket::SocketError _error = QAbstractSocket::UnknownSocketError;
    QString _errorText;
};
