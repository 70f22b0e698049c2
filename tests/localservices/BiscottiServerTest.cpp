// Whom posts reach, what is remembered of clients, and many of them at once.

#include "BiscottiConnection.h"
#include "BiscottiServerFixture.h"

#include <algorithm>
#include <gmock/gmock.h>
#include <sys/resource.h>

using testing::ElementsAre;

TEST_F(BiscottiServerTest, PostsReachWhomTheirTopicsMatchOnceEach)
{
    auto const above = peer("above");
    auto const below = peer("below");
    auto const root = peer("root");
    auto const other = peer("other");
    ASSERT_EQ(above->ask(above->subscription("1", "s", ".a.b")), 200);
    ASSERT_EQ(above->ask(above->subscription("2", "t", ".a.b.x")), 200);
    ASSERT_EQ(below->ask(below->subscription("1", "s", ".a.b.c.d")), 200);
    ASSERT_EQ(root->ask(root->subscription("1", "s", ".")), 200);
    ASSERT_EQ(other->ask(other->subscription("1", "s", ".a.bc")), 200);
    auto const sender = peer("sender");
    struct Case {
        QStringList topics;
        bool above, below, other;
    };
    std::vector<Case> const cases = {
        {{".a.b"}, true, true, false},     {{".a.b.c"}, true, true, false},
        {{"a"}, true, true, true},         {{".a.b.c.e"}, true, false, false},
        {{".a.bc.d"}, false, false, true}, {{"."}, true, true, true},
        {{".z"}, false, false, false},     {{".z", ".a.bc", ".a.b"}, true, true, true},
    };
    QByteArrayList toAbove, toBelow, toOther, toRoot;
    for (Case const& one : cases) {
        QByteArray const body = QByteArray::number(toRoot.size());
        ASSERT_EQ(sender->ask(sender->post(body, one.topics, body)), 200);
        toRoot.append(body);
        if (one.above)
            toAbove.append(body);
        if (one.below)
            toBelow.append(body);
        if (one.other)
            toOther.append(body);
    }
    // What comes behind the posts tells that no more of them come.
    for (BiscottiPeer* const client : {above.get(), below.get(), root.get(), other.get()})
        ASSERT_EQ(client->ask(client->subscription("last", "last", ".nowhere")), 200);
    EXPECT_EQ(above->bodies(), toAbove);
    EXPECT_EQ(below->bodies(), toBelow);
    EXPECT_EQ(root->bodies(), toRoot);
    EXPECT_EQ(other->bodies(), toOther);
    EXPECT_TRUE(sender->posts.isEmpty());
    EXPECT_EQ(root->posts.last().topics().size(), 3);
    EXPECT_EQ(root->posts.last().postId().toString(), "post7");
}

TEST_F(BiscottiServerTest, AnAudienceIsHeldAgainstFacts)
{
    auto const ann = peer("ann");
    auto const bob = peer("bob");
    auto const all = peer("all");
    ASSERT_EQ(ann->ask(ann->subscription("1", "f", ".user.ann", true)), 200);
    ASSERT_EQ(ann->ask(ann->subscription("2", "s", ".chat")), 200);
    ASSERT_EQ(bob->ask(bob->subscription("1", "f", ".user.bob", true)), 200);
    ASSERT_EQ(bob->ask(bob->subscription("2", "s", ".chat")), 200);
    ASSERT_EQ(all->ask(all->subscription("1", "s", ".")), 200);
    ASSERT_EQ(all->ask(all->post("2", {".chat"}, "ann's", ".user.ann")), 200);
    ASSERT_EQ(all->ask(all->post("3", {".chat"}, "users'", ".user")), 200);
    ASSERT_EQ(all->ask(all->post("4", {".vote"}, "nobody's", ".user.ann")), 200);
    ASSERT_EQ(all->ask(all->post("5", {".user.ann"}, "a fact is no interest")), 200);
    for (BiscottiPeer* const client : {ann.get(), bob.get(), all.get()})
        ASSERT_EQ(client->ask(client->subscription("last", "last", ".nowhere")), 200);
    EXPECT_THAT(ann->bodies(), ElementsAre("ann's", "users'"));
    EXPECT_EQ(ann->posts.first().audience().toString(), ".user.ann");
    EXPECT_THAT(bob->bodies(), ElementsAre("users'"));
    EXPECT_THAT(all->bodies(), ElementsAre("a fact is no interest"));
}

