#pragma once

#include "BiscottiPost.h"
#include "BiscottiSignatureId.h"
#include "CentralisedBiscottiArrivalMemo.h"

class Logger;

/// A post has come: hands it to the subscribers that it reaches.
class CentralisedBiscottiHandlePostMemo : public CentralisedBiscottiArrivalMemo
{
public:
    CentralisedBiscottiHandlePostMemo(CentralisedBiscottiSession& session,
                                      CentralisedBiscottiMessageId const& messageId, BiscottiPost const& post,
                                      BiscottiSignatureId const& signatureId, bool verified)
        : CentralisedBiscottiArrivalMemo(session), _messageId(messageId), _post(post), _signatureId(signatureId),
          _verified(verified)
    {
    }

    void handle() override;

private:
    static Logger* log;

    CentralisedBiscottiMessageId const _messageId;
    BiscottiPost const _post;
    BiscottiSignatureId const _signatureId;
    bool const _verified;
};
