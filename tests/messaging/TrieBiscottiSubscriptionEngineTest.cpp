#include "TrieBiscottiSubscriptionEngine.h"

#include "LogCapture.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <map>
#include <random>
#include <vector>

namespace
{

constexpr int longest = 65535;

BiscottiSubscription subscriptionTo(BiscottiTopic const& topic, QString const& id)
{
    BiscottiSubscription subscription;
    subscription.setSubscriptionId(BiscottiSubscriptionId(id));
    subscription.setInterest(BiscottiTopicExpression(topic));
    return subscription;
}

/// Files a subscription that has its topic as its id, too.
void insert(TrieBiscottiSubscriptionEngine& engine, QString const& topic)
{
    EXPECT_TRUE(engine.insert(subscriptionTo(BiscottiTopic(topic), topic), BiscottiSignatureId()));
}

void remove(TrieBiscottiSubscriptionEngine& engine, QString const& topic)
{
    engine.remove(BiscottiSubscriptionId(topic));
}

BiscottiPost postTo(BiscottiTopic const& topic)
{
    BiscottiPost post;
    post.setTopic(topic);
    return post;
}

QStringList matches(TrieBiscottiSubscriptionEngine const& engine, QString const& topic)
{
    QStringList ids;
    for (BiscottiSubscriptionId const& id : engine.findMatches(postTo(BiscottiTopic(topic))))
        ids.append(id.toString());
    ids.sort();
    return ids;
}

/// What the engine should answer, from a look at every subscription.
class Model
{
public:
    void insert(BiscottiSubscriptionId const& id, BiscottiTopic const& topic) { _topics.emplace_back(id, topic); }

    BiscottiSubscriptionId takeAny(size_t number)
    {
        std::swap(_topics.at(number % _topics.size()), _topics.back());
        BiscottiSubscriptionId const id = _topics.back().first;
        _topics.pop_back();
        return id;
    }

    QSet<BiscottiSubscriptionId> matches(BiscottiTopic const& topic) const
    {
        QSet<BiscottiSubscriptionId> ids;
        for (auto const& [id, subscribed] : _topics)
            if (subscribed.matches(topic))
                ids.insert(id);
        return ids;
    }

