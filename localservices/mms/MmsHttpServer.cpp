#include "MmsHttpServer.h"

#include "MmsHttpConnection.h"
#include "TickCounter.h"

MmsHttpServer::MmsHttpServer(BroadcastCatalogue& catalogue, FaultPlan& faults, StreamDocuments const* documents,
                             TickCounter& tickCounter, TimerFactory& timerFactory, QObject* parent)
    : Service(QStringLiteral("MMS over HTTP"), tickCounter, timerFactory, parent), _catalogue(catalogue),
      _faults(faults), _documents(documents)
{
}

MmsHttpServer::~MmsHttpServer()
{
    closeAll(); // They still look up their players here.
}

qint64 MmsHttpServer::msNow() const
{
    return tickCounter().msSinceEpoch();
}

void MmsHttpServer::addPlayer(quint32 clientId, MmsHttpConnection* connection)
{
    _players.insert(clientId, connection);
}

void MmsHttpServer::removePlayer(quint32 clientId, MmsHttpConnection const* connection)
{
    if (_players.value(clientId) == connection)
        _players.remove(clientId);
}

MmsHttpConnection* MmsHttpServer::player(quint32 clientId) const
{
    return _players.value(clientId);
}

ServiceConnection* MmsHttpServer::createConnection(std::unique_ptr<QTcpSocket> socket)
{
    return new MmsHttpConnection(std::move(socket), *this);
}
