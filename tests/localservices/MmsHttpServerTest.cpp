#include "MmsHttpServer.h"

#include "BroadcastTestSupport.h"
#include "ByteCursor.h"
#include "HttpRequestReader.h"
#include "LogCapture.h"
#include "LoopbackClient.h"
#include "ServiceConnection.h"
#include "StreamDocuments.h"

#include <sys/resource.h>

namespace
{
struct Chunk {
    char type = 0;
    QByteArray body;
};

class MmsHttpServerTest : public BroadcastFixture
{
protected:
    void SetUp() override
    {
        live();
        ASSERT_TRUE(server.listen(QHostAddress::LocalHost, 0));
        documents.setPorts(server.port(), 1755);
    }

    static QByteArray get(QByteArray const& path, QByteArrayList const& pragmas = {}, QByteArray const& more = {})
    {
        QByteArray request = "GET " + path + " HTTP/1.1\r\nHost: 127.0.0.1\r\nUser-Agent: NSPlayer/4.1\r\n" + more;
        for (QByteArray const& pragma : pragmas)
            request += "Pragma: " + pragma + "\r\n";
        return request + "\r\n";
    }

    static QByteArray post(QByteArrayList const& pragmas)
    {
        return get("/live", pragmas, "Content-Length: 0\r\n").replace(0, 3, "POST");
    }

    /// A client that plays and has got its burst.
    std::unique_ptr<LoopbackClient> player(QByteArrayList const& pragmas = {}, QByteArray const& more = {})
    {
        auto client = std::make_unique<LoopbackClient>(server.port());
        client->say(get("/live", QByteArrayList{"xPlayStrm=1"} + pragmas, more));
        EXPECT_TRUE(client->waitFor("$D"));
        processPendingEvents();
        return client;
    }

