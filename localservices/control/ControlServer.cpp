#include "ControlServer.h"

#include "ControlConnection.h"

#include <QRandomGenerator>

#include <array>

ControlServer::ControlServer(ControlCommands& commands, QByteArray const& token, TickCounter& tickCounter,
                             TimerFactory& timerFactory, QObject* parent)
    : Service(QStringLiteral("Control"), tickCounter, timerFactory, parent), _commands(commands), _token(token)
{
}

QByteArray ControlServer::createToken()
{
    std::array<quint32, 4> words{};
    QRandomGenerator::system()->fillRange(words.data(), words.size());
    return QByteArray(reinterpret_cast<char const*>(words.data()), sizeof words).toHex();
}

ServiceConnection* ControlServer::createConnection(std::unique_ptr<QTcpSocket> socket)
{
    return new ControlConnection(std::move(socket), _commands, _token);
}
