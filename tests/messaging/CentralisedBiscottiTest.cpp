// What the client sends, in which order, and what it makes of the answers.

#include "BerBytes.h"
#include "CentralisedBiscottiBench.h"

TEST_F(CentralisedBiscottiTest, SendsOneOperationAtATimeAndTellsItsOutcome)
{
    RecordingSubscriber subscriber("s");
    QString const first = subscribe("a", subscriber);
    QString const second = subscribe("b", subscriber);
    QString const third = post("c", "hello");
    accept();
    EXPECT_TRUE(sent().isEmpty());
    EXPECT_EQ(client->state(), Biscotti::Disconnected);
    receive("~@ 1.0 1.0 \n");
    Message message = sentOne();
    EXPECT_TRUE(message.rawBytes.contains("client,s")) << "subscribers are unique among all clients";
    EXPECT_TRUE(message.text.contains("SubscriptionId:=" + first));
    run();
    EXPECT_TRUE(sent().isEmpty());
    ack(message.id);
    message = sentOne();
    EXPECT_TRUE(message.text.contains("SubscriptionId:=" + second));
    ack(message.id);
    message = sentOne();
    EXPECT_EQ(server.lastPost.body(), "hello");
    ack(message.id);
    EXPECT_EQ(takeTold(),
              (QStringList{"connected", "subscribed " + first, "subscribed " + second, "posted " + third}));
    client->unsubscribe(BiscottiSubscriptionId(first));
    run();
    message = sentOne();
    EXPECT_TRUE(message.text.startsWith("[UNSUB] SubscriptionId:=" + first));
    ack(message.id);
    EXPECT_EQ(takeTold(), QStringList{"unsubscribed " + first});
    EXPECT_EQ(engine.count(), 1);
    EXPECT_TRUE(sent().isEmpty());
}

TEST_F(CentralisedBiscottiTest, ARefusalIsToldWithItsCodeAndText)
{
    connect();
    takeTold();
    RecordingSubscriber subscriber("s");
    constexpr int code = 403;
    CentralisedBiscottiAck refusal;
    refusal.setAckCode(static_cast<CentralisedBiscottiAck::AckCode>(code));
    QString const reason = ": 403 " + refusal.ackDescription();
    QString const kept = subscribe("kept", subscriber);
    run();
    ack(sentOne().id);
    QString const subscription = subscribe("a", subscriber);
    run();
    ack(sentOne().id, code);
    EXPECT_FALSE(engine.contains(BiscottiSubscriptionId(subscription))) << "it would be replayed for ever";
    client->unsubscribe(BiscottiSubscriptionId(kept));
    run();
    ack(sentOne().id, code);
    EXPECT_TRUE(engine.contains(BiscottiSubscriptionId(kept)));
    QString const refused = post("a", "x");
    run();
    ack(sentOne().id, code);
    EXPECT_EQ(takeTold(), (QStringList{"subscribed " + kept, "errorSubscribing " + subscription + reason,
                                       "errorUnsubscribing " + kept + reason, "errorPosting " + refused + reason}));
    EXPECT_TRUE(sent().isEmpty()) << "nothing is tried again after a refusal";
    client->unsubscribe(BiscottiSubscriptionId("unknown"));
    run();
    EXPECT_EQ(takeTold(), QStringList{"errorUnsubscribing unknown: 404 Subscription not found."});
}

TEST_F(CentralisedBiscottiTest, AnswersToNothingAreIgnored)
{
    connect();
    ack("client,77");
    EXPECT_TRUE(capture.contains("    No current operation. Unexpected ack."));
    QString const first = post("a", "x");
    run();
    QString const id = sentOne().id;
    ack("client,77", 500);
    EXPECT_TRUE(capture.contains("    Ack was for message client,77, but current operation is message " + id));
    EXPECT_EQ(takeTold(), QStringList{"connected"});
    ack(id);
    ack(id);
    EXPECT_EQ(takeTold(), QStringList{"posted " + first});
}

TEST_F(CentralisedBiscottiTest, ANewLinkBeginsWithAllSubscriptionsThenThePostsInOrder)
{
    RecordingSubscriber one("one");
    RecordingSubscriber other("other");
    connect();
    QStringList subscriptions;
    for (int i = 0; i < 5; ++i)
        subscriptions.append(subscribe(QString("topic%1").arg(i), one));
    subscribe("gone", other);
    run();
    for (int i = 0; i < 6; ++i)
        ack(sentOne().id);
    QStringList const posts{post("p", "1"), post("p", "2")};
    run();
    QString const cutOff = sentOne().id;
    client->unsubscribe(BiscottiSubscriptionId(subscriptions[0])); // Not acknowledged: as if never said.
    client->unsubscribeAll(BiscottiSubscriberId("other"));         // Forgotten at once.
    subscriptions.append(subscribe("late", one));                  // Queued, and replayed like those before it.
    run();
    takeTold();
    loseLink();

    QStringList expected;
    for (auto ids = engine.iterator(); ids.hasNext();)
        expected.prepend("subscribed " + ids.next().toString());
    EXPECT_EQ(expected.size(), subscriptions.size());
    expected.prepend("connected");
    expected.prepend("lost");
    expected += {"posted " + posts[0], "posted " + posts[1]};
    waitForRetry();
    connect();
    QStringList ids;
    while (ids.size() < 8) {
        ids.append(sentOne().id);
        ack(ids.last());
    }
    EXPECT_TRUE(sent().isEmpty());
    EXPECT_EQ(takeTold(), expected);
    EXPECT_EQ(ids[6], cutOff) << "the server recognises the post that it may have";
    EXPECT_EQ(QSet<QString>(ids.begin(), ids.end()).size(), 8);
}

