#include "CentralisedBiscottiUnsubscribeAllMemo.h"

#include "Logger.h"
#include "LoggerManager.h"

Logger* CentralisedBiscottiUnsubscribeAllMemo::log = LoggerManager::logger();

void CentralisedBiscottiUnsubscribeAllMemo::handle()
{
    LOG_DEBUG("Unsubscribing from all subscriptions for subscriber %s.", qUtf8Printable(_subscriberId.toString()));
    CentralisedBiscottiSubscribers& subscribers = _session.subscribers();
    for (BiscottiSubscriptionId const& id : subscribers.subscriptionsOf(_subscriberId))
        _session.addUnsubscribeOp(id);
    subscribers.forgetSubscriber(_subscriberId);
    subscribers.unsilence(_subscriberId);
    _session.postDoPending();
}
