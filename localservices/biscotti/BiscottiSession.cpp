#include "BiscottiSession.h"

#include <algorithm>

QString BiscottiSession::identityOf(CentralisedBiscottiMessageId const& id)
{
    QString const text = id.toString();
    return text.left(std::max<qsizetype>(0, text.lastIndexOf(u',')));
}

bool BiscottiSession::isTaken(BiscottiSubscription const& subscription) const
{
    auto const known = _subscriptions.find(subscription.subscriptionId());
    return known != _subscriptions.end() && *known != describe(subscription);
}

void BiscottiSession::rememberSubscription(BiscottiSubscription const& subscription)
{
    // Those that are no longer used are in the way of nobody, but must not fill the memory.
    if (_subscriptions.size() >= 2 * BiscottiLimits::subscriptionsOfClient)
        _subscriptions.clear();
    _subscriptions.insert(subscription.subscriptionId(), describe(subscription));
}

void BiscottiSession::remember(CentralisedBiscottiMessageId const& id, QList<QString>& ids, qsizetype limit)
{
    QString text = shortened(id);
    text.squeeze();
    if (_known.contains(text))
        return;
    if (ids.size() >= limit)
        _known.remove(ids.takeFirst());
    _known.insert(text);
    ids.append(text);
}

QString BiscottiSession::describe(BiscottiSubscription const& subscription)
{
    return subscription.hasFact() ? u'=' + subscription.fact().toString() : subscription.interest().toString();
}
