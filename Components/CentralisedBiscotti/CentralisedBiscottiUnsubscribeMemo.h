#pragma once

#include "BiscottiSubscriptionId.h"
#include "CentralisedBiscottiMemo.h"

/// Queues the end of a subscription for the server.
class CentralisedBiscottiUnsubscribeMemo : public CentralisedBiscottiMemo
{
public:
    CentralisedBiscottiUnsubscribeMemo(CentralisedBiscottiSession& session, BiscottiSubscriptionId const& id)
        : CentralisedBiscottiMemo(session), _id(id)
    {
    }

    void handle() override;

private:
    BiscottiSubscriptionId const _id;
};
