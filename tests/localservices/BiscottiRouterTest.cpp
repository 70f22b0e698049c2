#include "BiscottiRouter.h"

#include <gtest/gtest.h>
#include <random>

TEST(BiscottiRouter, AgreesWithTheTopicsOfAllSubscriptions)
{
    struct Known {
        BiscottiRouter::Client client;
        BiscottiSubscription subscription;
    };
    std::mt19937 chance(7); // NOLINT: the same run each time
    auto const below = [&](int end) { return std::uniform_int_distribution<int>(0, end - 1)(chance); };
    auto const topic = [&] {
        QString text(".");
        for (int levels = below(5); levels > 0; --levels)
            text += QString(".%1").arg(below(3));
        return BiscottiTopic(text);
    };
    BiscottiRouter router;
    std::vector<Known> known;
    for (int i = 0; i < 5'000; ++i) {
        if (below(2) == 0 && known.size() < 200) {
            BiscottiSubscription subscription;
            subscription.setSubscriptionId(BiscottiSubscriptionId(QString::number(i)));
            if (below(4) == 0)
                subscription.setFact(topic());
            else
                subscription.setInterest(BiscottiTopicExpression(topic()));
            known.push_back({static_cast<BiscottiRouter::Client>(below(20)), subscription});
            router.add(known.back().client, subscription);
        } else if (!known.empty()) {
            size_t const place = static_cast<size_t>(below(static_cast<int>(known.size())));
            if (below(50) == 0) {
                BiscottiRouter::Client const client = known[place].client;
                router.removeAll(client);
                std::erase_if(known, [&](Known const& one) { return one.client == client; });
            } else {
                router.remove(known[place].client, known[place].subscription.subscriptionId());
                known.erase(known.begin() + static_cast<std::ptrdiff_t>(place));
            }
        }
        BiscottiPost post;
        post.setTopics({topic(), topic()});
        if (below(3) == 0)
            post.setAudience(BiscottiTopicExpression(topic()));
        QSet<BiscottiRouter::Client> interested, audience;
        for (Known const& one : known) {
            for (BiscottiTopic const& about : post.topics()) {
                if (one.subscription.hasInterest() && one.subscription.interest().matches(about))
                    interested.insert(one.client);
            }
            if (one.subscription.hasFact() && post.audience().matches(one.subscription.fact()))
                audience.insert(one.client);
        }
        ASSERT_EQ(router.recipients(post), post.hasAudience() ? interested & audience : interested) << i;
        ASSERT_EQ(router.count(), static_cast<qsizetype>(known.size()));
    }
    for (Known const& one : known)
        router.remove(one.client, one.subscription.subscriptionId());
    EXPECT_EQ(router.count(), 0);
}
