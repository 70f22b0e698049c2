#pragma once

#include "TcpSocket.h"

class QTcpSocket;

/// A TcpSocket over QTcpSocket. Small writes are sent without delay.
class QtTcpSocket : public TcpSocket
{
    Q_OBJECT

public:
    /// Wraps a socket and becomes its owner.
    QtTcpSocket(QTcpSocket* socket, QObject* parent);

    void abort() override;
    void connectToHost(QString const& host, unsigned short port) override;
    void connectToHost(QHostAddress const& address, unsigned short port) override;
    void disconnectFromHost() override;
    QByteArray readAll() override;
    qint64 readLine(char* data, qint64 maxSize) override;
    QByteArray readLine(qint64 maxSize = 0) override;
    qint64 read(char* data, qint64 maxSize) override;
    qint64 bytesAvailable() const override;
    void setReadBufferSize(qint64 size) override;
    qint64 write(QByteArray const& data) override;
    qint64 bytesToWrite() const override;
    bool flush() override;
    void close() override;
    int socketDescriptor() const override;
    bool canReadLine() const override;
    bool isValid() const override;
    QHostAddress localAddress() const override;
    QHostAddress peerAddress() const override;
    quint16 localPort() const override;
    quint16 peerPort() const override;
    QString peerName() const override;
    QAbstractSocket::SocketState state() const override;
    QAbstractSocket::SocketError lastError() const override;
    QString errorString() const override;

private slots:
    void rethrowConnected();
    void rethrowDisconnected();
    void rethrowReadyRead();
    void rethrowError(QAbstractSocket::SocketError socketError);

private:
    QTcpSocket* _socket;
};
