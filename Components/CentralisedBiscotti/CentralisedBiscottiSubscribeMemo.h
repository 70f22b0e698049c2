#pragma once

#include "BiscottiSignatureId.h"
#include "BiscottiSubscriberId.h"
#include "BiscottiSubscription.h"
#include "CentralisedBiscottiMemo.h"

class Logger;

/// Remembers a subscription, at once, and queues it for the server.
class CentralisedBiscottiSubscribeMemo : public CentralisedBiscottiMemo
{
public:
    CentralisedBiscottiSubscribeMemo(CentralisedBiscottiSession& session, BiscottiSubscription const& subscription,
                                     BiscottiSubscriber* subscriber, BiscottiSubscriberId const& subscriberId,
                                     BiscottiSignatureId const& signatureId)
        : CentralisedBiscottiMemo(session), _subscription(subscription), _subscriber(subscriber),
          _subscriberId(subscriberId), _signatureId(signatureId)
    {
    }

    void handle() override;

private:
    static Logger* log;

    BiscottiSubscription const _subscription;
    BiscottiSubscriber* const _subscriber;
    BiscottiSubscriberId const _subscriberId;
    BiscottiSignatureId const _signatureId;
};
