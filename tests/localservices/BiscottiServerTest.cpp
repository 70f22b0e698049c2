// Whom posts reach, what is remembered of clients, and many of them at once.

#include "BiscottiConnection.h"
#include "BiscottiServerFixture.h"

#include <QTemporaryDir>

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

    // The old link is still open, as after a fault of the network. It goes, and its subscriptions with it.
    auto const client = peer();
    EXPECT_EQ(client->ask(client->subscription("3", "s", ".elsewhere")), 4091);
    EXPECT_TRUE(old->waitForEnd());
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
        session.rememberOther(CentralisedBiscottiMessageId(QString("you,%1").arg(i)));
    }
    auto const knows = [&](QString const& id) { return session.knows(CentralisedBiscottiMessageId(id)); };
    EXPECT_EQ(session.posts().size(), BiscottiLimits::postsRemembered);
    EXPECT_TRUE(knows("me,999") && knows("you,999"));
    EXPECT_FALSE(knows("me,0") || knows("you,0") || knows(",999") || knows("999"));

    BiscottiSessions sessions;
    auto const entered = sessions.enter("stays");
    for (int i = 0; i < BiscottiLimits::absentClients + 100; ++i)
        sessions.leave(sessions.enter(QString::number(i)), i);
    EXPECT_EQ(sessions.count(), BiscottiLimits::absentClients + 1);
    sessions.forgetOld(BiscottiLimits::msAbsent * 2);
    EXPECT_EQ(sessions.count(), 1);
    EXPECT_EQ(sessions.enter("stays"), entered);
}

TEST_F(BiscottiServerTest, PostsAreRememberedBeyondTheServersEnd)
{
    QTemporaryDir const directory;
    memory = directory.filePath("posts");
    start();
    for (char const* const id : {"1", "a %\n\xc3\xa9", "3"}) {
        auto const client = peer();
        ASSERT_EQ(client->ask(client->post(QString::fromUtf8(id), {".a"})), 200);
    }
    {
        QFile file(memory);
        ASSERT_TRUE(file.open(QIODevice::Append));
        file.write("no line\n\n17\n123456789012345678901 x\n1000000000000 peer%2Ccut");
    }
    start();
    auto const client = peer();
    EXPECT_EQ(client->ask(client->post("1", {".a"})), 4092);
    EXPECT_EQ(client->ask(client->post(QString::fromUtf8("a %\n\xc3\xa9"), {".a"})), 4092);
    EXPECT_EQ(client->ask(client->post("cut", {".a"})), 200);
    clock.advance(BiscottiLimits::msAbsent + 1);
    start();
    auto const later = peer();
    EXPECT_EQ(later->ask(later->post("1", {".a"})), 200);

    QString error;
    BiscottiServer other(clock, timers);
    EXPECT_FALSE(other.remember(directory.path(), error));
    EXPECT_FALSE(other.remember("/nowhere/posts", error));
    EXPECT_TRUE(error.contains("/nowhere/posts")) << qPrintable(error);
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
