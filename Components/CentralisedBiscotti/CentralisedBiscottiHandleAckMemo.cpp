#include "CentralisedBiscottiHandleAckMemo.h"

#include "CentralisedBiscotti.h"
#include "Logger.h"
#include "LoggerManager.h"

Logger* CentralisedBiscottiHandleAckMemo::log = LoggerManager::logger();

void CentralisedBiscottiHandleAckMemo::handle()
{
    CentralisedBiscottiMessageId const id = _ack.ackMsgId();
    LOG_DEBUG("*** Handling ack %d: %s...", static_cast<int>(_ack.ackCode()), qUtf8Printable(id.toString()));
    if (!_session.client()->verifyMessage(_messageId, _signatureId, _verified))
        return;
    auto const* const current = _session.opQueue().current();
    if (!current) {
        LOG_INFO("    No current operation. Unexpected ack.");
    } else if (!(current->msgId == id)) {
        LOG_INFO("    Ack was for message %s, but current operation is message %s. Ignoring.",
                 qUtf8Printable(id.toString()), qUtf8Printable(current->msgId.toString()));
    } else {
        _session.finishCurrentOp(_ack.ackCode(), _ack.ackDescription());
    }
}
