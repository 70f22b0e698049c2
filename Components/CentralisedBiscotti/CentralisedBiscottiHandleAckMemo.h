#pragma once

#include "BiscottiSignatureId.h"
#include "CentralisedBiscottiAck.h"
#include "CentralisedBiscottiArrivalMemo.h"

class Logger;

/// The server has answered a message: finishes the current operation if it was that.
class CentralisedBiscottiHandleAckMemo : public CentralisedBiscottiArrivalMemo
{
public:
    CentralisedBiscottiHandleAckMemo(CentralisedBiscottiSession& session,
                                     CentralisedBiscottiMessageId const& messageId, CentralisedBiscottiAck const& ack,
                                     BiscottiSignatureId const& signatureId, bool verified)
        : CentralisedBiscottiArrivalMemo(session), _messageId(messageId), _ack(ack), _signatureId(signatureId),
          _verified(verified)
    {
    }

    void handle() override;

private:
    static Logger* log;

    CentralisedBiscottiMessageId const _messageId;
    CentralisedBiscottiAck const _ack;
    BiscottiSignatureId const _signatureId;
    bool const _verified;
};
