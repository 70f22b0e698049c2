#include "BiscottiServer.h"

#include "BerBytes.h"
#include "BiscottiCommands.h"
#include "BiscottiConnection.h"
#include "BiscottiLimits.h"
#include "BiscottiPeer.h"
#include "FakeTickCounter.h"
#include "FakeTimerFactory.h"
#include "LogCapture.h"

#include <QTemporaryDir>

#include <gmock/gmock.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/socket.h>

using testing::ElementsAre;

class BiscottiServerTest : public testing::Test
{
protected:
    BiscottiServerTest() { start(); }

    void start()
    {
        server = std::make_unique<BiscottiServer>(clock, timers);
        QString error;
        if (!memory.isEmpty()) {
            EXPECT_TRUE(server->remember(memory, error)) << qPrintable(error);
        }
        EXPECT_TRUE(server->listen(QHostAddress::LocalHost, 0));
    }

    std::unique_ptr<BiscottiPeer> peer(QString const& identity = "peer")
    {
        return std::make_unique<BiscottiPeer>(server->port(), identity);
    }

    QString command(QString const& line, QStringList* lines = nullptr)
    {
        QStringList answer;
        QString const error = BiscottiCommands(*server).run(line.split(' '), answer);
        if (lines)
            *lines = answer;
        return error;
    }

    FakeTickCounter clock;
    FakeTimerFactory timers{clock};
    LogCapture log;
    QString memory;
    std::unique_ptr<BiscottiServer> server;
};

TEST_F(BiscottiServerTest, GreetingsAreAnsweredOrTheirSendersDropped)
{
    struct Case {
        QByteArray greeting;
        char const* log; ///< Null when it is good.
    };
    QByteArray const longest = "~@ 1.0 1.0 " + QByteArray(511 - 12, 'n') + '\n';
    std::vector<Case> const cases = {
        {"~@ 1.0 1.0 \n", nullptr},
        {"~@ 1.7 1.9 \r\n", nullptr},
        {"~@\t1.0  1.0 MDWMS=x garbage \x80\xff\n", nullptr},
        {longest, nullptr},
        {longest.chopped(1) + "n\n", "more than 511 bytes"},
        {QByteArray(512, '~'), "more than 511 bytes"},
        {QByteArray(1 << 20, 'x'), "more than 511 bytes"},
        {"~@ 2.0 1.0 \n", "speaks version 2.0 / 1.0"},
        {"~@ 1.0 2.3 \n", "speaks version 1.0 / 2.3"},
        {"@~ 1.0 1.0 \n", "no greeting"},
        {"GET / HTTP/1.1\r\n\r\n", "no greeting"},
        {"\n", "no greeting"},
        {"~@ 99999999999.0 1.0 \n", "no greeting"},
        {QByteArray(100, '\0') + '\n', "no greeting"},
    };
    int messages = 0;
    for (Case const& one : cases) {
        BiscottiPeer peer(server->port(), "peer", one.greeting);
        if (one.log) {
            EXPECT_TRUE(peer.waitForEnd()) << one.greeting.left(40).constData();
            EXPECT_TRUE(log.contains(one.log)) << one.log;
        } else {
            ASSERT_TRUE(peer.waitForGreeting()) << one.greeting.left(40).constData();
            EXPECT_EQ(peer.serverGreeting, "~@ 1.0 1.0 MDWMS=120000\n");
            EXPECT_EQ(peer.ask(peer.post(QString::number(++messages), {"a"})), 200);
        }
        EXPECT_EQ(peer.serverGreeting.isEmpty(), one.log && !QByteArray(one.log).contains("version"));
    }
}

TEST_F(BiscottiServerTest, WhoDoesNotGreetInTimeIsDroppedAndWhoIsSilentToo)
{
    BiscottiPeer mute(server->port(), "mute", {});
    BiscottiPeer slow(server->port(), "slow", "~@ 1.0");
    auto const good = peer("good");
    ASSERT_TRUE(good->waitForGreeting());
    ASSERT_TRUE(processEventsUntil([&] { return server->connectionCount() == 3; }));
    timers.advance(BiscottiConnection::msForGreeting + 2000);
    EXPECT_TRUE(mute.waitForEnd());
    EXPECT_TRUE(slow.waitForEnd());
    EXPECT_FALSE(good->isClosed());

    // A client that sends heartbeats stays, and hears those of the server; half a message keeps nobody.
    auto const half = peer("half");
    half->say(half->post("1", {"a"}).chopped(1));
    ASSERT_TRUE(half->waitForGreeting());
    for (int i = 0; i < 10; ++i) {
        good->say(good->heartbeat());
        processPendingEvents();
        timers.advance(BiscottiConnection::msBetweenHeartbeats);
        EXPECT_TRUE(processEventsUntil([&] { return good->heartbeats > i; })) << i;
    }
    EXPECT_TRUE(half->waitForEnd());
    timers.advance(BiscottiConnection::msOfSilence + 2000);
    EXPECT_TRUE(good->waitForEnd());
    EXPECT_TRUE(log.contains("it does not greet"));
    EXPECT_TRUE(log.contains("it has been silent"));
    EXPECT_TRUE(log.contains("its message does not come to an end"));
}

