#include "ServiceConnection.h"

#include "Logger.h"
#include "LoggerManager.h"

#include <QHostAddress>

#include <linux/sockios.h>
#include <sys/ioctl.h>
#include <sys/socket.h>
#include <utility>

Logger* ServiceConnection::log = LoggerManager::logger();

ServiceConnection::ServiceConnection(std::unique_ptr<QTcpSocket> socket, QObject* parent)
    : QObject(parent), _socket(std::move(socket)),
      _peer(QStringLiteral("%1:%2").arg(_socket->peerAddress().toString()).arg(_socket->peerPort()))
{
    _socket->setParent(nullptr);
    _socket->setSocketOption(QAbstractSocket::LowDelayOption, 1);
    _socket->setReadBufferSize(socketReadBuffer);
    connect(_socket.get(), &QTcpSocket::readyRead, this, &ServiceConnection::onReadyRead);
    connect(_socket.get(), &QTcpSocket::bytesWritten, this, &ServiceConnection::countQueued);
    connect(_socket.get(), &QTcpSocket::disconnected, this, &ServiceConnection::onDisconnected);
}

ServiceConnection::~ServiceConnection()
{
    _socket->disconnect(this);
}

void ServiceConnection::start()
{
    if (_socket->state() != QAbstractSocket::ConnectedState)
        return onDisconnected();
    if (_socket->bytesAvailable() > 0)
        onReadyRead();
}

bool ServiceConnection::send(QByteArray const& bytes)
{
    if (!_open || _finishing)
        return false;
    if (_bytesUntilCut >= 0 && bytes.size() >= _bytesUntilCut) {
        qint64 const rest = _bytesUntilCut;
        _bytesUntilCut = -1;
        _socket->write(bytes.left(rest));
        LOG_INFO("%s: the connection is cut off, as asked for", qUtf8Printable(_peer));
        finish();
        return false;
    }
    if (_bytesUntilCut >= 0)
        _bytesUntilCut -= bytes.size();
    if (_socket->bytesToWrite() + bytes.size() > maximumQueued) {
        LOG_WARNING("%s reads too slowly: %lld bytes wait for it. The connection is closed", qUtf8Printable(_peer),
                    static_cast<long long>(_socket->bytesToWrite()));
        close();
        return false;
    }
    _socket->write(bytes);
    countQueued();
    return true;
}

void ServiceConnection::countQueued()
{
    qint64 const more = bytesQueued() - std::exchange(_bytesCounted, bytesQueued());
    if (more != 0)
        emit queuedChanged(more);
}

void ServiceConnection::flush()
{
    if (_open)
        _socket->flush();
}

void ServiceConnection::resumeReading()
{
    _isPaused = false;
    if (_open && _socket->bytesAvailable() > 0)
        onReadyRead();
}

bool ServiceConnection::hasTakenAll() const
{
    int unacknowledged = 0;
    return _socket->bytesToWrite() == 0 &&
           ::ioctl(static_cast<int>(_socket->socketDescriptor()), SIOCOUTQ, &unacknowledged) == 0 &&
           unacknowledged == 0;
}

void ServiceConnection::finish()
{
    if (!_open || _finishing)
        return;
    _finishing = true;
    connect(_socket.get(), &QTcpSocket::bytesWritten, this, &ServiceConnection::endOutput);
    endOutput();
}

/// The client sees the end and closes; onDisconnected follows.
void ServiceConnection::endOutput()
{
    if (_socket->bytesToWrite() == 0)
        ::shutdown(static_cast<int>(_socket->socketDescriptor()), SHUT_WR);
}

void ServiceConnection::refuse(QString const& why)
{
    if (!_open || _finishing)
        return;
    LOG_WARNING("%s: %s. The connection is closed", qUtf8Printable(_peer), qUtf8Printable(why));
    finish();
}

void ServiceConnection::checkTime(qint64 msNow)
{
    if (!_open)
        return;
    if (!_finishing)
        return check(msNow);
    if (_msFinishingSince == 0)
        _msFinishingSince = msNow;
    else if (msNow - _msFinishingSince > msToFinish)
        drop(QStringLiteral("it does not take what was sent"));
}

void ServiceConnection::drop(QString const& why)
{
    if (!_open)
        return;
    LOG_INFO("%s: %s. The connection is closed", qUtf8Printable(_peer), qUtf8Printable(why));
    close();
}

void ServiceConnection::onReadyRead()
{
    if (_isPaused && !isFinishing())
        return;
    QByteArray const bytes = _socket->readAll();
    if (_open && !_finishing && !bytes.isEmpty())
        received(bytes);
}

void ServiceConnection::onDisconnected()
{
    if (!_open)
        return;
    _open = false;
    countQueued();
    over();
    emit closed(this);
}

void ServiceConnection::close()
{
    if (!_open)
        return;
    _open = false;
    _socket->disconnect(this);
    _socket->abort();
    countQueued();
    over();
    emit closed(this);
}
