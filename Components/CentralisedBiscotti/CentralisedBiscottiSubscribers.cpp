#include "CentralisedBiscottiSubscribers.h"

#include "BiscottiSubscriber.h"
#include "BiscottiSubscriptionEngine.h"
#include "Logger.h"
#include "LoggerManager.h"

#include <QScopeGuard>
#include <QSet>

Logger* CentralisedBiscottiSubscribers::log = LoggerManager::logger();

void CentralisedBiscottiSubscribers::rememberSubscription(BiscottiSubscription const& subscription,
                                                          BiscottiSubscriber* subscriber,
                                                          BiscottiSubscriberId const& subscriberId,
                                                          BiscottiSignatureId const& signatureId)
{
    _engine->insert(subscription, signatureId);
    _subscribers[subscriberId] = subscriber;
    _subscriberOf[subscription.subscriptionId()] = subscriberId;
    _subscriptionsOf.insert(subscriberId, subscription.subscriptionId());
}

void CentralisedBiscottiSubscribers::forgetSubscription(BiscottiSubscriberId const& subscriberId,
                                                        BiscottiSubscriptionId const& subscriptionId)
{
    _engine->remove(subscriptionId);
    _subscriberOf.remove(subscriptionId);
    _subscriptionsOf.remove(subscriberId, subscriptionId);
    if (!_subscriptionsOf.contains(subscriberId))
        _subscribers.remove(subscriberId);
}

void CentralisedBiscottiSubscribers::forgetSubscriber(BiscottiSubscriberId const& subscriberId)
{
    for (BiscottiSubscriptionId const& id : subscriptionsOf(subscriberId)) {
        _engine->remove(id);
        _subscriberOf.remove(id);
    }
    _subscriptionsOf.remove(subscriberId);
    _subscribers.remove(subscriberId);
}

void CentralisedBiscottiSubscribers::notify(BiscottiPost const& post)
{
    QSet<BiscottiSubscriptionId> const matches = _engine->findMatches(post);
    LOG_DEBUG("Found %d total matching subscriptions.", static_cast<int>(matches.size()));
    QSet<BiscottiSubscriberId> subscriberIds;
    for (BiscottiSubscriptionId const& id : matches)
        subscriberIds.insert(subscriberOf(id));
    LOG_DEBUG("Found %d total subscribers.", static_cast<int>(subscriberIds.size()));
    for (BiscottiSubscriberId const& id : std::as_const(subscriberIds))
        notify(id, post);
}

void CentralisedBiscottiSubscribers::notify(BiscottiSubscriberId const& subscriberId, BiscottiPost const& post)
{
    BiscottiSubscriber* const subscriber = _subscribers.value(subscriberId);
    if (!subscriber || !_gate.begin(subscriberId)) {
        LOG_DEBUG("Can't notify subscriber %s.", qUtf8Printable(subscriberId.toString()));
        return;
    }
    auto const end = qScopeGuard([this] { _gate.end(); });
    LOG_DEBUG("Notifying subscriber %s.", qUtf8Printable(subscriberId.toString()));
    try {
        subscriber->handleBiscottiPost(post);
    } catch (std::exception const& error) {
        LOG_ERROR("Subscriber %s failed to handle a post: %s", qUtf8Printable(subscriberId.toString()), error.what());
    }
}