TEST_F(BiscottiServerTest, EachMessageIsAcknowledgedByItsRule)
{
    auto const client = peer();
    using namespace BerBytes;
    QByteArray const emptyTopic = value(
        0xA1, value(0x80, "peer,e") +
                  value(0xA5, value(0xA2, value(0x80, "e") + value(0x81, "s") + value(0xA2, value(0x81, "!!")))));
    QByteArray const operators = value(
        0xA1, value(0x80, "peer,o") +
                  value(0xA5, value(0xA2, value(0x80, "o") + value(0x81, "s") + value(0xA2, value(0x81, ".a&.b")))));
    QByteArray const month13 =
        value(0xA1, value(0x80, "peer,t") + value(0xA4, hex("8001018101 0D820101830100840100850100860100")) +
                        value(0xA5, value(0xA0, {})));
    QByteArray const longPostId =
        value(0xA1, value(0x80, "peer,l") +
                        value(0xA5, value(0xA4, value(0x80, QByteArray(300, 'p')) + value(0xA1, value(0x0C, "a")))));
    QByteArray const unknownKind = value(0xA1, value(0x80, "peer,k") + value(0xA5, value(0xA9, {})));
    QByteArray const isSigned =
        value(0xA0, hex("810100") + value(0x82, value(0x30, value(0x80, "peer,s") + value(0xA5, value(0xA0, {})))) +
                        value(0x83, "signature"));
    ASSERT_EQ(command("refuse .closed"), QString());
    ASSERT_EQ(command("seal .sealed.room"), QString());
    QString const deep = QString("x.").repeated(BiscottiLimits::topicLevels + 1);
    struct Case {
        char const* name;
        QByteArray bytes;
        int code;
    };
    std::vector<Case> const cases = {
        {"subscription", client->subscription("1", "s1", ".a"), 200},
        {"its id again", client->subscription("2", "s1", ".a"), 4091},
        {"the message again", client->subscription("1", "s2", ".b"), 4092},
        {"unknown subscription", client->unsubscription("3", "s9"), 404},
        {"unsubscription", client->unsubscription("4", "s1"), 200},
        {"a second time", client->unsubscription("5", "s1"), 404},
        {"its id once more", client->subscription("6", "s1", ".c"), 200},
        {"post", client->post("7", {".a"}), 200},
        {"post again", client->post("7", {".a"}), 4092},
        {"post on nothing", client->post("8", {}), 400},
        {"post on a null topic", client->post("9", {"!"}), 400},
        {"post on a null topic and another", client->post("10", {"!", "a"}), 200},
        {"largest body", client->post("11", {".a"}, QByteArray(BiscottiLimits::body, 'b')), 200},
        {"body too large", client->post("12", {".a"}, QByteArray(BiscottiLimits::body + 1, 'b')), 413},
        {"body much too large", client->post("13", {".a"}, QByteArray(1'000'000, 'b')), 413},
        {"refused topic", client->post("14", {".a", ".closed.room"}), 403},
        {"subscribe to refused", client->subscription("15", "s15", ".closed"), 403},
        {"beside refused", client->subscription("16", "s16", ".closedroom"), 200},
        {"unsigned on sealed", client->post("17", {".sealed.room"}), 4011},
        {"above sealed", client->post("18", {".sealed"}), 200},
        {"too deep", client->subscription("19", "s19", deep), 403},
        {"long topic", client->post("20", {QString(2000, 'x')}), 403},
        {"many topics", client->post("21", QString("a ").repeated(101).split(' ', Qt::SkipEmptyParts)), 403},
        {"long post id", longPostId, 400},
        {"interest of nothing", emptyTopic, 400},
        {"reserved characters", operators, 400},
        {"month 13", month13, 400},
        {"unknown kind", unknownKind, 400},
        {"signed", isSigned, 4012},
        {"indefinite length",
         indefinite(0xA1, value(0x80, "peer,i") + indefinite(0xA5, value(0xA3, value(0x80, "s1")))), 200},
    };
    for (Case const& one : cases) {
        EXPECT_EQ(client->ask(one.bytes), one.code) << one.name;
        EXPECT_NE(client->acks.last().ackDescription(), "<UNKNOWN>");
    }
    EXPECT_EQ(client->acks.first().ackMsgId().toString(), "peer,1");
    EXPECT_FALSE(client->isClosed());
    EXPECT_EQ(client->errors, 0);
}

