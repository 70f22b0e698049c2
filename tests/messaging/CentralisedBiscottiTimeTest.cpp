// Time-outs and retries, with the clock moved by hand.

#include "CentralisedBiscottiBench.h"

#include <vector>

TEST_F(CentralisedBiscottiTest, AnUnreachableServerIsTriedAtOnceAndEvery29Seconds)
{
    run();
    for (int attempt = 0; attempt < 3; ++attempt) {
        ASSERT_EQ(socket().state(), QAbstractSocket::ConnectingState);
        EXPECT_EQ(socket().peerName(), "server");
        EXPECT_EQ(socket().peerPort(), 22473);
        socket().fail(QAbstractSocket::ConnectionRefusedError);
        advance(28999);
        EXPECT_EQ(socket().state(), QAbstractSocket::UnconnectedState);
        advance(1);
    }
    EXPECT_EQ(capture.count("Client socket raised error code 0."), 3);
    EXPECT_EQ(capture.count("Connecting to Biscotti server..."), 4);
    advance(29000);
    EXPECT_TRUE(capture.contains("Still negotiating connection to Biscotti server (state is 2)..."));
    connect();
}

TEST_F(CentralisedBiscottiTest, SendsAHeartbeatEvery29SecondsWhateverElseIsSent)
{
    connect();
    for (int i = 0; i < 3; ++i) {
        advance(28999);
        post("a", "x");
        run();
        ack(sentOne().id);
        EXPECT_TRUE(sent().isEmpty());
        advance(1);
        EXPECT_EQ(sentOne().text.first(11), "[HEARTBEAT]");
    }
    EXPECT_EQ(client->state(), Biscotti::Connected);
    socket().stall();
    advance(29000);
    EXPECT_TRUE(capture.contains("Heartbeat failed. Disconnecting."));
}

TEST_F(CentralisedBiscottiTest, AnAnswerIsWaitedForFor15Seconds)
{
    connect();
    advance(1000);
    QString const id = post("a", "x");
    run();
    QString const messageId = sentOne().id;
    advance(15000);
    post("a", "looks at the time again");
    run();
    EXPECT_EQ(client->state(), Biscotti::Connected);
    advance(1);
    post("a", "and again");
    run();
    EXPECT_EQ(client->state(), Biscotti::Disconnected);
    EXPECT_TRUE(capture.contains("Ack for " + messageId + " timed out after 15001ms; disconnecting."));
}

TEST_F(CentralisedBiscottiTest, ASilentServerIsLeftWhenTheDataWaitIsOver)
{
    struct Case {
        QByteArray notes;
        qint64 wait;
    };
    std::vector<Case> const cases{
        {"", 120000}, {"MDWMS=25000", 25000}, {"MDWMS=99999999999999999999", 120000}, {"MDWMS=0", 0}};
    for (Case const& c : cases) {
        SCOPED_TRACE(c.notes.toStdString());
        // No periodic pass and no heartbeat comes between the two looks.
        client.reset();
        createClient();
        connect(c.notes);
        advance(5);
        receive(encoder.encodeHeartbeat(CentralisedBiscottiMessageId("m"), CentralisedBiscottiHeartbeat(),
                                        BiscottiSignatureId()));
        advance(c.wait);
        RecordingSubscriber subscriber("s");
        QString const id = subscribe("a", subscriber);
        run();
        EXPECT_EQ(client->state(), Biscotti::Connected);
        sent();
        ack(server.messages.last().id);
        EXPECT_EQ(takeTold().last(), "subscribed " + id);
        advance(c.wait + 1);
        subscribe("b", subscriber);
        run();
        EXPECT_EQ(client->state(), Biscotti::Disconnected);
        EXPECT_TRUE(capture.contains(QString("Haven't heard from server for %1ms").arg(c.wait + 1)));
    }
    EXPECT_EQ(capture.count(" - Could not parse maximum data wait time. Using default."), 1);
}

TEST_F(CentralisedBiscottiTest, AServerThatNeverGreetsIsLeft)
{
    accept();
    receive("~@ 1.0");
    advance(129999);
    EXPECT_EQ(socket().state(), QAbstractSocket::ConnectedState);
    advance(1);
    EXPECT_EQ(socket().state(), QAbstractSocket::UnconnectedState);
    advance(29000);
    connect();
}

TEST_F(CentralisedBiscottiTest, AServerThatDoesNotReadIsLeftByForce)
{
    connect();
    post("a", "x");
    run();
    socket().stall();
    advance(28999);
    EXPECT_EQ(socket().state(), QAbstractSocket::ClosingState);
    advance(1);
    EXPECT_EQ(socket().state(), QAbstractSocket::UnconnectedState);
    EXPECT_EQ(client->state(), Biscotti::Disconnected);
}

TEST_F(CentralisedBiscottiTest, PostsOfTheLast45SecondsOutliveALinkAndOlderOnesAreDropped)
{
    int dropped = 0;
    for (auto const& [age, isSent] : std::vector<std::pair<qint64, bool>>{{1, true}, {45000, true}, {45001, false}}) {
        SCOPED_TRACE(age);
        client.reset();
        createClient();
        client->setHeartbeatMs(static_cast<int>(age)); // The second attempt is made when the post is so old.
        run();
        socket().fail(QAbstractSocket::ConnectionRefusedError);
        post("a", "x");
        advance(age);
        connect();
        EXPECT_EQ(sent().size(), isSent ? 1 : 0);
        dropped += isSent ? 0 : 1;
        EXPECT_EQ(capture.count("    Dropping post client,"), dropped);
        EXPECT_EQ(takeTold(), QStringList{"connected"}) << "it is dropped silently, but for the log";
    }
}

TEST_F(CentralisedBiscottiTest, AServerThatIsOutOfStepIsLeftAndTriedAgainAfterWaitsThatGrow)
{
    connect();
    qint64 wait = 0;
    for (int attempt = 0; attempt < 24; ++attempt) {
        receive("garbage");
        EXPECT_EQ(takeTold(), (QStringList{"connected", "lost"}));
        qint64 const lost = clock.msSinceEpoch();
        while (socket().state() != QAbstractSocket::ConnectingState && clock.msSinceEpoch() < lost + 31000)
            advance(50);
        EXPECT_GT(clock.msSinceEpoch() - lost, wait / 2) << attempt;
        wait = clock.msSinceEpoch() - lost;
        connect();
    }
    EXPECT_GT(wait, 15000);
    advance(10000);
    receive(postBytes("a", "whole") + "garbage");
    connect(); // At once after a link that lasted.
}

TEST_F(CentralisedBiscottiTest, AMessageThatSwallowsAllOthersIsNotWaitedForForEver)
{
    connect();
    receive(QByteArray::fromHex("A1830F0000800161"));
    for (int second = 0; second < 140 && client->state() == Biscotti::Connected; ++second) {
        receive(postBytes("a", "swallowed"));
        advance(1000);
    }
    EXPECT_EQ(takeTold(), (QStringList{"connected", "lost"}));
    connect();
    receive(postBytes("a", "whole"));
    EXPECT_EQ(capture.count("Handling post"), 1);
}
