// Which subscriptions a post reaches: five of however many there are. "Match" shows whether the others cost anything,
// with the fewest as the baseline. In "Among...", the baseline asks each subscription in turn, as one would without
// an engine.

#include "BiscottiTopic.h"
#include "TrieBiscottiSubscriptionEngine.h"

#include <benchmark/benchmark.h>
#include <utility>
#include <vector>

namespace
{

constexpr int matching = 5;

/// The topic of a post, then those of the subscriptions, of which the first few match it.
std::vector<BiscottiTopic> topics(int subscriptions)
{
    std::vector<BiscottiTopic> topics;
    for (char const* text : {".chat.room.fr", ".", ".chat", ".chat.room", ".chat.room.fr", ".chat.room.fr.mods"})
        topics.emplace_back(QString::fromLatin1(text));
    for (int i = matching; i < subscriptions; ++i)
        topics.emplace_back(QString(".chat.room%1.%2").arg(i / 4).arg(i % 4));
    return topics;
}

BiscottiSubscriptionId idOf(size_t number)
{
    return BiscottiSubscriptionId(QString("0123456789abcdef-%1").arg(number));
}

void check(benchmark::State& state, QSet<BiscottiSubscriptionId> const& matches)
{
    if (matches.size() != matching)
        state.SkipWithError("a wrong number of matches");
}

void everySubscription(benchmark::State& state)
{
    std::vector<BiscottiTopic> const all = topics(static_cast<int>(state.range(0)));
    std::vector<std::pair<BiscottiSubscriptionId, BiscottiTopic>> subscriptions;
    for (size_t i = 1; i < all.size(); ++i)
        subscriptions.emplace_back(idOf(i), all[i]);
    for ([[maybe_unused]] auto const& iteration : state) {
        QSet<BiscottiSubscriptionId> matches;
        for (auto const& [id, topic] : subscriptions)
            if (topic.matches(all[0]))
                matches.insert(id);
        check(state, matches);
    }
    state.SetItemsProcessed(state.iterations());
}

void trie(benchmark::State& state)
{
    std::vector<BiscottiTopic> const all = topics(static_cast<int>(state.range(0)));
    TrieBiscottiSubscriptionEngine engine;
    for (size_t i = 1; i < all.size(); ++i) {
        BiscottiSubscription subscription;
        subscription.setSubscriptionId(idOf(i));
        subscription.setInterest(BiscottiTopicExpression(all[i]));
        engine.insert(subscription, BiscottiSignatureId());
    }
    BiscottiPost post;
    post.setTopic(all[0]);
    for ([[maybe_unused]] auto const& iteration : state)
        check(state, engine.findMatches(post));
    state.SetItemsProcessed(state.iterations());
}

BENCHMARK(trie)->Name("Match/Trie")->Arg(10)->Arg(1000)->Arg(100000);
BENCHMARK(everySubscription)->Name("Among10/EverySubscription")->Arg(10);
BENCHMARK(trie)->Name("Among10/Trie")->Arg(10);
BENCHMARK(everySubscription)->Name("Among1000/EverySubscription")->Arg(1000);
BENCHMARK(trie)->Name("Among1000/Trie")->Arg(1000);
BENCHMARK(everySubscription)->Name("Among100000/EverySubscription")->Arg(100000);
BENCHMARK(trie)->Name("Among100000/Trie")->Arg(100000);

} // namespace