TEST_F(BiscottiServerTest, WhatCannotBeReadEndsTheConnection)
{
    using namespace BerBytes;
    std::vector<QByteArray> const cases = {
        QByteArray(768 << 10, '\0'),
        QByteArray(4096, '\xff'),
        "GET / HTTP/1.1\r\n\r\n",
        hex("A184FFFFFFFF"),
        hex("A18400200000"),
        QByteArray("\xA1\x80").repeated(1000),
        value(0xA1, value(0xA5, value(0xA0, {}))),
        value(0x30, "nothing of ours"),
        value(0xA1, value(0x80, QByteArray(300, 'i')) + value(0xA5, value(0xA4, value(0x80, "p") + value(0xA1, {})))),
        value(0xA1, value(0x80, "m,1") + value(0xA5, value(0xA9, {}))).repeated(BiscottiLimits::malformedMessages),
    };
    for (QByteArray const& bytes : cases) {
        auto const client = peer();
        client->say(bytes);
        EXPECT_TRUE(client->waitForEnd()) << bytes.left(20).toHex().constData();
    }
    EXPECT_EQ(log.count("The connection is closed"), static_cast<int>(cases.size()));
    EXPECT_TRUE(processEventsUntil([&] { return server->connectionCount() == 0; }));
}

TEST_F(BiscottiServerTest, MessagesThatDoNotEndFillNoMemory)
{
    auto const good = peer("good");
    QByteArray const half = good->post("1", {"a"}, QByteArray(1'000'000, 'b')).chopped(1);
    qsizetype const enough = BiscottiLimits::bytesHeld / half.size();
    std::vector<std::unique_ptr<BiscottiPeer>> peers;
    for (int i = 0; i < enough + 10; ++i) {
        peers.push_back(peer(QString::number(i)));
        peers.back()->say(half);
        ASSERT_TRUE(processEventsUntil(
            [&] { return peers.back()->socket().bytesToWrite() == 0 || peers.back()->isClosed(); }));
    }
    ASSERT_TRUE(processEventsUntil([&] { return server->connectionCount() == enough + 1; }));
    EXPECT_EQ(log.count("that does not come to an end"), 10);
    EXPECT_EQ(good->ask(good->post("2", {"a"})), 200);
    peers.clear();
    ASSERT_TRUE(processEventsUntil([&] { return server->connectionCount() == 1; }));
    EXPECT_EQ(good->ask(half + 'b'), 413);
}

TEST_F(BiscottiServerTest, AMessageInPiecesIsOneMessage)
{
    auto const client = peer();
    ASSERT_EQ(client->ask(client->subscription("0", "s", ".")), 200);
    QByteArray const bytes = client->post("1", {".a"}) + client->unsubscription("2", "s");
    BiscottiRequestReader reader;
    for (qsizetype cut = 0; cut <= bytes.size(); ++cut) {
        int messages = 0;
        for (QByteArray const& piece : {bytes.first(cut), bytes.sliced(cut)}) {
            reader.add(piece);
            while (auto const request = reader.next()) {
                EXPECT_EQ(request->id.toString(), messages == 0 ? "peer,1" : "peer,2");
                ++messages;
            }
        }
        EXPECT_EQ(messages, 2) << cut;
        EXPECT_EQ(reader.bytesHeld(), 0);
    }
    for (char const byte : bytes) {
        client->say(QByteArray(1, byte));
        client->socket().flush();
    }
    EXPECT_TRUE(processEventsUntil([&] { return client->acks.size() == 3; }));
    EXPECT_EQ(client->bodies(), QByteArrayList{"body"});
}

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

TEST_F(BiscottiServerTest, SmallMessagesDoNotWait)
{
    auto const client = peer();
    ASSERT_TRUE(client->waitForGreeting());
    int found = 0;
    server->forEachConnection([&](ServiceConnection&) { ++found; });
    EXPECT_EQ(found, 1);
    for (int descriptor = 3; descriptor < 64; ++descriptor) {
        sockaddr_in address{};
        socklen_t size = sizeof address;
        if (::getsockname(descriptor, reinterpret_cast<sockaddr*>(&address), &size) != 0 ||
            address.sin_family != AF_INET || ntohs(address.sin_port) != server->port())
            continue;
        int listens = 0;
        socklen_t length = sizeof listens;
        ::getsockopt(descriptor, SOL_SOCKET, SO_ACCEPTCONN, &listens, &length);
        int noDelay = 0;
        ::getsockopt(descriptor, IPPROTO_TCP, TCP_NODELAY, &noDelay, &length);
        EXPECT_TRUE(listens || noDelay);
    }
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
