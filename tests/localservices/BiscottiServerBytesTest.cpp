// What the server makes of the bytes of its clients: greetings, messages, and what is neither.

#include "BerBytes.h"
#include "BiscottiConnection.h"
#include "BiscottiServerFixture.h"

#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/socket.h>

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
        ASSERT_TRUE(processEventsUntil([&] { return good->heartbeats > i; })) << i;
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

TEST_F(BiscottiServerTest, SmallMessagesDoNotWait)
{
    auto const client = peer();
    ASSERT_TRUE(client->waitForGreeting());
    int checked = 0;
    for (int descriptor = 3; descriptor < 1024; ++descriptor) {
        sockaddr_in address{};
        socklen_t size = sizeof address;
        sockaddr_in remote{};
        socklen_t remoteSize = sizeof remote;
        if (::getsockname(descriptor, reinterpret_cast<sockaddr*>(&address), &size) != 0 ||
            address.sin_family != AF_INET || ntohs(address.sin_port) != server->port() ||
            ::getpeername(descriptor, reinterpret_cast<sockaddr*>(&remote), &remoteSize) != 0)
            continue;
        int noDelay = 0;
        socklen_t length = sizeof noDelay;
        ASSERT_EQ(::getsockopt(descriptor, IPPROTO_TCP, TCP_NODELAY, &noDelay, &length), 0);
        EXPECT_TRUE(noDelay);
        ++checked;
    }
    EXPECT_EQ(checked, 1);
}

TEST_F(BiscottiServerTest, HalfOpenLinksLeaveNothingBehind)
{
    for (int i = 0; i < 2000; ++i) {
        BiscottiPeer half(server->port(), "half", i % 2 == 0 ? "~@ 1.0 1" : "");
        ASSERT_TRUE(processEventsUntil([&] { return half.isConnected(); }));
        half.socket().abort();
    }
    ASSERT_TRUE(processEventsUntil([&] { return server->connectionCount() == 0; }));
    EXPECT_EQ(server->sessionCount(), 0);
}
