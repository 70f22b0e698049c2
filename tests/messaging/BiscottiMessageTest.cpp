#include "Biscotti.h"

#include <QDateTime>
#include <QHash>
#include <QMetaType>
#include <QTimeZone>

#include <gtest/gtest.h>
#include <type_traits>

namespace
{

template<typename Message>
Message message()
{
    Message message;
    message.setSenderId("ann");
    message.setSenderName("Ann");
    message.setSenderReplyTo("ann@example.org");
    message.setSendUtc(QDateTime({2010, 5, 1}, {12, 30}, Qt::UTC));
    return message;
}

QString const sender = "SenderId:=ann, SenderName:=Ann, SenderReplyTo:=ann@example.org, "
                       "SendUtc:=Sat May 1 12:30:00 2010 GMT";

static_assert(!std::is_convertible_v<BiscottiPostId, BiscottiSubscriptionId>);
static_assert(!std::is_constructible_v<BiscottiPostId, BiscottiSubscriptionId>);

} // namespace

TEST(BiscottiId, IsAKeyOfContainers)
{
    QHash<BiscottiPostId, int> hash;
    hash.insert(BiscottiPostId("a"), 1);
    hash.insert(BiscottiPostId("b"), 2);
    hash.insert(BiscottiPostId("a"), 3);
    EXPECT_EQ(hash.size(), 2);
    EXPECT_EQ(hash.value(BiscottiPostId("a")), 3);
    EXPECT_TRUE(BiscottiPostId("a") < BiscottiPostId("b"));
    EXPECT_TRUE(BiscottiPostId("").isNull());
    EXPECT_EQ(BiscottiPostId(""), BiscottiPostId());
}

TEST(BiscottiPost, AnswersTheFirstOfItsTopics)
{
    BiscottiPost post;
    EXPECT_TRUE(post.topic().isNull());
    EXPECT_EQ(post.topic().toString(), "<NULL>");
    post.setTopics({BiscottiTopic("a"), BiscottiTopic("b")});
    EXPECT_EQ(post.topic(), BiscottiTopic("a"));
    post.setTopic(BiscottiTopic("c"));
    EXPECT_EQ(post.topics(), QList{BiscottiTopic("c")});
}

TEST(BiscottiMessage, SaysInTheLogWhatItHolds)
{
    auto post = message<BiscottiPost>();
    post.setPostId(BiscottiPostId("7"));
    EXPECT_EQ(post.toString(), "[POST] PostId:=7, " + sender + ", Body:=<NULL>");
    post.setTopics({BiscottiTopic("a"), BiscottiTopic("b.c")});
    post.setAudience(BiscottiTopicExpression(QString("d")));
    post.setBody("caf\u00e9");
    EXPECT_EQ(post.toShortString(), "[POST] PostId:=7, Topics:=.a, .b.c, Audience:=.d, " + sender);
    EXPECT_EQ(post.toString(), post.toShortString() + ", Body:=" + QString::fromUtf8("caf\u00e9"));

    auto subscription = message<BiscottiSubscription>();
    subscription.setSubscriptionId(BiscottiSubscriptionId("8"));
    EXPECT_EQ(subscription.toString(), "[SUB] SubscriptionId:=8, " + sender);
    subscription.setFact(BiscottiTopic("f"));
    EXPECT_EQ(subscription.toString(), "[SUB] SubscriptionId:=8, Fact:=.f, " + sender);
    subscription.setInterest(BiscottiTopicExpression(QString("i")));
    EXPECT_EQ(subscription.toString(), "[SUB] SubscriptionId:=8, Interest:=.i, " + sender);

    BiscottiUnsubscription unsubscription;
    unsubscription.setSubscriptionId(BiscottiSubscriptionId("8"));
    BiscottiMessage const& base = unsubscription;
    EXPECT_EQ(base.toString(), "[UNSUB] SubscriptionId:=8, SenderId:=, SenderName:=, SenderReplyTo:=, SendUtc:=");
}

TEST(BiscottiMessage, TypesAreKnownByName)
{
    for (char const* name :
         {"BiscottiMessage", "BiscottiPost", "BiscottiSubscription", "BiscottiUnsubscription", "BiscottiPostId",
          "BiscottiSignatureId", "BiscottiSubscriberId", "BiscottiSubscriptionId", "BiscottiTopic",
          "BiscottiTopicExpression", "Biscotti::BiscottiState"})
        EXPECT_TRUE(QMetaType::fromName(name).isValid()) << name;
}