TEST_F(CentralisedBiscottiTest, AnAnswerThatCameWithTheEndOfTheLinkCounts)
{
    connect();
    RecordingSubscriber subscriber("s");
    subscribe("a", subscriber);
    run();
    ack(sentOne().id);
    QString const id = post("a", "x");
    run();
    socket().receive(ackBytes(sentOne().id) + postBytes("a", "last words"));
    socket().closeRemotely();
    run();
    EXPECT_EQ(takeTold().last(2), (QStringList{"posted " + id, "lost"}));
    EXPECT_EQ(subscriber.heard, QStringList{"last words"});
    waitForRetry();
    connect();
    ack(sentOne().id);
    EXPECT_TRUE(sent().isEmpty());
}

TEST_F(CentralisedBiscottiTest, WhatCannotBeWrittenIsToldAndTheLinkStays)
{
    RecordingSubscriber subscriber("s");
    BiscottiSubscription pointless;
    connect();
    takeTold();
    QByteArray const tooLarge(centralisedBiscottiMaximumMessageBytes, 'x');
    QStringList const refused{
        "errorPosting " + post("a", "x", "signature"),
        "errorPosting " + post("a", tooLarge),
        "errorSubscribing " + client->subscribe(&pointless, &subscriber, BiscottiSignatureId()).toString(),
    };
    QString const good = post("a", "good");
    run();
    ack(sentOne().id);
    QString const reason = ": 600 Could not encode message.";
    EXPECT_EQ(takeTold(),
              (QStringList{refused[0] + reason, refused[1] + reason, refused[2] + reason, "posted " + good}));
    EXPECT_EQ(engine.count(), 0);
}

TEST_F(CentralisedBiscottiTest, ThrowsAwayWhatIsNoGreetingAndTriesAgain)
{
    struct Case {
        QByteArray bytes;
        char const* line;
    };
    QByteArray const good = "~@ 1.0 1.0 ";
    QByteArray const longest = good + QByteArray(511 - good.size() - 1, 'n') + '\n';
    RecordingSubscriber subscriber("s");
    subscribe("a", subscriber);
    for (Case const& c :
         {Case{good + QByteArray(1 << 20, 'n') + '\n', "Could not read greeting from server."},
          Case{"HTTP/1.1 400 Bad Request\r\n", "Invalid greeting returned by Biscotti server."},
          Case{"~@ 1.0 2.7 \n", "Biscotti server (1.0 / 2.7) is incompatible with client (1.0 / 1.0)."}}) {
        SCOPED_TRACE(c.line);
        int const before = capture.count(c.line);
        accept();
        receive(c.bytes + good + '\n' + postBytes("a", "from the refused"));
        EXPECT_EQ(capture.count(c.line), before + 1);
        EXPECT_EQ(socket().state(), QAbstractSocket::UnconnectedState);
        EXPECT_TRUE(sent().isEmpty());
        waitForRetry();
    }
    EXPECT_TRUE(told.isEmpty());
    EXPECT_TRUE(subscriber.heard.isEmpty());
    accept();
    receive(longest.first(300));
    EXPECT_EQ(client->state(), Biscotti::Disconnected);
    receive(longest.sliced(300));
    EXPECT_EQ(client->state(), Biscotti::Connected);
    EXPECT_EQ(sent().size(), 1) << "whatever the refused links have done, one subscription is sent once";
}

TEST_F(CentralisedBiscottiTest, ADecodingErrorIsToldAndLeavesTheLinkToTheTimeOuts)
{
    connect();
    int errors = 0;
    QObject::connect(client.get(), &CentralisedBiscotti::errorDecoding, [&] { ++errors; });
    receive(BerBytes::timed(BerBytes::hex("800207DB 81010D 820101 830100 840100 850100 860100"))); // Month 13.
    EXPECT_EQ(errors, 1);
    EXPECT_TRUE(capture.contains("Error decoding message from server."));
    EXPECT_EQ(client->state(), Biscotti::Connected);
}

TEST_F(CentralisedBiscottiTest, TheEndSendsTheYoungPostsAndGivesTheSocketBack)
{
    connect();
    RecordingSubscriber subscriber("s");
    post("a", "in flight");
    post("a", "old");
    run();
    sent();
    advance(9000);
    subscribe("a", subscriber);
    post("a", "young");
    post("a", "signed", "signature");
    run();
    clock.advance(45000 - 9000); // Old enough to the millisecond.
    post("a", "last");           // No memo has run since.
    QPointer<FakeTcpSocket> const last = &socket();
    client.reset();
    ASSERT_TRUE(last);
    server.messages.clear();
    server.decoder.appendBytes(last->takeWritten());
    EXPECT_EQ(server.messages.size(), 2);
    EXPECT_EQ(server.lastPost.body(), "last");
    EXPECT_TRUE(sockets.sockets().isEmpty());
    EXPECT_TRUE(capture.contains("Not a post; ignoring."));
    EXPECT_EQ(capture.count("    Dropping post "), 1);
    EXPECT_EQ(engine.count(), 1) << "the engine is its owner's";
}

TEST_F(CentralisedBiscottiTest, ALinkThatCannotBeGreetedOnIsGivenUpForTheNext)
{
    run();
    socket().accept();
    socket().refuseWrites();
    run();
    EXPECT_TRUE(capture.contains("Greeting failed. Disconnecting."));
    EXPECT_EQ(socket().state(), QAbstractSocket::UnconnectedState);
    EXPECT_EQ(client->state(), Biscotti::Disconnected);
    waitForRetry();
    connect();
}
