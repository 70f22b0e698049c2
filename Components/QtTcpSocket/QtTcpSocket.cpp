#include "QtTcpSocket.h"

#include <QTcpSocket>

QtTcpSocket::QtTcpSocket(QTcpSocket* socket, QObject* parent) : TcpSocket(parent), _socket(socket)
{
    _socket->setParent(this);
    connect(_socket, &QTcpSocket::connected, this, &QtTcpSocket::rethrowConnected);
    connect(_socket, &QTcpSocket::disconnected, this, &QtTcpSocket::rethrowDisconnected);
    connect(_socket, &QTcpSocket::readyRead, this, &QtTcpSocket::rethrowReadyRead);
    connect(_socket, &QTcpSocket::errorOccurred, this, &QtTcpSocket::rethrowError);
}

void QtTcpSocket::abort()
{
    _socket->abort();
}

void QtTcpSocket::connectToHost(QString const& host, unsigned short port)
{
    _socket->connectToHost(host, port);
}

void QtTcpSocket::connectToHost(QHostAddress const& address, unsigned short port)
{
    _socket->connectToHost(address, port);
}

void QtTcpSocket::disconnectFromHost()
{
    _socket->disconnectFromHost();
}

QByteArray QtTcpSocket::readAll()
{
    return _socket->readAll();
}

qint64 QtTcpSocket::readLine(char* data, qint64 maxSize)
{
    return _socket->readLine(data, maxSize);
}

QByteArray QtTcpSocket::readLine(qint64 maxSize)
{
    return _socket->readLine(maxSize);
}

qint64 QtTcpSocket::read(char* data, qint64 maxSize)
{
    return _socket->read(data, maxSize);
}

qint64 QtTcpSocket::bytesAvailable() const
{
    return _socket->bytesAvailable();
}

void QtTcpSocket::setReadBufferSize(qint64 size)
{
    _socket->setReadBufferSize(size);
}

qint64 QtTcpSocket::write(QByteArray const& data)
{
    return _socket->write(data);
}

qint64 QtTcpSocket::bytesToWrite() const
{
    return _socket->bytesToWrite();
}

bool QtTcpSocket::flush()
{
    return _socket->flush();
}

void QtTcpSocket::close()
{
    _socket->close();
}

int QtTcpSocket::socketDescriptor() const
{
    return static_cast<int>(_socket->socketDescriptor());
}

bool QtTcpSocket::canReadLine() const
{
    return _socket->canReadLine();
}

bool QtTcpSocket::isValid() const
{
    return _socket->isValid();
}

QHostAddress QtTcpSocket::localAddress() const
{
    return _socket->localAddress();
}

QHostAddress QtTcpSocket::peerAddress() const
{
    return _socket->peerAddress();
}

quint16 QtTcpSocket::localPort() const
{
    return _socket->localPort();
}

quint16 QtTcpSocket::peerPort() const
{
    return _socket->peerPort();
}

QString QtTcpSocket::peerName() const
{
    return _socket->peerName();
}

QAbstractSocket::SocketState QtTcpSocket::state() const
{
    return _socket->state();
}

QAbstractSocket::SocketError QtTcpSocket::lastError() const
{
    return _socket->error();
}

QString QtTcpSocket::errorString() const
{
    return _socket->errorString();
}

void QtTcpSocket::rethrowConnected()
{
    // The protocols on top are dialogues of short messages.
    _socket->setSocketOption(QAbstractSocket::LowDelayOption, 1);
    emit connected(this);
}

void QtTcpSocket::rethrowDisconnected()
{
    emit disconnected(this);
}

void QtTcpSocket::rethrowReadyRead()
{
    emit readyRead(this);
}

void QtTcpSocket::rethrowError(QAbstractSocket::SocketError socketError)
{
    emit error(this, socketError);
}
