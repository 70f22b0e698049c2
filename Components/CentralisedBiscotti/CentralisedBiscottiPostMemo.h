#pragma once

#include "BiscottiPost.h"
#include "BiscottiSignatureId.h"
#include "CentralisedBiscottiMemo.h"

class Logger;

/// Queues a post for the server.
class CentralisedBiscottiPostMemo : public CentralisedBiscottiMemo
{
public:
    CentralisedBiscottiPostMemo(CentralisedBiscottiSession& session, BiscottiPost const& post,
                                BiscottiSignatureId const& signatureId)
        : CentralisedBiscottiMemo(session), _post(post), _signatureId(signatureId)
    {
    }

    void handle() override;

private:
    static Logger* log;

    BiscottiPost const _post;
    BiscottiSignatureId const _signatureId;
};