    /// The chunks after the answer's header; the last one may be cut off and is left out.
    static QList<Chunk> chunks(LoopbackClient const& client)
    {
        QList<Chunk> all;
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

    static QByteArray typesOf(QList<Chunk> const& chunks)
    {
        QByteArray types;
        for (Chunk const& chunk : chunks) {
            if (!types.endsWith(chunk.type))
                types += chunk.type;
        }
        return types;
    }

    /// The streams in the data chunks.
    static QList<int> streamsIn(QList<Chunk> const& chunks)
    {
        QList<int> streams;
        for (Chunk const& chunk : chunks) {
            std::optional<AsfPacket> const packet = AsfPacket::parse(chunk.body.mid(8));
            for (AsfPacket::Payload const& payload :
                 chunk.type == 'D' && packet ? packet->payloads() : QList<AsfPacket::Payload>()) {
                if (!streams.contains(payload.stream))
                    streams.append(payload.stream);
            }
        }
        std::sort(streams.begin(), streams.end());
        return streams;
    }

    StreamDocuments documents{catalogue};
    MmsHttpServer server{catalogue, faults, &documents, clock, timers};
};
} // namespace

TEST_F(MmsHttpServerTest, DescribeGivesTheHeaderAndKeepsTheConnection)
{
    LoopbackClient client(server.port());
    client.say(get("/live") + get("/live?x=1"));
    QByteArray const header = live().header();
    ASSERT_TRUE(client.waitForSize(2 * header.size()));
    ASSERT_TRUE(processEventsUntil([&] { return client.heard().count(header) == 2; }));
    EXPECT_TRUE(client.heard().startsWith("HTTP/1.1 200 OK\r\n"));
    EXPECT_TRUE(client.heard().contains("Content-Type: application/vnd.ms.wms-hdr.asfv1\r\n"));
    EXPECT_TRUE(client.heard().contains("client-id="));
    EXPECT_TRUE(client.heard().contains("features=\"broadcast"));
    QByteArray const chunk = client.heard().mid(client.heard().indexOf("\r\n\r\n") + 4, 12);
    EXPECT_TRUE(chunk.startsWith("$H"));
    EXPECT_EQ(ByteCursor(chunk, 2).u16(), header.size() + 8);
    EXPECT_EQ(ByteCursor(chunk, 10).u16(), header.size() + 8);
    EXPECT_TRUE(client.isConnected());
}

TEST_F(MmsHttpServerTest, PlayGivesHeaderThenDataAsTimeGoesBy)
{
    auto const client = player();
    EXPECT_TRUE(client->heard().contains("Content-Type: application/x-mms-framed\r\n"));
    QList<Chunk> const burst = chunks(*client);
    EXPECT_EQ(typesOf(burst), "HD");
    EXPECT_EQ(burst.first().body.mid(8), live().header());
    client->forget();
    timers.advance(1'000);
    EXPECT_TRUE(client->waitForSize(9 * (AsfBuilder::packetSize + 12)));
}

TEST_F(MmsHttpServerTest, StreamsThatAreSwitchedOffAreLeftOut)
{
    addBroadcast("/live", {AsfBuilder(50, 2).file()});
    EXPECT_EQ(streamsIn(chunks(*player())), (QList<int>{2, 9})); // Of the two pictures the better one.
    EXPECT_EQ(
        streamsIn(chunks(*player({"stream-switch-count=3", "stream-switch-entry=ffff:1:0 ffff:2:2 ffff:9:0 "}))),
        (QList<int>{1, 9}));
    EXPECT_EQ(streamsIn(chunks(*player({"stream-switch-entry=ffff:1:2 ffff:2:2"}))), (QList<int>{9}));
    EXPECT_EQ(streamsIn(chunks(*player({"LinkBW=200000"}))), (QList<int>{1, 9}));
}

TEST_F(MmsHttpServerTest, ASelectionCountsForThePlayerOfThatNumberFromAKeyFrameOn)
{
    addBroadcast("/live", {AsfBuilder(50, 2).file()});
    auto const client = player({"client-id=77"});
    LoopbackClient selecting(server.port());
    selecting.say(post({"client-id=77", "stream-switch-count=2", "stream-switch-entry=ffff:1:0 ffff:2:2 "}));
    ASSERT_TRUE(selecting.waitFor("HTTP/1.1 200"));
    timers.advance(2'000);
    ASSERT_TRUE(processEventsUntil([&] { return streamsIn(chunks(*client)).contains(1); }));
    for (Chunk const& chunk : chunks(*client)) {
        std::optional<AsfPacket> const packet = AsfPacket::parse(chunk.body.mid(8));
        if (chunk.type == 'D' && packet->payloads().first().stream == 1) {
            EXPECT_TRUE(packet->payloads().first().isKeyFrame);
            break;
        }
    }
    LoopbackClient stranger(server.port());
    stranger.say(post({"client-id=78", "stream-switch-count=0"}));
    EXPECT_TRUE(stranger.waitFor("HTTP/1.1 404"));
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
    EXPECT_EQ(typesOf(chunks(*old)), "HDCHDCHDE");
    EXPECT_EQ(typesOf(chunks(*modern)), "MHDMEHDCHDE");
    QByteArrayList generations;
    QList<quint32> reasons;
    for (Chunk const& chunk : chunks(*modern)) {
        if (chunk.type == 'M')
            generations.append(chunk.body.mid(8, 17));
        if (chunk.type == 'E')
            reasons.append(ByteCursor(chunk.body).u32());
    }
    EXPECT_EQ(generations, (QByteArrayList{"playlist-gen-id=1", "playlist-gen-id=2"}));
    EXPECT_EQ(reasons, (QList<quint32>{1, 0}));
}

TEST_F(MmsHttpServerTest, FaultsHappenToWhomTheyAreMeantFor)
{
    struct Case {
        QString fault;
        QByteArray request;
        QByteArray answer;
    };
    QByteArray const play = get("/live", {"xPlayStrm=1"});
    QList<Case> const cases = {
        {"453", get("/live"), "HTTP/1.1 453 Not Enough Bandwidth\r\n"},
        {"453 on describe", play, "HTTP/1.1 200 OK\r\n"},
        {"302 /film on play", play, "Location: /film\r\n"},
        {"204 on log", get("/live", {}, "Content-Type: application/x-wms-LogStats\r\n").replace(0, 3, "POST"),
         "HTTP/1.1 204 No Content\r\n"},
        {"503 on select", post({"stream-switch-count=0"}), "HTTP/1.1 503 "},
        {"reset on select", post({"stream-switch-count=0"}), "Pragma: xResetStrm=1\r\n"},
        {"0xC00D0030", get("/live"), "HTTP/1.1 200 OK\r\n"},
    };
    for (Case const& one : cases) {
        QString error;
        std::optional<Fault> const fault = Fault::parse(one.fault.split(' '), error);
        ASSERT_TRUE(fault) << qPrintable(error);
        faults.clear();
        faults.add("/live", *fault);
        LoopbackClient client(server.port());
        client.say(one.request);
        EXPECT_TRUE(client.waitFor(one.answer)) << qPrintable(one.fault);
    }
    faults.clear();
    faults.add("*", *Fault::parse({"500", "times", "2"}, *std::make_unique<QString>()));
    for (char const* const status : {"500", "500", "200"}) {
        LoopbackClient client(server.port());
        client.say(get("/live"));
        EXPECT_TRUE(client.waitFor(QByteArray("HTTP/1.1 ") + status));
    }
}

TEST_F(MmsHttpServerTest, ACutComesWhereItIsWanted)
{
    QByteArray const play = get("/live", {"xPlayStrm=1"});
    for (QStringList const& words :
         {QStringList{"cut", "100"}, QStringList{"cut", "header"}, QStringList{"cut", "packet"}}) {
        QString error;
        faults.clear();
        faults.add("/live", *Fault::parse(words, error));
        LoopbackClient client(server.port());
        client.say(play);
        ASSERT_TRUE(client.waitForEnd());
        qsizetype const body = client.heard().size() - client.heard().indexOf("\r\n\r\n") - 4;
        qsizetype const header = live().header().size() + 12;
        qsizetype const packet = AsfBuilder::packetSize + 12;
        if (words.last() == "100")
            EXPECT_EQ(client.heard().size(), 100);
        else if (words.last() == "header")
            EXPECT_EQ(body, live().header().size() / 2);
        else
            EXPECT_EQ(body, header + 9 * packet + packet / 2);
    }
}

TEST_F(MmsHttpServerTest, ASilentStreamTakesTheRequestAndSaysNothing)
{
    LogCapture capture;
    QString error;
    faults.add("/live", *Fault::parse({"silent"}, error));
    LoopbackClient client(server.port());
    client.say(get("/live"));
    ASSERT_TRUE(processEventsUntil([&] { return capture.contains("fault silent"); }));
    timers.advance(300'000);
    processPendingEvents();
    EXPECT_TRUE(client.isConnected());
    EXPECT_TRUE(client.heard().isEmpty());
}

TEST_F(MmsHttpServerTest, HostileRequestsGetAnErrorAndNoMore)
{
    struct Case {
        QByteArray request;
        QByteArray answer;
    };
    QByteArray const start = "GET /live HTTP/1.1\r\n";
    QList<Case> const cases = {
        {"GET /" + QByteArray(64 << 10, 'a') + " HTTP/1.1\r\n\r\n", "414"},
        {QByteArray(1 << 20, 'a'), "414"},
        {QByteArray(1 << 20, '\0'), "414"},
        {start + "X: " + QByteArray(64 << 10, 'x') + "\r\n\r\n", "431"},
        {start + QByteArray("X: y\r\n").repeated(10'000), "431"},
        {start + QByteArray("X: " + QByteArray(5000, 'z') + "\r\n").repeated(20), "431"},
        {"\r\n\r\nGET / HTTP/1.1 more\r\n", "400"},
        {"\x16\x03\x01\x02\r\n\r\n", "400"},
        {start + "no colon\r\n\r\n", "400"},
        {start + "Content-Length: 99999999999999999999\r\n\r\n", "400"},
        {start + "Content-Length: -1\r\n\r\n", "400"},
        {start + "Content-Length: 10000000\r\n\r\n", "413"},
        {start + "Transfer-Encoding: chunked\r\n\r\n", "411"},
        {"DELETE /live HTTP/1.1\r\n\r\n", "405"},
        {"GET /../../etc/passwd HTTP/1.0\r\n\r\n", "404"},
        {get("/live", {"stream-switch-entry=" + QByteArray("ffff:1:2 ").repeated(800), "client-id=99999999999999"}),
         "200"},
        {get("/live", {"stream-switch-entry=:::: ffff:-1:9 1:2", "=", "xPlayStrm", "client-id"}), "200"},
    };
    for (Case const& one : cases) {
        LoopbackClient client(server.port());
        client.say(one.request);
        EXPECT_TRUE(client.waitFor("HTTP/1.1 " + one.answer)) << one.request.left(60).constData();
    }
}

TEST_F(MmsHttpServerTest, ARequestMayComeInAnyPieces)
{
    QByteArray const request = get("/live", {"client-id=1"});
    for (qsizetype cut = 1; cut < request.size(); ++cut) {
        HttpRequestReader reader;
        EXPECT_EQ(reader.next(request.left(cut)), HttpRequestReader::Result::Incomplete);
        ASSERT_EQ(reader.next(request.mid(cut)), HttpRequestReader::Result::Complete);
        EXPECT_EQ(reader.request().value("pragma"), "client-id=1");
        EXPECT_EQ(reader.next({}), HttpRequestReader::Result::Incomplete);
    }
}

TEST_F(MmsHttpServerTest, WhoReadsTooSlowlyLosesTheConnection)
{
    LogCapture capture;
    QTcpSocket slow;
    slow.setReadBufferSize(1000);
    slow.connectToHost(QHostAddress::LocalHost, server.port());
    slow.write(get("/live", {"xPlayStrm=1"}));
    ASSERT_TRUE(processEventsUntil([&] { return live().listenerCount() == 1; }));
    auto const quick = player();
    live().setRate(1000);
    for (int i = 0; i < 400 && live().listenerCount() == 2; ++i) {
        timers.advance(5'000);
        processPendingEvents();
    }
    EXPECT_EQ(live().listenerCount(), 1);
    EXPECT_EQ(capture.count("reads too slowly"), 1);
    EXPECT_TRUE(quick->isConnected());
}

TEST_F(MmsHttpServerTest, WhoSaysNothingIsSentAwayAfterAWhile)
{
    LoopbackClient mute(server.port());
    LoopbackClient half(server.port());
    half.say("GET /live HT");
    LoopbackClient served(server.port());
    served.say(get("/live"));
    ASSERT_TRUE(served.waitFor("$H"));
    ASSERT_TRUE(processEventsUntil([&] { return server.connectionCount() == 3; }));
    auto const playing = player();
    timers.advance(12'000);
    EXPECT_TRUE(mute.waitForEnd());
    EXPECT_TRUE(half.waitForEnd());
    EXPECT_TRUE(served.isConnected());
    timers.advance(50'000);
    EXPECT_TRUE(served.waitForEnd());
    EXPECT_TRUE(playing->isConnected());
}

TEST_F(MmsHttpServerTest, AThousandClientsAreServedAndForgotten)
{
    rlimit limit{};
    getrlimit(RLIMIT_NOFILE, &limit);
    limit.rlim_cur = limit.rlim_max;
    setrlimit(RLIMIT_NOFILE, &limit);
    if (limit.rlim_cur < 2200)
        GTEST_SKIP() << "too few file descriptors";
    std::vector<std::unique_ptr<LoopbackClient>> clients;
    for (int i = 0; i < 1000; ++i) {
        clients.push_back(std::make_unique<LoopbackClient>(server.port()));
        clients.back()->say(get("/live", {"xPlayStrm=1"}));
        if (i % 50 == 0)
            processPendingEvents();
    }
    ASSERT_TRUE(processEventsUntil([&] { return live().listenerCount() == 1000; }));
    for (auto const& client : clients) {
        ASSERT_TRUE(client->waitFor("$D"));
        client->forget();
    }
    timers.advance(300);
    for (auto const& client : clients)
        ASSERT_TRUE(client->waitFor("$D"));
    clients.clear();
    EXPECT_TRUE(processEventsUntil([&] { return server.connectionCount() == 0 && live().listenerCount() == 0; }));
}

TEST_F(MmsHttpServerTest, DocumentsLeadToTheStreamsPastDeadEntries)
{
    documents.setDeadEntries(2);
    QByteArray const port = QByteArray::number(server.port());
    struct Case {
        QByteArray path;
        QByteArray type;
        QByteArrayList inOrder;
    };
    for (Case const& one : {
             Case{"/live.asx",
                  "video/x-ms-asf",
                  {"<ASX version", ":1/live", ":1/live", "mms://127.0.0.1:" + port + "/live",
                   "mms://127.0.0.1:1755/live", "</ASX>"}},
             Case{"/live.ref",
                  "video/x-ms-asf",
                  {"[Reference]", "Ref1=http://127.0.0.1:1/", "Ref2=", "Ref3=http://127.0.0.1:" + port + "/live",
                   "Ref4=mms:"}},
             Case{"/", "text/plain", {"mms://127.0.0.1:" + port + "/live", "/live.asx", "/live.ref"}},
         }) {
        LoopbackClient client(server.port());
        client.say(get(one.path, {}, "Connection: close\r\n"));
        ASSERT_TRUE(client.waitForEnd());
        EXPECT_TRUE(client.heard().contains(QByteArray("Content-Type: " + one.type)));
        qsizetype place = 0;
        for (QByteArray const& text : one.inOrder) {
            place = client.heard().indexOf(text, place);
            ASSERT_GE(place, 0) << one.path.constData() << ' ' << text.constData() << '\n'
                                << client.heard().constData();
            place += text.size();
        }
    }
}

TEST_F(MmsHttpServerTest, AHostLineGoesIntoNoDocumentUnchecked)
{
    for (QByteArray const& host :
         {QByteArray("evil\"><script>"), QByteArray(5000, 'a'), QByteArray("a b"), QByteArray("x/y")})
        EXPECT_TRUE(documents.find("/live.asx", host)->content.contains("mms://127.0.0.1:")) << host.constData();
    EXPECT_TRUE(documents.find("/live.asx", "tv.example:8080")->content.contains("mms://tv.example:"));
}
