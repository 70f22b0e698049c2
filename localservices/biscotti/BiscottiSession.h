#pragma once

#include "BiscottiLimits.h"
#include "BiscottiSubscription.h"
#include "CentralisedBiscottiMessageId.h"

#include <QHash>
#include <QList>
#include <QSet>

/// What the server knows of a client beyond its link: the messages it has taken from it and the subscriptions that it
/// has had. A client is known by its identity, which its message ids begin with: "IDENTITY,NUMBER". Both are bounded
/// by BiscottiLimits; the oldest go.
class BiscottiSession
{
public:
    /// An empty identity makes a session that no other link comes back to.
    explicit BiscottiSession(QString identity = {}) : _identity(std::move(identity)) {}

    /// The identity in a message id; empty if there is none.
    static QString identityOf(CentralisedBiscottiMessageId const& id);

    QString const& identity() const { return _identity; }

    // The messages are those of this identity.

    /// Whether a message of this id has been taken.
    bool knows(CentralisedBiscottiMessageId const& id) const { return _known.contains(shortened(id)); }
    void rememberPost(CentralisedBiscottiMessageId const& id)
    {
        remember(id, _posts, BiscottiLimits::postsRemembered);
    }
    void rememberOther(CentralisedBiscottiMessageId const& id)
    {
        remember(id, _others, BiscottiLimits::othersRemembered);
    }

    /// Whether the id was used for another topic on a link before, and not given back.
    bool isTaken(BiscottiSubscription const& subscription) const;
    void rememberSubscription(BiscottiSubscription const& subscription);
    void forgetSubscription(BiscottiSubscriptionId const& id) { _subscriptions.remove(id); }

    qint64 msLeft = 0; ///< When its link ended.

private:
    QString shortened(CentralisedBiscottiMessageId const& id) const { return id.toString().mid(_identity.size()); }
    void remember(CentralisedBiscottiMessageId const& id, QList<QString>& ids, qsizetype limit);
    static QString describe(BiscottiSubscription const& subscription);

    QString const _identity;
    QSet<QString> _known;  ///< Message ids without the identity, as below.
    QList<QString> _posts; ///< In the order of coming, as the others.
    QList<QString> _others;
    QHash<BiscottiSubscriptionId, QString> _subscriptions; ///< What each was for.
};
