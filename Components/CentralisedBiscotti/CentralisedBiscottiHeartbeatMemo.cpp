#include "CentralisedBiscottiHeartbeatMemo.h"

#include "CentralisedBiscotti.h"
#include "Logger.h"
#include "LoggerManager.h"
#include "TcpSocket.h"

Logger* CentralisedBiscottiHeartbeatMemo::log = LoggerManager::logger();

void CentralisedBiscottiHeartbeatMemo::handle()
{
    // First, so that nothing that goes wrong below ends the row.
    _session.postSoon(_session.heartbeatMs(), new CentralisedBiscottiHeartbeatMemo(_session));
    if (!_session.link().socket())
        _session.link().createSocket();
    switch (_session.state()) {
    case Biscotti::Connected:
        sendHeartbeat();
        break;
    case Biscotti::Disconnected:
        _session.link().connectToHost();
        break;
    case Biscotti::PermanentlyUnavailable:
        LOG_WARNING("Biscotti permanently unavailable.");
    }
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
