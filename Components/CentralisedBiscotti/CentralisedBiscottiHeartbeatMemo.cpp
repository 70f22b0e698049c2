#include "CentralisedBiscottiHeartbeatMemo.h"

#include "CentralisedBiscotti.h"
#include "Logger.h"
#include "LoggerManager.h"
#include "TcpSocket.h"

Logger* CentralisedBiscottiHeartbeatMemo::log = LoggerManager::logger();

void CentralisedBiscottiHeartbeatMemo::handle()
{
    if (!_session.link().socket())
        createSocket();
    switch (_session.state()) {
    case Biscotti::Connected:
        sendHeartbeat();
        break;
    case Biscotti::Disconnected:
        connectToHost();
        break;
    case Biscotti::PermanentlyUnavailable:
        LOG_WARNING("Biscotti permanently unavailable.");
    }
    _session.postSoon(_session.heartbeatMs(), new CentralisedBiscottiHeartbeatMemo(_session));
}

void CentralisedBiscottiHeartbeatMemo::createSocket()
{
    TcpSocket* const socket = _session.link().createSocket();
    // At once on the socket's thread, which is this one: the slots only post memos.
    CentralisedBiscotti* const client = _session.client();
    QObject::connect(socket, &TcpSocket::connected, client, &CentralisedBiscotti::onConnected, Qt::DirectConnection);
    QObject::connect(socket, &TcpSocket::disconnected, client, &CentralisedBiscotti::onDisconnected,
                     Qt::DirectConnection);
    QObject::connect(socket, &TcpSocket::error, client, &CentralisedBiscotti::onError, Qt::DirectConnection);
    QObject::connect(socket, &TcpSocket::readyRead, client, &CentralisedBiscotti::onReadyRead, Qt::DirectConnection);
}

void CentralisedBiscottiHeartbeatMemo::sendHeartbeat()
{
    LOG_DEBUG("Sending heartbeat.");
    CentralisedBiscottiMessageId const id(_session.client()->nextId());
    if (!_session.link().sendMessage(
            _session.encoder().encodeHeartbeat(id, CentralisedBiscottiHeartbeat(), BiscottiSignatureId()))) {
        LOG_WARNING("Heartbeat failed. Disconnecting.");
        _session.link().disconnectFromHost();
        return;
    }
    _session.link().socket()->read(nullptr, 0); // Makes the socket look whether the other side is gone.
}

void CentralisedBiscottiHeartbeatMemo::connectToHost()
{
    QAbstractSocket::SocketState const socketState = _session.link().socket()->state();
    if (socketState != QAbstractSocket::UnconnectedState) {
        LOG_DEBUG("Still negotiating connection to Biscotti server (state is %d)...", static_cast<int>(socketState));
        return;
    }
    LOG_DEBUG("Connecting to Biscotti server...");
    _session.link().connectToHost();
}
