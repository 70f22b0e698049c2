// Which subscribers a post reaches, and from when until when.

#include "BerBytes.h"
#include "CentralisedBiscottiBench.h"

TEST_F(CentralisedBiscottiTest, APostReachesEachSubscriberOnce)
{
    connect();
    RecordingSubscriber one("one");
    RecordingSubscriber other("other");
    RecordingSubscriber third("third");
    subscribe("a", one);
    subscribe("a.b", one);
    subscribe("a.b.c", other);
    subscribe("a.c", third);
    run(); // Heard from here on, before the server has agreed.
    QByteArray restricted;
    {
        BiscottiPost post;
        post.setTopics({BiscottiTopic("a.b")});
        post.setAudience(BiscottiTopicExpression("someone"));
        restricted = encoder.encodePost(CentralisedBiscottiMessageId("m"), post, BiscottiSignatureId());
    }
    QByteArray const withoutTopics =
        BerBytes::envelope(BerBytes::value(0xA4, BerBytes::value(0x80, "p") + BerBytes::value(0xA1, {})));
    receive(postBytes("a.b", "1") + restricted + withoutTopics + postBytes("a.x", "2") + postBytes("z", "3"));
    EXPECT_EQ(one.heard, (QStringList{"1", "2"}));
    EXPECT_EQ(other.heard, QStringList{"1"});
    EXPECT_EQ(third.heard, QStringList{});
    EXPECT_TRUE(capture.contains("Found 3 total matching subscriptions."));
    EXPECT_EQ(socket().bytesAvailable(), 0);
}

TEST_F(CentralisedBiscottiTest, AnUnsubscribedTopicIsHeardUntilTheServerAgrees)
{
    connect();
    RecordingSubscriber subscriber("s");
    QString const id = subscribe("a", subscriber);
    run();
    ack(sentOne().id);
    client->unsubscribe(BiscottiSubscriptionId(id));
    run();
    receive(postBytes("a", "1"));
    ack(sentOne().id);
    receive(postBytes("a", "2"));
    EXPECT_EQ(subscriber.heard, QStringList{"1"});
}

TEST_F(CentralisedBiscottiTest, ASubscriberThatUnsubscribesFromAllHearsNothingMore)
{
    connect();
    RecordingSubscriber subscriber("s");
    RecordingSubscriber successor("s");
    subscribe("a", subscriber);
    subscribe("b", subscriber);
    run();
    ack(sentOne().id);
    ack(sentOne().id);
    BiscottiPost post;
    post.setTopics({BiscottiTopic("a")});
    client->handlePost(CentralisedBiscottiMessageId("m"), post, BiscottiSignatureId(), true, {}); // Not yet handled.
    client->unsubscribeAll(BiscottiSubscriberId("s"));
    subscribe("a", successor);
    run();
    EXPECT_TRUE(subscriber.heard.isEmpty());
    EXPECT_TRUE(capture.contains("Can't notify subscriber s."));
    receive(postBytes("a", "2"));
    EXPECT_TRUE(subscriber.heard.isEmpty());
    EXPECT_EQ(successor.heard, QStringList{"2"});
    QStringList kinds;
    for (int i = 0; i < 3; ++i) {
        kinds.append(sentOne().text.section(' ', 0, 0));
        ack(server.messages.value(0).id);
    }
    EXPECT_EQ(kinds, (QStringList{"[UNSUB]", "[UNSUB]", "[SUB]"}));
    receive(postBytes("a", "3"));
    EXPECT_EQ(successor.heard, (QStringList{"2", "3"}));
}

TEST_F(CentralisedBiscottiTest, ASubscriberMayEndItselfWhileItIsCalled)
{
    connect();
    RecordingSubscriber subscriber("s");
    subscribe("a", subscriber);
    subscriber.onPost = [this] { client->unsubscribeAll(BiscottiSubscriberId("s")); };
    run();
    receive(postBytes("a", "1") + postBytes("a", "2"));
    EXPECT_EQ(subscriber.heard, QStringList{"1"});
}

TEST_F(CentralisedBiscottiTest, ASubscriberThatThrowsHarmsNobodyElse)
{
    connect();
    RecordingSubscriber bad("bad");
    RecordingSubscriber good("good");
    bad.onPost = [] { throw std::runtime_error("no such room"); };
    subscribe("a", bad);
    subscribe("a", good);
    run();
    receive(postBytes("a", "1") + postBytes("a", "2"));
    EXPECT_EQ(good.heard, (QStringList{"1", "2"}));
    EXPECT_EQ(capture.count("Subscriber bad failed to handle a post: no such room"), 2);
    client->unsubscribeAll(BiscottiSubscriberId("bad")); // Nothing to wait for.
}

TEST_F(CentralisedBiscottiTest, AServerThatSendsFasterThanWeHandleHasToWait)
{
    connect();
    RecordingSubscriber subscriber("s");
    subscribe("a", subscriber);
    run();
    qint64 unread = 0;
    subscriber.onPost = [&] { unread = std::max(unread, socket().bytesAvailable()); };
    QByteArray bytes;
    QStringList expected;
    for (int i = 0; i < 2500; ++i) {
        expected.append(QString::number(i));
        bytes += postBytes("a", QByteArray::number(i));
    }
    receive(bytes);
    EXPECT_EQ(subscriber.heard, expected);
    EXPECT_GT(unread, bytes.size() / 2);
}
