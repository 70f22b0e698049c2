#include "Service.h"

#include "Logger.h"
#include "LoggerManager.h"
#include "ServiceConnection.h"
#include "TickCounter.h"
#include "Timer.h"
#include "TimerFactory.h"

#include <QNetworkProxy>
#include <QTcpSocket>

#include <algorithm>
#include <utility>

Logger* Service::log = LoggerManager::logger();

namespace
{
constexpr int pendingConnections = 1000; // That wait in the kernel and in Qt for their turn.
}

Service::Service(QString const& name, TickCounter& tickCounter, TimerFactory& timerFactory, QObject* parent)
    : QObject(parent), _name(name), _tickCounter(tickCounter), _timerFactory(timerFactory),
      _timer(timerFactory.createTimer())
{
    _server.setMaxPendingConnections(pendingConnections);
    _server.setListenBacklogSize(pendingConnections);
    _server.setProxy(QNetworkProxy::NoProxy);
    connect(&_server, &QTcpServer::newConnection, this, &Service::onNewConnection);
    connect(_timer, &Timer::timeout, this, &Service::onTimeout);
}

Service::~Service()
{
    closeAll();
    _timerFactory.disposeTimer(_timer);
}

void Service::closeAll()
{
    _server.close(); // Or who is sent away is back at once.
    QSet<ServiceConnection*> const connections = std::exchange(_connections, {});
    for (ServiceConnection* const connection : connections)
        connection->disconnect(this);
    qDeleteAll(connections);
}

bool Service::listen(QHostAddress const& address, quint16 port)
{
    if (!_server.listen(address, port))
        return false;
    _timer->start(msBetweenChecks);
    LOG_INFO("%s on %s port %u", qUtf8Printable(_name), qUtf8Printable(_server.serverAddress().toString()),
             _server.serverPort());
    return true;
}

QString Service::errorText() const
{
    return _server.errorString();
}

void Service::forEachConnection(std::function<void(ServiceConnection&)> const& call)
{
    QSet<ServiceConnection*> const now = _connections;
    for (ServiceConnection* const connection : now)
        call(*connection);
}

int Service::drop(QString const& path)
{
    int dropped = 0;
    forEachConnection([&](ServiceConnection& connection) {
        if (connection.isOpen() && (path.isEmpty() || connection.path() == path)) {
            connection.drop(QStringLiteral("dropped, as asked for"));
            ++dropped;
        }
    });
    return dropped;
}

void Service::onNewConnection()
{
    while (QTcpSocket* const pending = _server.nextPendingConnection())
        adopt(std::unique_ptr<QTcpSocket>(pending));
}

void Service::adopt(std::unique_ptr<QTcpSocket> socket)
{
    if (_connections.size() >= maximumConnections) {
        LOG_WARNING("%s: %d clients are enough, another one is turned away", qUtf8Printable(_name),
                    maximumConnections);
        socket->setParent(nullptr);
        socket->abort();
        return;
    }
    ServiceConnection* const connection = createConnection(std::move(socket));
    _connections.insert(connection);
    connect(connection, &ServiceConnection::closed, this, &Service::onClosed);
    connect(connection, &ServiceConnection::queuedChanged, this, &Service::onQueuedChanged);
    LOG_DEBUG("%s: %s has come", qUtf8Printable(_name), qUtf8Printable(connection->peer()));
    connection->start();
}

void Service::onClosed(ServiceConnection* connection)
{
    LOG_DEBUG("%s: %s is gone", qUtf8Printable(_name), qUtf8Printable(connection->peer()));
    if (_connections.remove(connection))
        connection->deleteLater();
}

void Service::onQueuedChanged(qint64 bytes)
{
    _bytesQueued += bytes;
    // Not at once: whoever sends goes through the connections.
    if (_bytesQueued > _maximumQueued && !std::exchange(_isToDropSlowest, true))
        QMetaObject::invokeMethod(this, &Service::dropSlowest, Qt::QueuedConnection);
}

void Service::dropSlowest()
{
    _isToDropSlowest = false;
    QList<ServiceConnection*> slowest(_connections.begin(), _connections.end());
    std::sort(slowest.begin(), slowest.end(), [](ServiceConnection const* left, ServiceConnection const* right) {
        return left->bytesQueued() > right->bytesQueued();
    });
    for (qsizetype i = 0; i < slowest.size() && _bytesQueued > _maximumQueued; ++i)
        slowest.at(i)->drop(QStringLiteral("it reads too slowly, and too much waits for all clients together"));
}

void Service::onTimeout()
{
    qint64 const now = _tickCounter.msSinceEpoch();
    forEachConnection([now](ServiceConnection& connection) { connection.checkTime(now); });
    lookAfter(now);
}
