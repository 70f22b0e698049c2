#include "BiscottiServer.h"

#include "BerBytes.h"
#include "BiscottiCommands.h"
#include "BiscottiConnection.h"
#include "BiscottiPeer.h"
#include "FakeTimerFactory.h"
#include "LogCapture.h"

#include <gmock/gmock.h>

using testing::ElementsAre;

namespace
{
/// A server whose clock goes by hand, and its log.
class BiscottiServerTest : public testing::Test
{
protected:
    BiscottiServerTest() { EXPECT_TRUE(server.listen(QHostAddress::LocalHost, 0)); }

    std::unique_ptr<BiscottiPeer> peer(QString const& identity = "peer")
    {
        return std::make_unique<BiscottiPeer>(server.port(), identity);
    }

    /// Does not read any more, and has more waiting than its system takes.
    void stall(BiscottiPeer& slow, BiscottiPeer& sender, QString const& topic)
    {
        slow.socket().disconnect();
        slow.socket().setReadBufferSize(1);
        qint64 queued = 0;
        for (int i = 0; i < 1000 && queued == 0; ++i) {
            ASSERT_EQ(sender.ask(sender.post(QString("fill%1").arg(++posts), topic, QByteArray(60'000, 'b'))), 200);
            server.forEachConnection([&](ServiceConnection const& one) { queued += one.bytesQueued(); });
        }
        ASSERT_GT(queued, 0);
    }

    QString command(QString const& line, QStringList* lines = nullptr)
    {
        QStringList answer;
        return BiscottiCommands(server).run(line.split(' '), lines ? *lines : answer);
    }

    int posts = 0;
    FakeTickCounter clock;
    FakeTimerFactory timers{clock};
    LogCapture log;
    BiscottiServer server{clock, timers};
};
} // namespace

TEST_F(BiscottiServerTest, GreetingsAreAnsweredOrTheirSendersDropped)
{
    std::pair<QByteArray, char const*> const cases[] = {
        {"~@ 1.7 1.9 \r\n", nullptr},
        {"~@\t1.0  1.0 MDWMS=x garbage \x80\xff\n", nullptr},
        {QByteArray(512, '~'), "more than 511 bytes"},
        {"~@ 2.0 1.0 \n", "speaks version 2.0 / 1.0"},
        {"GET / HTTP/1.1\r\n\r\n", "no greeting"},
    };
    for (auto const& [greeting, complaint] : cases) {
        BiscottiPeer peer(server.port(), "peer", greeting);
        if (complaint) {
            EXPECT_TRUE(peer.waitForEnd()) << complaint;
            EXPECT_TRUE(log.contains(complaint)) << complaint;
            continue;
        }
        EXPECT_EQ(peer.ask(peer.heartbeat() + peer.post(greeting.toHex(), "a")), 200);
        EXPECT_EQ(peer.serverGreeting, "~@ 1.0 1.0 MDWMS=120000\n");
    }
}

TEST_F(BiscottiServerTest, WhoIsSilentOrDoesNotEndIsDropped)
{
    BiscottiPeer slow(server.port(), "slow", "~@ 1.0");
    auto const good = peer("good");
    auto const half = peer("half");
    half->say(half->post("1", "a").chopped(1));
    ASSERT_EQ(good->ask(good->post("1", "a")), 200);
    ASSERT_TRUE(processEventsUntil([&] { return !half->serverGreeting.isEmpty(); }));
    for (int i = 0; i < 10; ++i) {
        good->say(good->heartbeat());
        processPendingEvents();
        timers.advance(BiscottiConnection::msBetweenHeartbeats);
        ASSERT_TRUE(processEventsUntil([&] { return good->heartbeats > i; })) << i;
    }
    EXPECT_TRUE(slow.waitForEnd() && half->waitForEnd());
    timers.advance(BiscottiConnection::msOfSilence + 2000);
    EXPECT_TRUE(good->waitForEnd());
    for (char const* const why : {"it does not greet", "it has been silent", "its message does not come to an end"})
        EXPECT_TRUE(log.contains(why)) << why;
}

TEST_F(BiscottiServerTest, EachMessageIsAcknowledgedByItsRule)
{
    using namespace BerBytes;
    auto const client = peer();
    QByteArray const unknownKind = value(0xA1, value(0x80, "peer,k") + value(0xA5, value(0xA9, {})));
    QByteArray const isSigned =
        value(0xA0, hex("810100") + value(0x82, value(0x30, value(0x80, "peer,s") + value(0xA5, value(0xA0, {})))) +
                        value(0x83, "signature"));
    ASSERT_EQ(command("refuse .closed"), QString());
    ASSERT_EQ(command("seal .sealed.room"), QString());
    struct Case {
        char const* name;
        QByteArray bytes;
        int code;
    };
    for (Case const& one : {
             Case{"subscription", client->subscription("1", "s1", ".a"), 200},
             Case{"its id again", client->subscription("2", "s1", ".a"), 4091},
             Case{"the message again", client->subscription("1", "s2", ".b"), 4092},
             Case{"unsubscription", client->unsubscription("4", "s1"), 200},
             Case{"post", client->post("7", ".a"), 200},
             Case{"post again", client->post("7", ".a"), 4092},
             Case{"body too large", client->post("12", ".a", QByteArray(BiscottiLimits::body + 1, 'b')), 413},
             Case{"body much too large", client->post("13", ".a", QByteArray(1'000'000, 'b')), 413},
             Case{"refused", client->post("14", ".closed.room"), 403},
             Case{"unsigned on sealed", client->post("17", ".sealed.room"), 4011},
             Case{"unknown kind", unknownKind, 400},
             Case{"signed", isSigned, 4012},
             Case{"an id of somebody else", peer("other")->post("1", ".a"), 403},
         })
        EXPECT_EQ(client->ask(one.bytes), one.code) << one.name;
    EXPECT_EQ(client->acks.first().ackMsgId().toString(), "peer,1");
}

TEST_F(BiscottiServerTest, WhatCannotBeReadEndsTheConnectionAndFillsNoMemory)
{
    QByteArray const half = peer()->post("1", "a", QByteArray(1'000'000, 'b')).chopped(1);
    qsizetype const enough = BiscottiLimits::bytesHeld / half.size();
    std::vector<std::unique_ptr<BiscottiPeer>> peers;
    for (int i = 0; i < enough + 3; ++i) {
        peers.push_back(peer(QString::number(i)));
        peers.back()->say(half);
        ASSERT_TRUE(processEventsUntil(
            [&] { return peers.back()->socket().bytesToWrite() == 0 || peers.back()->isClosed(); }));
    }
    ASSERT_TRUE(processEventsUntil([&] { return server.connectionCount() == enough; }));
    EXPECT_EQ(log.count("that does not come to an end"), 3);
    peers.resize(1);
    peers[0]->say("b" + QByteArray(4096, '\xff'));
    EXPECT_TRUE(peers[0]->waitForEnd());
    EXPECT_EQ(peers[0]->acks.size(), 1);
    ASSERT_TRUE(processEventsUntil([&] { return server.connectionCount() == 0; }));
    EXPECT_EQ(server.bytesHeld(), 0);
}

TEST_F(BiscottiServerTest, AnIdentityStaysWithTheLinkThatAnswers)
{
    auto const ann = peer("ann");
    ASSERT_EQ(ann->ask(ann->post("1", ".a")), 200);
    auto const thief = peer("ann");
    thief->say(thief->post("2", ".a"));
    ASSERT_TRUE(processEventsUntil([&] { return ann->heartbeats == 1; })) << "it is asked";
    timers.advance(2 * BiscottiConnection::msForAnswer);
    EXPECT_TRUE(thief->waitForEnd() && thief->acks.isEmpty());

    // A link that stays open, as after a fault of the network, but nobody takes what is sent to it, goes, and its
    // subscriptions with it. The post is sent again behind any number of subscriptions.
    auto const bob = peer("bob");
    ASSERT_EQ(bob->ask(bob->subscription("1", "s", ".a")), 200);
    ASSERT_EQ(bob->ask(bob->post("2", ".a", "first")), 200);
    stall(*bob, *ann, ".a");
    auto const back = peer("bob");
    constexpr int subscriptions = 2 * BiscottiLimits::othersRemembered;
    for (int i = 0; i < subscriptions; ++i)
        back->say(back->subscription(QString::number(10 + i), QString::number(i), ".b"));
    ASSERT_TRUE(processEventsUntil([&] { return !back->serverGreeting.isEmpty(); }));
    timers.advance(2 * BiscottiConnection::msForAnswer);
    ASSERT_TRUE(processEventsUntil([&] { return back->acks.size() == subscriptions; }));
    EXPECT_EQ(back->ask(back->subscription("4", "s", ".a")), 200);
    EXPECT_EQ(server.connectionCount(), 2);
    EXPECT_EQ(back->ask(back->post("2", ".a", "first")), 4092);
    EXPECT_EQ(back->ask(back->post("5", ".a", "second")), 200);
    ASSERT_EQ(back->posts.size(), 1);
    EXPECT_EQ(back->posts.first().body(), "second");
}

TEST_F(BiscottiServerTest, WhoReadsTooSlowlyGoesAndWhenTooMuchWaitsForAllTheSlowest)
{
    auto const good = peer("good");
    std::array const slow{peer("slow0"), peer("slow1"), peer("slow2")};
    for (auto const& one : slow) {
        ASSERT_EQ(one->ask(one->subscription("0", "s", ".a")), 200);
        stall(*one, *good, ".a");
    }
    auto const postUntilThereAre = [&](int count) {
        for (int i = 0; server.connectionCount() > count && i < 1000; ++i)
            good->ask(good->post(QString("%1 %2").arg(count).arg(i), ".a", QByteArray(60'000, 'b')));
        EXPECT_EQ(server.connectionCount(), count);
    };
    server.setMaximumQueued(1 << 20);
    postUntilThereAre(3);
    server.setMaximumQueued(Service::maximumQueued);
    postUntilThereAre(1);
    EXPECT_TRUE(log.contains("reads too slowly"));
    EXPECT_EQ(good->ask(good->post("1", ".a")), 200);
}

TEST_F(BiscottiServerTest, CommandsMakeThingsGoWrong)
{
    for (QString const& line : QStringList{"jump", "ack 200", "ack 500 times 0", "mdwms -1", "silence", "refuse !"})
        EXPECT_TRUE(command(line).contains("\"")) << qPrintable(line) << qPrintable(command(line));
    auto const client = peer();
    ASSERT_EQ(client->ask(client->subscription("0", "s", ".a")), 200);
    ASSERT_EQ(command("ack 503 times 2"), QString());
    ASSERT_EQ(command("mdwms 250"), QString());
    QStringList lines;
    ASSERT_EQ(command("list", &lines), QString());
    EXPECT_THAT(lines,
                ElementsAre("1 clients, 1 remembered, 1 subscriptions, 0 posts", "mdwms 250", "ack 503 times 2"));
    for (int const code : {503, 503, 200})
        EXPECT_EQ(client->ask(client->post("1", ".a")), code);
    EXPECT_EQ(client->posts.size(), 1);

    ASSERT_EQ(command("silence on"), QString());
    client->say(client->post("4", ".a", "unheard"));
    auto const next = peer("next");
    ASSERT_TRUE(processEventsUntil([&] { return server.connectionCount() == 2; }));
    timers.advance(BiscottiConnection::msForGreeting + BiscottiConnection::msBetweenHeartbeats);
    ASSERT_EQ(command("silence off"), QString());
    EXPECT_EQ(client->ask(client->post("5", ".a")), 200);
    EXPECT_EQ(client->heartbeats, 0);
    EXPECT_TRUE(next->serverGreeting.isEmpty());
    ASSERT_EQ(command("drop"), QString());
    EXPECT_TRUE(client->waitForEnd() && next->waitForEnd());
}
