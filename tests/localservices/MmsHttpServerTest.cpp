#include "MmsHttpServer.h"

#include "BroadcastTestSupport.h"
#include "ByteCursor.h"
#include "LoopbackClient.h"

namespace
{
class MmsHttpServerTest : public BroadcastFixture
{
protected:
    void SetUp() override
    {
        live();
        ASSERT_TRUE(server.listen(QHostAddress::LocalHost, 0));
    }

    static QByteArray get(QByteArrayList const& pragmas = {}, QByteArray const& more = {})
    {
        QByteArray request = "GET /live HTTP/1.1\r\nHost: 127.0.0.1\r\nUser-Agent: NSPlayer/4.1\r\n" + more;
        for (QByteArray const& pragma : pragmas)
            request += "Pragma: " + pragma + "\r\n";
        return request + "\r\n";
    }

    static QByteArray post(QByteArrayList const& pragmas, QByteArray const& more = {})
    {
        return get(pragmas, more + "Content-Length: 0\r\n").replace(0, 3, "POST");
    }

    /// A client that plays and has got its burst.
    std::unique_ptr<LoopbackClient> player(QByteArrayList const& pragmas = {}, QByteArray const& more = {})
    {
        auto client = std::make_unique<LoopbackClient>(server.port());
        client->say(get(QByteArrayList{"xPlayStrm=1"} + pragmas, more));
        EXPECT_TRUE(client->waitFor("$D"));
        processPendingEvents();
        return client;
    }

    /// Types and bodies of the chunks after the answer's header; the last one may be cut off and is left out.
    static QList<std::pair<char, QByteArray>> chunks(LoopbackClient const& client)
    {
        QList<std::pair<char, QByteArray>> all;
        ByteCursor cursor(client.heard(), client.heard().indexOf("\r\n\r\n") + 4);
        while (cursor.left() > 0) {
            EXPECT_EQ(cursor.u8(), '$');
            char const type = static_cast<char>(cursor.u8());
            QByteArray const body = cursor.bytes(cursor.u16()).toByteArray();
            if (cursor.isValid())
                all.append({type, body});
        }
        return all;
    }

    /// The streams in the data chunks, in the order of their first key frames.
    static QList<int> streamsOf(LoopbackClient const& client)
    {
        QList<int> streams;
        for (auto const& [type, body] : chunks(client)) {
            std::optional<AsfPacket> const packet = AsfPacket::parse(body.mid(8));
            for (auto const& payload : type == 'D' && packet ? packet->payloads() : QList<AsfPacket::Payload>()) {
                EXPECT_TRUE(payload.isKeyFrame || streams.contains(payload.stream)) << "begins amid a group";
                if (!streams.contains(payload.stream))
                    streams.append(payload.stream);
            }
        }
        return streams;
    }

    void setFault(QString const& text)
    {
        QString error;
        faults.clear();
        faults.add("/live", *Fault::parse(text.split(' '), error));
    }

    MmsHttpServer server{catalogue, faults, nullptr, clock, timers};
};
} // namespace

TEST_F(MmsHttpServerTest, ASelectionCountsForThePlayerOfThatNumberFromAKeyFrameOn)
{
    addBroadcast("/live", {AsfBuilder(50, 2).file()});
    auto const client = player({"client-id=77"});
    EXPECT_EQ(streamsOf(*client), (QList<int>{2, 9})); // Of the two pictures the better one.
    LoopbackClient selecting(server.port());
    selecting.say(post({"client-id=77", "stream-switch-count=2", "stream-switch-entry=ffff:1:0 ffff:2:2 "}));
    ASSERT_TRUE(selecting.waitFor("HTTP/1.1 200"));
    timers.advance(2'000);
    EXPECT_TRUE(processEventsUntil([&] { return streamsOf(*client) == QList<int>{2, 9, 1}; }));
    selecting.say(post({"client-id=78", "stream-switch-count=0"}));
    EXPECT_TRUE(selecting.waitFor("HTTP/1.1 404"));
    EXPECT_EQ(streamsOf(*player({"stream-switch-entry=ffff:1:2 ffff:2:2"})), (QList<int>{9}));
    EXPECT_EQ(streamsOf(*player({"LinkBW=200000"})), (QList<int>{1, 9}));
}

TEST_F(MmsHttpServerTest, ChangesOfTheBroadcastComeAsEachPlayerKnowsThem)
{
    auto const old = player();
    auto const modern = player({}, "Supported: com.microsoft.wm.predstrm\r\n");
    live().nextEntry();
    timers.advance(500);
    live().changeHeader();
    timers.advance(500);
    live().end();
    ASSERT_TRUE(old->waitForEnd());
    ASSERT_TRUE(modern->waitForEnd());
    auto const typesOf = [](LoopbackClient const& client) {
        QByteArray types;
        for (auto const& [type, body] : chunks(client))
            types += types.endsWith(type) ? "" : QByteArray(1, type);
        return types;
    };
    EXPECT_EQ(typesOf(*old), "HDCHDCHDE");
    EXPECT_EQ(typesOf(*modern), "MHDMEHDCHDE");
    EXPECT_TRUE(modern->heard().contains("playlist-gen-id=2"));
}

TEST_F(MmsHttpServerTest, FaultsHappenToWhomTheyAreMeantFor)
{
    struct Case {
        QString fault;
        QByteArray request;
        QByteArray answer;
    };
    QByteArray const play = get({"xPlayStrm=1"});
    for (Case const& one : {
             Case{"453", get(), "HTTP/1.1 453 Not Enough Bandwidth\r\n"},
             Case{"453 on describe", play, "HTTP/1.1 200 OK\r\n"},
             Case{"302 /film on play", play, "Location: /film\r\n"},
             Case{"204 on log", post({}, "Content-Type: application/x-wms-LogStats\r\n"),
                  "HTTP/1.1 204 No Content\r\n"},
             Case{"reset on select", post({"stream-switch-count=0"}), "Pragma: xResetStrm=1\r\n"},
             Case{"500 times 1", get() + get(), "HTTP/1.1 200 OK\r\n"},
         }) {
        setFault(one.fault);
        LoopbackClient client(server.port());
        client.say(one.request);
        EXPECT_TRUE(client.waitFor(one.answer)) << qPrintable(one.fault);
    }
    qsizetype const header = live().header().size();
    qsizetype const packet = AsfBuilder::packetSize + 12;
    for (auto const& [fault, size] :
         {std::pair{"cut header", header / 2}, {"cut packet", header + 12 + 19 * packet / 2}}) {
        setFault(fault);
        LoopbackClient client(server.port());
        client.say(play);
        ASSERT_TRUE(client.waitForEnd());
        EXPECT_EQ(client.heard().size() - client.heard().indexOf("\r\n\r\n") - 4, size) << fault;
    }
}

TEST_F(MmsHttpServerTest, HostileRequestsGetAnErrorAndNoMore)
{
    QByteArray const start = "GET /live HTTP/1.1\r\n";
    for (auto const& [answer, request] : {std::pair<QByteArray, QByteArray>{"414", QByteArray(64 << 10, 'a')},
                                          {"431", start + "X: " + QByteArray(64 << 10, 'x')},
                                          {"400", start + "no colon\r\n\r\n"},
                                          {"413", start + "Content-Length: 10000000\r\n\r\n"}}) {
        LoopbackClient client(server.port());
        client.say(request);
        EXPECT_TRUE(client.waitFor("HTTP/1.1 " + answer));
    }
}
