#pragma once

#include "BiscottiSubscriberId.h"
#include "CentralisedBiscottiMemo.h"

class Logger;

/// Queues the end of all subscriptions of a subscriber, and forgets it at once.
class CentralisedBiscottiUnsubscribeAllMemo : public CentralisedBiscottiMemo
{
public:
    CentralisedBiscottiUnsubscribeAllMemo(CentralisedBiscottiSession& session,
                                          BiscottiSubscriberId const& subscriberId)
        : CentralisedBiscottiMemo(session), _subscriberId(subscriberId)
    {
    }

    void handle() override;

private:
    static Logger* log;

    BiscottiSubscriberId const _subscriberId;
};
