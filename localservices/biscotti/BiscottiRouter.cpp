#include "BiscottiRouter.h"

#include <algorithm>

void BiscottiRouter::add(Client client, BiscottiSubscription const& subscription)
{
    Entry entry{subscription.fact(), subscription.hasFact()};
    if (!entry.isFact) {
        entry.topic = BiscottiTopic(subscription.interest().toString());
        _interests.insert(keyOf(entry.topic), {client, subscription.subscriptionId()});
    }
    _clients[client].insert(subscription.subscriptionId(), entry);
    ++_count;
}

void BiscottiRouter::remove(Client client, BiscottiSubscriptionId const& id)
{
    auto const subscriptions = _clients.find(client);
    if (subscriptions == _clients.end() || !subscriptions->contains(id))
        return;
    Entry const entry = subscriptions->take(id);
    if (!entry.isFact)
        _interests.remove(keyOf(entry.topic), {client, id});
    if (subscriptions->isEmpty())
        _clients.erase(subscriptions);
    --_count;
}

void BiscottiRouter::removeAll(Client client)
{
    QList<BiscottiSubscriptionId> const ids = _clients.value(client).keys();
    for (BiscottiSubscriptionId const& id : ids)
        remove(client, id);
}

bool BiscottiRouter::contains(Client client, BiscottiSubscriptionId const& id) const
{
    auto const subscriptions = _clients.find(client);
    return subscriptions != _clients.end() && subscriptions->contains(id);
}

QSet<BiscottiRouter::Client> BiscottiRouter::recipients(BiscottiPost const& post) const
{
    QSet<Client> clients;
    for (BiscottiTopic const& topic : post.topics()) {
        if (!topic.isNull())
            collect(topic, clients);
    }
    if (post.hasAudience())
        clients.removeIf([&](Client client) { return !isInAudience(client, post.audience()); });
    return clients;
}

void BiscottiRouter::collect(BiscottiTopic const& topic, QSet<Client>& clients) const
{
    auto const add = [&clients](QSet<Route> const& routes) {
        for (Route const& route : routes)
            clients.insert(route.client);
    };
    bool exact = false;
    MultiTrieNode<Route> const* node = _interests.find(keyOf(topic), &exact);
    if (exact) {
        add(node->values(true));
        node = node->parent();
    }
    for (; node; node = node->parent())
        add(node->values(false));
}

bool BiscottiRouter::isInAudience(Client client, BiscottiTopicExpression const& audience) const
{
    auto const subscriptions = _clients.find(client);
    return subscriptions != _clients.end() &&
           std::any_of(subscriptions->begin(), subscriptions->end(),
                       [&](Entry const& entry) { return entry.isFact && audience.matches(entry.topic); });
}
