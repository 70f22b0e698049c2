#include "FakeTcpSocket.h"

#include <algorithm>
#include <utility>

void FakeTcpSocket::accept()
{
    _state = QAbstractSocket::ConnectedState;
    emit connected(this);
}

void FakeTcpSocket::receive(QByteArray const& bytes)
{
    _received += bytes;
    emit readyRead(this);
}

void FakeTcpSocket::fail(QAbstractSocket::SocketError socketError, QString const& text)
{
    _error = socketError;
    _errorText = text;
    bool const wasConnected =
        std::exchange(_state, QAbstractSocket::UnconnectedState) == QAbstractSocket::ConnectedState;
    emit error(this, socketError);
    if (wasConnected)
        emit disconnected(this);
}

QByteArray FakeTcpSocket::takeWritten()
{
    return std::exchange(_written, {});
}

void FakeTcpSocket::connectToHost(QString const& host, unsigned short port)
{
    _host = host;
    _port = port;
    _received.clear();
    _isStalled = false;
    _refusesWrites = false;
    _state = QAbstractSocket::ConnectingState;
}

void FakeTcpSocket::connectToHost(QHostAddress const& address, unsigned short port)
{
    connectToHost(address.toString(), port);
}

void FakeTcpSocket::disconnectFromHost()
{
    if (_isStalled)
        _state = QAbstractSocket::ClosingState;
    else
        abort();
}

void FakeTcpSocket::abort()
{
    _isStalled = false;
    bool const wasConnected = isValid();
    _state = QAbstractSocket::UnconnectedState;
    if (wasConnected)
        emit disconnected(this);
}

QByteArray FakeTcpSocket::readAll()
{
    return std::exchange(_received, {});
}

qint64 FakeTcpSocket::readLine(char* data, qint64 maxSize)
{
    QByteArray const line = maxSize > 1 ? readLine(maxSize - 1) : QByteArray();
    std::copy_n(line.constData(), line.size() + 1, data);
    return line.size();
}

QByteArray FakeTcpSocket::readLine(qint64 maxSize)
{
    qsizetype const end = _received.indexOf('\n') + 1;
    qsizetype size = end > 0 ? end : _received.size();
    if (maxSize > 0)
        size = std::min<qsizetype>(size, maxSize);
    QByteArray const line = _received.first(size);
    _received.remove(0, size);
    return line;
}

qint64 FakeTcpSocket::read(char* data, qint64 maxSize)
{
    if (_received.isEmpty() && !isValid())
        return -1;
    qint64 const size = std::min<qint64>(maxSize, _received.size());
    std::copy_n(_received.constData(), size, data);
    _received.remove(0, size);
    return size;
}

qint64 FakeTcpSocket::write(QByteArray const& data)
{
    if (!isValid() || _refusesWrites)
        return -1;
    if (_isStalled)
        return data.size();
    _written += data;
    _hasUnflushed = !data.isEmpty() || _hasUnflushed;
    return data.size();
}