TEST_F(BiscottiServerTest, AClientThatComesBackIsRecognised)
{
    auto old = peer();
    ASSERT_EQ(old->ask(old->subscription("1", "s", ".a")), 200);
    ASSERT_EQ(old->ask(old->post("2", {".a"}, "first")), 200);

    // The old link is still open, as after a fault of the network, but nobody takes what is sent to it. It goes, and
    // its subscriptions with it.
    stall(*old, *peer("other"), ".a");
    auto const client = peer();
    client->say(client->subscription("3", "s", ".elsewhere"));
    EXPECT_TRUE(client->waitForGreeting());
    timers.advance(2 * BiscottiConnection::msForAnswer);
    ASSERT_TRUE(processEventsUntil([&] { return !client->acks.isEmpty(); }));
    EXPECT_EQ(client->acks.first().ackCode(), 4091);
    EXPECT_EQ(server->connectionCount(), 1);
    EXPECT_EQ(client->ask(client->subscription("4", "s", ".a")), 200);
    // The post is sent again behind any number of subscriptions.
    for (int i = 10; i < 10 + 2 * BiscottiLimits::othersRemembered; ++i)
        ASSERT_EQ(client->ask(client->subscription(QString::number(i), QString::number(i), ".b")), 200);
    EXPECT_EQ(client->ask(client->post("2", {".a"}, "first")), 4092);
    EXPECT_EQ(client->ask(client->post("5", {".a"}, "second")), 200);
    EXPECT_THAT(client->bodies(), ElementsAre("second"));

    // Others have ids of their own; without an identity they are strangers each time.
    auto const other = peer("other");
    EXPECT_EQ(other->ask(other->subscription("1", "s", ".elsewhere")), 200);
    for (int i = 0; i < 2; ++i) {
        auto const stranger = peer({});
        EXPECT_EQ(stranger->ask(stranger->post("1", {".a"})), 200);
    }
}

TEST_F(BiscottiServerTest, WhatIsRememberedOfClientsIsBounded)
{
    BiscottiSession session("me");
    for (int i = 0; i < 1000; ++i) {
        session.rememberPost(CentralisedBiscottiMessageId(QString("me,%1").arg(i)));
        session.rememberOther(CentralisedBiscottiMessageId(QString("me,other%1").arg(i)));
    }
    auto const knows = [&](QString const& id) { return session.knows(CentralisedBiscottiMessageId(id)); };
    EXPECT_TRUE(knows("me,999") && knows("me,936") && knows("me,other999"));
    EXPECT_FALSE(knows("me,935") || knows("me,other0"));

    BiscottiSessions sessions;
    auto const entered = sessions.enter("stays");
    for (int i = 0; i < BiscottiLimits::absentClients + 100; ++i)
        sessions.leave(sessions.enter(QString::number(i)), i);
    EXPECT_EQ(sessions.count(), BiscottiLimits::absentClients + 1);
    sessions.forgetOld(BiscottiLimits::msAbsent * 2);
    EXPECT_EQ(sessions.count(), 1);
    EXPECT_EQ(sessions.enter("stays"), entered);
}

