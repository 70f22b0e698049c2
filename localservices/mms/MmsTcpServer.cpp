#include "MmsTcpServer.h"

#include "MmsTcpConnection.h"
#include "TickCounter.h"

MmsTcpServer::MmsTcpServer(BroadcastCatalogue& catalogue, FaultPlan& faults, TickCounter& tickCounter,
                           TimerFactory& timerFactory, QObject* parent)
    : Service(QStringLiteral("MMS over TCP"), tickCounter, timerFactory, parent), _catalogue(catalogue),
      _faults(faults)
{
}

qint64 MmsTcpServer::msNow() const
{
    return tickCounter().msSinceEpoch();
}

ServiceConnection* MmsTcpServer::createConnection(std::unique_ptr<QTcpSocket> socket)
{
    return new MmsTcpConnection(std::move(socket), *this);
}
