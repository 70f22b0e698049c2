#include "TrieBiscottiSubscriptionEngine.h"

#include <gtest/gtest.h>
#include <map>
#include <random>

namespace
{

BiscottiSubscription subscriptionTo(BiscottiTopic const& topic, QString const& id)
{
    BiscottiSubscription subscription;
    subscription.setSubscriptionId(BiscottiSubscriptionId(id));
    subscription.setInterest(BiscottiTopicExpression(topic));
    return subscription;
}

BiscottiPost postTo(BiscottiTopic const& topic)
{
    BiscottiPost post;
    post.setTopic(topic);
    return post;
}

/// A topic that shares levels with many others; sometimes the root.
BiscottiTopic anyTopic(std::mt19937& random)
{
    static QStringList const levels{"a", "ab", "b", "-", "chat"};
    BiscottiTopic topic = BiscottiTopic::Root();
    for (auto depth = random() % 6; depth > 0; --depth)
        topic = topic.append(levels.at(static_cast<int>(random() % 5)));
    return topic;
}

} // namespace

TEST(TrieBiscottiSubscriptionEngine, AnswersForTheFirstTopicOfAPostToEveryone)
{
    TrieBiscottiSubscriptionEngine engine;
    for (char const* const topic : {".a", ".b"})
        EXPECT_TRUE(engine.insert(subscriptionTo(BiscottiTopic(QString(topic)), topic), BiscottiSignatureId()));
    EXPECT_EQ(engine.subscription(BiscottiSubscriptionId(".a")).interest().toString(), ".a");
    BiscottiPost post;
    EXPECT_TRUE(engine.findMatches(post).isEmpty());
    post.setTopics({BiscottiTopic("b"), BiscottiTopic("a")});
    EXPECT_EQ(engine.findMatches(post), QSet{BiscottiSubscriptionId(".b")});
    post.setAudience(BiscottiTopicExpression(BiscottiTopic("b")));
    EXPECT_TRUE(engine.findMatches(post).isEmpty());
}

TEST(TrieBiscottiSubscriptionEngine, AnswersAsALookAtEverySubscriptionDoes)
{
    std::mt19937 random(5);
    TrieBiscottiSubscriptionEngine engine;
    std::map<BiscottiSubscriptionId, BiscottiTopic> model;
    for (int i = 0; i < 1000; ++i) {
        BiscottiTopic const topic = anyTopic(random);
        if (random() % 2 == 0) {
            BiscottiSubscriptionId const id(QString::number(i));
            engine.insert(subscriptionTo(topic, id.toString()), BiscottiSignatureId());
            model[id] = topic;
        }
        if (model.size() > random() % 100) {
            engine.remove(model.begin()->first);
            model.erase(model.begin());
        }
        QSet<BiscottiSubscriptionId> expected;
        for (auto const& [id, subscribed] : model)
            if (subscribed.matches(topic))
                expected.insert(id);
        ASSERT_EQ(engine.findMatches(postTo(topic)), expected) << qPrintable(topic.toString());
        ASSERT_EQ(engine.count(), static_cast<int>(model.size()));
    }
    EXPECT_TRUE(engine.isValid());
}
