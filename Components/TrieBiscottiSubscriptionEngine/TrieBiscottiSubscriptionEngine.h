#pragma once

#include "BiscottiSubscriptionEngine.h"
#include "MultiTrie.h"

#include <QHash>

class Logger;

/// The subscription engine over a trie of topics: a match costs what the topic is deep and the subscriptions that it
/// finds, whatever others there are.
class TrieBiscottiSubscriptionEngine : public BiscottiSubscriptionEngine
{
    Q_OBJECT

public:
    explicit TrieBiscottiSubscriptionEngine(QObject* parent = nullptr);

    bool insert(BiscottiSubscription const& subscription, BiscottiSignatureId const& signatureId) override;
    void remove(BiscottiSubscriptionId const& id) override;
    bool contains(BiscottiSubscriptionId const& id) const override;
    bool isSigned(BiscottiSubscriptionId const& id) const override;
    BiscottiSubscription subscription(BiscottiSubscriptionId const& id) const override;
    BiscottiSignatureId signatureId(BiscottiSubscriptionId const& id) const override;
    QListIterator<BiscottiSubscriptionId> iterator() const override;
    QSet<BiscottiSubscriptionId> findMatches(BiscottiPost const& post) const override;
    int count() const override;
    int countSigned() const override;
    bool isValid() const override;
    QString toString() const override;

private:
    static Logger* log;

    QHash<BiscottiSubscriptionId, BiscottiSubscription> _subscriptions;
    QHash<BiscottiSubscriptionId, QString> _topics; ///< The keys that the subscriptions are filed under.
    QHash<BiscottiSubscriptionId, BiscottiSignatureId> _signatures; ///< Of the signed ones only.
    MultiTrie<BiscottiSubscriptionId> _trie;
};