    size_t size() const { return _topics.size(); }

private:
    std::vector<std::pair<BiscottiSubscriptionId, BiscottiTopic>> _topics;
};

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

TEST(TrieBiscottiSubscriptionEngine, FindsSubscriptionsAboveAndBelowThePost)
{
    struct {
        QStringList subscribed;
        QString post;
        QStringList matches;
    } const cases[] = {
        {{".a", ".a.b", ".a.b.c", ".a.bc", ".b"}, ".a.b", {".a", ".a.b", ".a.b.c"}},
        {{".", ".a", ".b.c"}, ".", {".", ".a", ".b.c"}},
        {{".x"}, ".x.y", {".x"}},
        {{".x.y"}, ".x", {".x.y"}},
        {{"."}, ".z", {"."}},
        {{".", ".a.b"}, ".a.c.d", {"."}},
        {{".a"}, ".ab", {}},
        {{".ab"}, ".a", {}},
        {{".", ".a"}, "", {}},
        {{}, ".", {}},
    };
    for (auto const& [subscribed, post, expected] : cases) {
        TrieBiscottiSubscriptionEngine engine;
        for (QString const& topic : subscribed)
            insert(engine, topic);
        EXPECT_EQ(matches(engine, post), expected) << qPrintable(post);
    }
}

TEST(TrieBiscottiSubscriptionEngine, AnswersForTheFirstTopicOfAPostToEveryone)
{
    TrieBiscottiSubscriptionEngine engine;
    insert(engine, ".a");
    insert(engine, ".b");
    BiscottiPost post;
    EXPECT_TRUE(engine.findMatches(post).isEmpty());
    post.setTopics({BiscottiTopic("b"), BiscottiTopic("a")});
    EXPECT_EQ(engine.findMatches(post), QSet{BiscottiSubscriptionId(".b")});
    post.setAudience(BiscottiTopicExpression(BiscottiTopic("b")));
    EXPECT_TRUE(engine.findMatches(post).isEmpty());
}

TEST(TrieBiscottiSubscriptionEngine, ForgetsWhatIsRemoved)
{
    TrieBiscottiSubscriptionEngine engine;
    QString const empty = engine.toString();
    BiscottiSubscription const subscription = subscriptionTo(BiscottiTopic("a.b"), "1");
    BiscottiSubscriptionId const id = subscription.subscriptionId();
    engine.insert(subscription, BiscottiSignatureId("s"));
    insert(engine, ".a");
    EXPECT_EQ(engine.count(), 2);
    EXPECT_EQ(engine.countSigned(), 1);
    EXPECT_EQ(engine.signatureId(id), BiscottiSignatureId("s"));
    EXPECT_EQ(engine.subscription(id).interest().toString(), ".a.b");
    QListIterator<BiscottiSubscriptionId> iterator = engine.iterator();

    remove(engine, ".a");
    remove(engine, "unknown");
    EXPECT_EQ(matches(engine, ".a"), QStringList{"1"});
    engine.remove(id);
    EXPECT_FALSE(engine.contains(id));
    EXPECT_FALSE(engine.isSigned(id));
    EXPECT_TRUE(engine.signatureId(id).isNull());
    EXPECT_TRUE(engine.subscription(id).subscriptionId().isNull());
    EXPECT_TRUE(engine.isValid());
    EXPECT_EQ(engine.toString(), empty);
    EXPECT_TRUE(iterator.findNext(id)) << "The iterator is a snapshot.";
}

TEST(TrieBiscottiSubscriptionEngine, NoticesAnIdThatIsFiledTwice)
{
    LogCapture log;
    TrieBiscottiSubscriptionEngine engine;
    engine.insert(subscriptionTo(BiscottiTopic("a"), "1"), BiscottiSignatureId());
    engine.insert(subscriptionTo(BiscottiTopic("a"), "1"), BiscottiSignatureId());
    EXPECT_TRUE(engine.isValid());
    engine.insert(subscriptionTo(BiscottiTopic("b"), "1"), BiscottiSignatureId());
    EXPECT_FALSE(engine.isValid());
    EXPECT_TRUE(log.contains("Failed assertion: size of subscription index (2) is not equal to number of recorded "
                             "subscriptions (1)."));
}

TEST(TrieBiscottiSubscriptionEngine, ShowsItsTopicsAsATree)
{
    TrieBiscottiSubscriptionEngine engine;
    insert(engine, ".b");
    insert(engine, ".a.c");
    engine.insert(subscriptionTo(BiscottiTopic("b"), "1"), BiscottiSignatureId());
    EXPECT_EQ(engine.toString(), "\"\": \n"
                                 "  \"a\": \n"
                                 "    \"c\": .a.c\n"
                                 "  \"b\": .b, 1\n");
}

TEST(TrieBiscottiSubscriptionEngine, TakesTopicsOfAnyLengthAndDepth)
{
    TrieBiscottiSubscriptionEngine engine;
    QString const empty = engine.toString();
    QString const deep = QString(".a").repeated(longest / 2);
    QString const wide = '.' + QString(longest - 1, 'b');
    for (QString const& topic : {QString("."), deep, wide})
        insert(engine, topic);
    EXPECT_EQ(matches(engine, deep + ".b"), (QStringList{".", deep}));
    EXPECT_EQ(matches(engine, ".a.a"), (QStringList{".", deep}));
    EXPECT_EQ(matches(engine, wide + ".c"), (QStringList{".", wide}));
    EXPECT_EQ(matches(engine, QString(longest, '.')).size(), 3);
    EXPECT_LT(engine.toString().size(), 100 * longest);
    EXPECT_TRUE(engine.isValid());
    for (QString const& topic : {deep, QString("."), wide})
        remove(engine, topic);
    EXPECT_EQ(engine.toString(), empty);
    insert(engine, deep); // Which leaves a deep branch to the destructor.
}

TEST(TrieBiscottiSubscriptionEngine, AnswersAsALookAtEverySubscriptionDoes)
{
    std::mt19937 random(5);
    TrieBiscottiSubscriptionEngine engine;
    QString const empty = engine.toString();
    Model model;
    for (int i = 0; i < 100000; ++i) {
        // Waves, so that the engine is often empty and often holds dozens.
        auto const insertions = (i / 150) % 2 == 0 ? 5 : 1;
        auto const choice = random() % 10;
        if (choice < 4) {
            BiscottiTopic const topic = anyTopic(random);
            ASSERT_EQ(engine.findMatches(postTo(topic)), model.matches(topic)) << qPrintable(topic.toString());
        } else if (static_cast<int>(choice) < 4 + insertions) {
            BiscottiTopic const topic = anyTopic(random);
            BiscottiSubscriptionId const id(QString::number(i));
            bool const isSigned = random() % 2 == 0;
            engine.insert(subscriptionTo(topic, id.toString()), BiscottiSignatureId(isSigned ? "s" : ""));
            ASSERT_EQ(engine.isSigned(id), isSigned);
            model.insert(id, topic);
        } else if (model.size() > 0) {
            engine.remove(model.takeAny(random()));
        }
        ASSERT_EQ(engine.count(), static_cast<int>(model.size()));
        ASSERT_TRUE(i % 20 != 0 || engine.isValid()); // Sampled, since it looks at all subscriptions.
    }
    while (model.size() > 0)
        engine.remove(model.takeAny(0));
    EXPECT_TRUE(engine.isValid());
    EXPECT_EQ(engine.toString(), empty);
}
