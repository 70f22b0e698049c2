#pragma once

#include "BiscottiPost.h"
#include "BiscottiSubscription.h"
#include "MultiTrie.h"

#include <QHash>
#include <QSet>

/// The subscriptions of all clients, and which clients a post reaches: those with an interest that matches one of its
/// topics (see BiscottiTopic::matches). If the post has an audience, only those of them with a fact that the audience
/// matches. A fact tells what a client is, and asks for no posts.
///
/// Clients are numbers here. The cost of a post follows the depth of its topics and what it reaches.
class BiscottiRouter
{
public:
    using Client = quint64;

    BiscottiRouter() : _interests(BiscottiTopic::Delimiter(), true) {}

    /// The client must not have a subscription of this id.
    void add(Client client, BiscottiSubscription const& subscription);
    void remove(Client client, BiscottiSubscriptionId const& id);
    void removeAll(Client client);

    bool contains(Client client, BiscottiSubscriptionId const& id) const;
    qsizetype count(Client client) const { return _clients.value(client).size(); }
    qsizetype count() const { return _count; }

    QSet<Client> recipients(BiscottiPost const& post) const;

private:
    struct Route {
        Client client;
        BiscottiSubscriptionId id;

        QString toString() const { return QString::number(client) + u'/' + id.toString(); }
        bool operator==(Route const& other) const { return client == other.client && id == other.id; }
        friend size_t qHash(Route const& route, size_t seed = 0)
        {
            return qHashMulti(seed, route.client, route.id.toString());
        }
    };

    struct Entry {
        BiscottiTopic topic;
        bool isFact = false;
    };

    static QString keyOf(BiscottiTopic const& topic) { return topic.toString().mid(1); }
    void collect(BiscottiTopic const& topic, QSet<Client>& clients) const;
    bool isInAudience(Client client, BiscottiTopicExpression const& audience) const;

    QHash<Client, QHash<BiscottiSubscriptionId, Entry>> _clients;
    MultiTrie<Route> _interests;
    qsizetype _count = 0;
};
