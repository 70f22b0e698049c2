#include "BiscottiSession.h"

#include <utility>

QString BiscottiSession::identityOf(CentralisedBiscottiMessageId const& id)
{
    QString const text = id.toString();
    return text.left(std::max<qsizetype>(0, text.lastIndexOf(u',')));
}

QList<CentralisedBiscottiMessageId> BiscottiSession::posts() const
{
    QList<CentralisedBiscottiMessageId> ids;
    for (QString const& post : _posts)
        ids.append(CentralisedBiscottiMessageId(post.startsWith(u',') ? _identity + post : post.mid(1)));
    return ids;
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

/// An id of this identity begins with a comma, any other with a blank.
QString BiscottiSession::shortened(CentralisedBiscottiMessageId const& id) const
{
    QString const text = id.toString();
    bool const isOwn = !_identity.isEmpty() && identityOf(id) == _identity;
    return isOwn ? text.mid(_identity.size()) : u' ' + text;
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
