#include "TrieBiscottiSubscriptionEngine.h"

#include "BiscottiTopic.h"
#include "Logger.h"
#include "LoggerManager.h"

Logger* TrieBiscottiSubscriptionEngine::log = LoggerManager::logger();

namespace
{

/// Topics are filed without their first delimiter, which makes the root the empty key.
QString keyOf(BiscottiTopic const& topic)
{
    return topic.toString().mid(1);
}

} // namespace

TrieBiscottiSubscriptionEngine::TrieBiscottiSubscriptionEngine(QObject* parent)
    : BiscottiSubscriptionEngine(parent), _trie(BiscottiTopic::Delimiter(), true)
{
}

bool TrieBiscottiSubscriptionEngine::insert(BiscottiSubscription const& subscription,
                                            BiscottiSignatureId const& signatureId)
{
    BiscottiTopic const topic(subscription.interest().toString());
    if (topic.isNull())
        return false;
    BiscottiSubscriptionId const id = subscription.subscriptionId();
    QString const key = keyOf(topic);
    _subscriptions.insert(id, subscription);
    _topics.insert(id, key);
    _trie.insert(key, id);
    if (!signatureId.isNull())
        _signatures.insert(id, signatureId);
    return true;
}

void TrieBiscottiSubscriptionEngine::remove(BiscottiSubscriptionId const& id)
{
    _signatures.remove(id);
    _trie.remove(_topics.value(id), id);
    _topics.remove(id);
    _subscriptions.remove(id);
}

bool TrieBiscottiSubscriptionEngine::contains(BiscottiSubscriptionId const& id) const
{
    return _subscriptions.contains(id);
}

bool TrieBiscottiSubscriptionEngine::isSigned(BiscottiSubscriptionId const& id) const
{
    return _signatures.contains(id);
}

BiscottiSubscription TrieBiscottiSubscriptionEngine::subscription(BiscottiSubscriptionId const& id) const
{
    return _subscriptions.value(id);
}

BiscottiSignatureId TrieBiscottiSubscriptionEngine::signatureId(BiscottiSubscriptionId const& id) const
{
    return _signatures.value(id);
}

QListIterator<BiscottiSubscriptionId> TrieBiscottiSubscriptionEngine::iterator() const
{
    return QListIterator<BiscottiSubscriptionId>(_subscriptions.keys());
}

QSet<BiscottiSubscriptionId> TrieBiscottiSubscriptionEngine::findMatches(BiscottiPost const& post) const
{
    BiscottiTopic const topic = post.topic();
    if (post.hasAudience() || topic.isNull())
        return {};
    bool exact = false;
    MultiTrieNode<BiscottiSubscriptionId> const* node = _trie.find(keyOf(topic), &exact);
    QSet<BiscottiSubscriptionId> matches;
    if (exact) {
        matches = node->values(true);
        node = node->parent();
    }
    for (; node; node = node->parent())
        matches.unite(node->values(false));
    return matches;
}

int TrieBiscottiSubscriptionEngine::count() const
{
    return static_cast<int>(_subscriptions.size());
}

int TrieBiscottiSubscriptionEngine::countSigned() const
{
    return static_cast<int>(_signatures.size());
}

bool TrieBiscottiSubscriptionEngine::isValid() const
{
    LOG_DEBUG("%s", qPrintable(toString()));
    bool valid = true;
    int const filed = static_cast<int>(_trie.find(QString(), nullptr)->count(true));
    if (filed != count()) {
        LOG_ERROR("Failed assertion: size of subscription index (%d) is not equal to number of recorded "
                  "subscriptions (%d).",
                  filed, count());
        valid = false;
    }
    int const topics = static_cast<int>(_topics.size());
    if (topics != count()) {
        LOG_ERROR("Failed assertion: number of topics recorded for subscriptions (%d) is not equal to number of "
                  "recorded subscriptions (%d).",
                  topics, count());
        valid = false;
    }
    if (countSigned() > count()) {
        LOG_ERROR("Failed assertion: more signed subscriptions (%d) than total subscriptions (%d).", countSigned(),
                  count());
        valid = false;
    }
    return valid;
}

QString TrieBiscottiSubscriptionEngine::toString() const
{
    return _trie.toString();
}
