#pragma once

#include "BiscottiMessage.h"
#include "BiscottiSubscriptionId.h"
#include "BiscottiTopic.h"
#include "BiscottiTopicExpression.h"

#include <QMetaType>
#include <QString>

/// The wish to hear posts: of an interest, as all subscriptions made here are, or of a fact, which only a decoded
/// message holds. Never of both.
class BiscottiSubscription : public BiscottiMessage
{
public:
    BiscottiSubscriptionId subscriptionId() const { return _subscriptionId; }
    void setSubscriptionId(BiscottiSubscriptionId const& subscriptionId) { _subscriptionId = subscriptionId; }

    /// A single exact topic; null if there is none.
    BiscottiTopic fact() const { return _fact; }
    void setFact(BiscottiTopic const& fact) { _fact = fact; }
    bool hasFact() const { return !_fact.isNull(); }

    /// The topics that are heard; empty if there are none.
    BiscottiTopicExpression interest() const { return _interest; }
    void setInterest(BiscottiTopicExpression const& interest) { _interest = interest; }
    bool hasInterest() const { return !_interest.isEmpty(); }

    QString toString() const override;

private:
    BiscottiSubscriptionId _subscriptionId;
    BiscottiTopic _fact;
    BiscottiTopicExpression _interest;
};

Q_DECLARE_METATYPE(BiscottiSubscription)
inline int const biscottiSubscriptionMetaType = qRegisterMetaType<BiscottiSubscription>("BiscottiSubscription");