/// Does not read any more, and has more waiting than its system takes.
void BiscottiServerTest::stall(BiscottiPeer& slow, BiscottiPeer& sender, QString const& topic)
{
    slow.socket().disconnect();
    slow.socket().setReadBufferSize(1);
    qint64 queued = 0;
    for (int i = 0; i < 1000 && queued == 0; ++i) {
        ASSERT_EQ(sender.ask(sender.post(topic + QString::number(i), {topic}, QByteArray(60'000, 'b'))), 200);
        server->forEachConnection([&](ServiceConnection const& one) { queued += one.bytesQueued(); });
    }
    ASSERT_GT(queued, 0);
}

TEST_F(BiscottiServerTest, AnIdentityStaysWithTheLinkThatIsThere)
{
    auto const ann = peer("ann");
    ASSERT_EQ(ann->ask(ann->post("1", {".a"})), 200);
    auto const thief = peer("ann");
    thief->say(thief->post("2", {".a"}) + thief->post("3", {".a"}));
    ASSERT_TRUE(processEventsUntil([&] { return ann->heartbeats == 1; })) << "it is asked";
    EXPECT_TRUE(thief->acks.isEmpty());
    timers.advance(2 * BiscottiConnection::msForAnswer);
    EXPECT_TRUE(thief->waitForEnd());
    EXPECT_TRUE(thief->acks.isEmpty());

    auto const other = peer("other");
    ASSERT_EQ(other->ask(other->post("1", {".a"})), 200);
    EXPECT_EQ(other->ask(ann->post("2", {".a"})), 403) << "an id of somebody else";
    EXPECT_EQ(ann->ask(ann->post("2", {".a"})), 200);
    EXPECT_EQ(ann->ask(ann->post("3", {".a"})), 200);
}

TEST_F(BiscottiServerTest, ALinkThatEndsLeavesNoBytesBehind)
{
    auto const slow = peer("slow");
    ASSERT_EQ(slow->ask(slow->subscription("0", "s", ".a")), 200);
    slow->socket().disconnect();
    slow->socket().setReadBufferSize(1);
    for (int i = 1; i < 400; ++i)
        slow->say(slow->post(QString::number(i), {".a"}, QByteArray(60'000, 'b')));
    ASSERT_TRUE(processEventsUntil([&] { return server->connectionCount() == 0; }));
    EXPECT_TRUE(log.contains("reads too slowly"));
    EXPECT_EQ(server->bytesHeld(), 0);
}

TEST_F(BiscottiServerTest, WhenTooMuchWaitsForAllTheSlowestGo)
{
    auto const good = peer("good");
    ASSERT_EQ(good->ask(good->subscription("0", "s", ".a")), 200);
    std::vector<std::unique_ptr<BiscottiPeer>> slow;
    for (int i = 0; i < 4; ++i) {
        slow.push_back(peer(QString("slow%1").arg(i)));
        ASSERT_EQ(slow[i]->ask(slow[i]->subscription("0", "s", QString(".a.%1").arg(i))), 200);
        stall(*slow[i], *good, QString(".a.%1").arg(i));
    }
    server->setMaximumQueued(1 << 20);
    for (int i = 0; server->connectionCount() > 3 && i < 100; ++i)
        ASSERT_EQ(good->ask(good->post(QString("all%1").arg(i), {".a"}, QByteArray(60'000, 'b'))), 200);
    EXPECT_EQ(server->connectionCount(), 3) << "as many as it takes";
    EXPECT_FALSE(good->isClosed());
}

TEST_F(BiscottiServerTest, AReaderThatDoesNotReadIsDroppedAndTheOthersAreServed)
{
    auto const slow = peer("slow");
    auto const good = peer("good");
    ASSERT_EQ(slow->ask(slow->subscription("1", "s", ".a")), 200);
    ASSERT_EQ(good->ask(good->subscription("1", "s", ".a")), 200);
    slow->socket().disconnect();
    slow->socket().setReadBufferSize(1);
    QByteArray const body(60'000, 'b');
    int posted = 0;
    while (server->connectionCount() == 2 && posted < 1000) {
        ++posted;
        ASSERT_EQ(good->ask(good->post(QString::number(posted + 1), {".a"}, body)), 200);
    }
    EXPECT_EQ(server->connectionCount(), 1);
    EXPECT_TRUE(log.contains("reads too slowly"));
    EXPECT_TRUE(good->waitForPosts(posted));
}

TEST_F(BiscottiServerTest, TwoThousandClientsAreServedAndLeftInPeace)
{
    constexpr int count = 2000;
    rlimit limit{};
    ASSERT_EQ(getrlimit(RLIMIT_NOFILE, &limit), 0);
    limit.rlim_cur = limit.rlim_max;
    setrlimit(RLIMIT_NOFILE, &limit);
    if (limit.rlim_max < 2 * count + 100)
        GTEST_SKIP() << "the system allows " << limit.rlim_max << " files, which is too few";
    std::vector<std::unique_ptr<BiscottiPeer>> peers;
    for (int i = 0; i < count; ++i) {
        peers.push_back(peer(QString("peer%1").arg(i)));
        peers.back()->say(peers.back()->subscription("1", "s", QString(".room.%1").arg(i % 10)));
        if (i % 100 == 99) {
            ASSERT_TRUE(processEventsUntil([&] { return !peers.back()->acks.isEmpty(); }));
        }
    }
    ASSERT_TRUE(processEventsUntil([&] {
        return std::all_of(peers.begin(), peers.end(), [](auto const& one) { return !one->acks.isEmpty(); });
    }));
    EXPECT_EQ(server->connectionCount(), count);
    ASSERT_EQ(peers[0]->ask(peers[0]->post("2", {".room"}, "all")), 200);
    ASSERT_EQ(peers[0]->ask(peers[0]->post("3", {".room.7"}, "some")), 200);
    ASSERT_TRUE(processEventsUntil([&] {
        return std::all_of(peers.begin(), peers.end(), [](auto const& one) { return !one->posts.isEmpty(); });
    }));
    ASSERT_TRUE(peers[7]->waitForPosts(2));
    EXPECT_EQ(std::count_if(peers.begin(), peers.end(), [](auto const& one) { return one->posts.size() > 1; }), 200);

    server.reset();
    for (auto const& one : peers)
        EXPECT_TRUE(one->waitForEnd());
}

TEST_F(BiscottiServerTest, CommandsMakeThingsGoWrong)
{
    for (QString const& line : QStringList{"", "jump", "ack", "ack 200", "ack 999", "ack 500 times 0",
                                           "ack 500 twice 2", "mdwms", "mdwms -1", "silence", "refuse !", "seal"})
        EXPECT_TRUE(command(line).contains("\"")) << qPrintable(line) << qPrintable(command(line));

    auto const client = peer();
    ASSERT_EQ(client->ask(client->subscription("0", "s", ".a")), 200);
    ASSERT_EQ(command("ack 503 times 2"), QString());
    ASSERT_EQ(command("mdwms 250"), QString());
    QStringList lines;
    ASSERT_EQ(command("list", &lines), QString());
    EXPECT_THAT(lines,
                ElementsAre("1 clients, 1 remembered, 1 subscriptions, 0 posts", "mdwms 250", "ack 503 times 2"));
    EXPECT_EQ(client->ask(client->post("1", {".a"}, "failed")), 503);
    client->say(client->heartbeat());
    EXPECT_EQ(client->ask(client->post("2", {".a"}, "failed")), 503);
    EXPECT_EQ(client->ask(client->post("1", {".a"}, "good")), 200);
    ASSERT_EQ(command("ack 500"), QString());
    EXPECT_EQ(client->ask(client->unsubscription("3", "s")), 500);
    EXPECT_THAT(client->bodies(), ElementsAre("good"));

    auto const next = peer("next");
    ASSERT_TRUE(next->waitForGreeting());
    EXPECT_EQ(next->serverGreeting, "~@ 1.0 1.0 MDWMS=250\n");
    ASSERT_EQ(command("silence on"), QString());
    client->say(client->post("4", {".a"}, "unheard"));
    auto const unheard = peer("unheard");
    ASSERT_TRUE(processEventsUntil([&] { return server->connectionCount() == 3; }));
    timers.advance(BiscottiConnection::msForGreeting + BiscottiConnection::msBetweenHeartbeats);
    ASSERT_EQ(command("silence off"), QString());
    EXPECT_EQ(client->ask(client->post("5", {".a"}, "heard")), 200);
    EXPECT_EQ(client->bodies().last(), "heard");
    EXPECT_TRUE(unheard->serverGreeting.isEmpty());
    EXPECT_EQ(client->heartbeats, 0);

    ASSERT_EQ(command("drop", &lines), QString());
    EXPECT_THAT(lines, ElementsAre("3 dropped"));
    EXPECT_TRUE(client->waitForEnd() && next->waitForEnd());
}
