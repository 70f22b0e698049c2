#include "Biscotti.h"

#include <QDateTime>

#include <gtest/gtest.h>
#include <type_traits>

static_assert(!std::is_constructible_v<BiscottiPostId, BiscottiSubscriptionId>);

TEST(BiscottiMessage, SaysInTheLogWhatItHolds)
{
    BiscottiPost post;
    EXPECT_EQ(post.topic().toString(), "<NULL>");
    post.setPostId(BiscottiPostId("7"));
    post.setSenderId("ann");
    post.setSenderName("Ann");
    post.setSenderReplyTo("ann@example.org");
    post.setSendUtc(QDateTime({2010, 5, 1}, {12, 30}, Qt::UTC));
    QString const sender = "SenderId:=ann, SenderName:=Ann, SenderReplyTo:=ann@example.org, "
                           "SendUtc:=Sat May 1 12:30:00 2010 GMT";
    EXPECT_EQ(post.toString(), "[POST] PostId:=7, " + sender + ", Body:=<NULL>");
    post.setTopics({BiscottiTopic("a"), BiscottiTopic("b.c")});
    EXPECT_EQ(post.topic(), BiscottiTopic("a"));
    post.setAudience(BiscottiTopicExpression(QString("d")));
    post.setBody("caf\u00e9");
    EXPECT_EQ(post.toShortString(), "[POST] PostId:=7, Topics:=.a, .b.c, Audience:=.d, " + sender);
    EXPECT_EQ(post.toString(), post.toShortString() + ", Body:=" + QString::fromUtf8("caf\u00e9"));

    QString const nobody = "SenderId:=, SenderName:=, SenderReplyTo:=, SendUtc:=";
    BiscottiSubscription subscription;
    subscription.setSubscriptionId(BiscottiSubscriptionId("8"));
    subscription.setFact(BiscottiTopic("f"));
    EXPECT_EQ(subscription.toString(), "[SUB] SubscriptionId:=8, Fact:=.f, " + nobody);
    subscription.setInterest(BiscottiTopicExpression(QString("i")));
    EXPECT_EQ(subscription.toString(), "[SUB] SubscriptionId:=8, Interest:=.i, " + nobody);
    BiscottiUnsubscription unsubscription;
    unsubscription.setSubscriptionId(BiscottiSubscriptionId("8"));
    EXPECT_EQ(unsubscription.toString(), "[UNSUB] SubscriptionId:=8, " + nobody);
}
