#pragma once

#include "BiscottiSubscriberId.h"
#include "BiscottiSubscriptionId.h"
#include "CentralisedBiscottiSubscriberGate.h"

#include <QHash>
#include <QList>
#include <QMultiHash>

class BiscottiPost;
class BiscottiSignatureId;
class BiscottiSubscriber;
class BiscottiSubscription;
class BiscottiSubscriptionEngine;
class Logger;

/// Who has subscribed to what. On the memo queue's thread, but for the two functions that say otherwise.
class CentralisedBiscottiSubscribers
{
public:
    /// The engine is borrowed; it keeps the subscriptions.
    explicit CentralisedBiscottiSubscribers(BiscottiSubscriptionEngine* engine) : _engine(engine) {}

    BiscottiSubscriptionEngine& engine() const { return *_engine; }

    /// The subscriber is borrowed until it is forgotten or silenced.
    void rememberSubscription(BiscottiSubscription const& subscription, BiscottiSubscriber* subscriber,
                              BiscottiSubscriberId const& subscriberId, BiscottiSignatureId const& signatureId);

    /// Forgets one subscription, and with the subscriber's last one the subscriber.
    void forgetSubscription(BiscottiSubscriberId const& subscriberId, BiscottiSubscriptionId const& subscriptionId);

    /// Forgets all subscriptions of the subscriber, and the subscriber.
    void forgetSubscriber(BiscottiSubscriberId const& subscriberId);

    /// Whose subscription it is; null if unknown.
    BiscottiSubscriberId subscriberOf(BiscottiSubscriptionId const& id) const { return _subscriberOf.value(id); }
    QList<BiscottiSubscriptionId> subscriptionsOf(BiscottiSubscriberId const& id) const
    {
        return _subscriptionsOf.values(id);
    }

    /// Calls each subscriber that the post reaches, once.
    void notify(BiscottiPost const& post);

    /// From any thread: ends the calls to the subscriber, as it is known now, at once, waiting for one that runs on
    /// another thread. Each silence() is followed by an unsilence() when the subscriber has been forgotten.
    void silence(BiscottiSubscriberId const& subscriberId) { _gate.close(subscriberId); }
    void unsilence(BiscottiSubscriberId const& subscriberId) { _gate.reopen(subscriberId); }

private:
    void notify(BiscottiSubscriberId const& subscriberId, BiscottiPost const& post);

    static Logger* log;

    BiscottiSubscriptionEngine* _engine;
    QHash<BiscottiSubscriberId, BiscottiSubscriber*> _subscribers;
    QHash<BiscottiSubscriptionId, BiscottiSubscriberId> _subscriberOf;
    QMultiHash<BiscottiSubscriberId, BiscottiSubscriptionId> _subscriptionsOf;
    CentralisedBiscottiSubscriberGate _gate;
};
