#pragma once

#include "BiscottiPost.h"
#include "BiscottiSignatureId.h"
#include "BiscottiSubscription.h"
#include "BiscottiSubscriptionId.h"

#include <QListIterator>
#include <QObject>
#include <QSet>
#include <QString>

/// All subscriptions of this client, and which of them a post reaches, as an interface.
///
/// Nothing throws; an unknown id is answered with null values. Not for several threads at a time.
class BiscottiSubscriptionEngine : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    /// Files a subscription under its interest. Its id has to be a fresh one; the signature may be null. False, and
    /// nothing is filed, if the interest means no topic.
    virtual bool insert(BiscottiSubscription const& subscription, BiscottiSignatureId const& signatureId) = 0;

    /// Forgets a subscription; an unknown one is no error.
    virtual void remove(BiscottiSubscriptionId const& id) = 0;

    virtual bool contains(BiscottiSubscriptionId const& id) const = 0;

    /// Whether the subscription was filed with a signature.
    virtual bool isSigned(BiscottiSubscriptionId const& id) const = 0;

    virtual BiscottiSubscription subscription(BiscottiSubscriptionId const& id) const = 0;

    /// The signature of the subscription; null without one.
    virtual BiscottiSignatureId signatureId(BiscottiSubscriptionId const& id) const = 0;

    /// Goes over the ids of all subscriptions as they are now, in no order; later changes do not concern it.
    virtual QListIterator<BiscottiSubscriptionId> iterator() const = 0;

    /// The subscriptions that hear the post's first topic. None for a post with an audience: only the server knows
    /// whom it is meant for.
    virtual QSet<BiscottiSubscriptionId> findMatches(BiscottiPost const& post) const = 0;

    /// How many subscriptions there are.
    virtual int count() const = 0;

    /// How many of them are signed.
    virtual int countSigned() const = 0;

    /// Whether the engine's records agree with each other; each disagreement is logged. Looks at all subscriptions.
    virtual bool isValid() const = 0;

    /// The records for a log line.
    virtual QString toString() const = 0;
};
