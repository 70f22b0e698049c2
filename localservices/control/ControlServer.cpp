#include "ControlServer.h"

#include "ControlConnection.h"

ControlServer::ControlServer(ControlCommands& commands, TickCounter& tickCounter, TimerFactory& timerFactory,
                             QObject* parent)
    : Service(QStringLiteral("Control"), tickCounter, timerFactory, parent), _commands(commands)
{
}

ServiceConnection* ControlServer::createConnection(std::unique_ptr<QTcpSocket> socket)
{
    return new ControlConnection(std::move(socket), _commands);
}
