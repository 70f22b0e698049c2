#include "HttpMmsClient.h"

#include "AsfStreamFilter.h"
#include "DateTimeBuilder.h"
#include "EventLoop.h"
#include "FakeHttpClientFactory.h"
#include "FakeTimerFactory.h"
#include "HttpMmsClientFactory.h"
#include "HttpMmsRequest.h"
#include "HttpMmsTestSupport.h"
#include "HttpTestServer.h"
#include "LogCapture.h"
#include "QtHttpClientFactory.h"
#include "QtTimerFactory.h"
#include "SortedMemoQueue.h"
#include "SystemTickCounter.h"

#include <QDateTime>
#include <QPointer>
#include <QSignalSpy>
#include <QTimer>

#include <gmock/gmock.h>

namespace
{

char const* const guid = "{01234567-89ab-cdef-0123-456789abcdef}";

class FixedDateTime : public DateTimeBuilder
{
public:
    QDateTime currentDateTime() override { return QDateTime(QDate(2011, 2, 3), QTime(4, 5, 6)); }
};

class HttpMmsClientTest : public testing::Test
{
protected:
    /// The only client under way; null when there is not just one.
    FakeHttpClient* http()
    {
        QList<FakeHttpClient*> const clients = _clients.clients();
        return clients.size() == 1 ? clients.first() : nullptr;
    }
    FakeHttpClient* newest() { return _clients.clients().last(); }

    /// Runs what is queued; the newest request then.
    FakeHttpClient::Sent request()
    {
        _timers.advance(0);
        EXPECT_FALSE(_clients.clients().isEmpty());
        return _clients.clients().isEmpty() ? FakeHttpClient::Sent() : newest()->sent().last();
    }

    /// Its header lines but for those that all requests have.
    QString ownLines()
    {
        QStringList lines = request().header.toString().split("\r\n", Qt::SkipEmptyParts);
        EXPECT_GE(lines.size(), 7);
        return lines.first() + "\n" + lines.mid(7).join('\n');
    }

    void describe(QString const& pragma = "client-id=77")
    {
        _client->connectToServer(QUrl("mms://h/live"), {}, 10000);
        answerDescribe(pragma);
    }
    void answerDescribe(QString const& pragma = "client-id=77")
    {
        request();
        newest()->respond(response(200, "Pragma: " + pragma + "\r\n"));
        newest()->receive(chunk('H', asfHeader()));
        newest()->finish();
    }

    /// Goes as far as the response to play.
    void play()
    {
        describe();
        request();
        newest()->respond(response(200, "Pragma: client-id=78\r\n"));
    }

    /// The server's playlist goes on.
    void changePlaylist()
    {
        newest()->receive(chunk('M', QByteArray("playlist-gen-id=1,broadcast-id=9\0", 33)));
        newest()->receive(chunk('M', QByteArray("playlist-gen-id=2,broadcast-id=9\0", 33)));
        newest()->receive(endChunk(1));
    }

    QList<MmsClient::MmsClientError> errors() const
    {
        QList<MmsClient::MmsClientError> list;
        for (auto const& arguments : _done)
            list.append(arguments.first().value<MmsClient::MmsClientError>());
        return list;
    }

    FakeTickCounter _clock;
    FakeTimerFactory _timers{_clock};
    FakeHttpClientFactory _clients;
    FixedDateTime _dateTime;
    SortedMemoQueue _queue{&_clock, &_timers};
    std::unique_ptr<HttpMmsClient> _client =
        std::make_unique<HttpMmsClient>(guid, &_clients, &_timers, &_dateTime, &_queue);
    QSignalSpy _header{_client.get(), &MmsClient::onHeader};
    QSignalSpy _data{_client.get(), &MmsClient::onData};
    QSignalSpy _done{_client.get(), &MmsClient::done};
};

using Errors = QList<MmsClient::MmsClientError>;

} // namespace

TEST_F(HttpMmsClientTest, AsksForTheHeaderAndThenForTheStream)
{
    _client->connectToServer(QUrl("mms://h:8080/a%20b/live?x=%26"), "http://r/", 10000);
    FakeHttpClient::Sent const sent = request();
    EXPECT_EQ(http()->host(), "h");
    EXPECT_EQ(http()->port(), 8080);
    QStringList lines = sent.header.toString().split("\r\n", Qt::SkipEmptyParts);
    ASSERT_EQ(lines.size(), 9);
    EXPECT_TRUE(lines.takeAt(5).endsWith("; q=0.1"));
    EXPECT_EQ(lines.join('\n'),
              "GET /a%20b/live?x=%26 HTTP/1.1\nHost: h:8080\nAccept: */*\nUser-Agent: NSPlayer/11.0.5721.5145\n"
              "Supported: com.microsoft.wm.srvppair, com.microsoft.wm.sswitch, com.microsoft.wm.predstrm, "
              "com.microsoft.wm.startupprofile\n"
              "Pragma: xClientGUID={01234567-89ab-cdef-0123-456789abcdef}\n"
              "Pragma: no-cache,rate=1.000000,stream-time=0,stream-offset=0:0,packet-num=4294967295,max-duration=0\n"
              "Referrer: http://r/");
    EXPECT_EQ(_client->state(), MmsClient::Connecting);

    QSignalSpy const connected(_client.get(), &MmsClient::connected);
    answerDescribe("no-cache,client-id=77,features=\"broadcast\",timeout=60000");
    QMap<int, int> selection;
    QByteArray rewritten;
    AsfStreamFilter(asfHeader()).useBandwidthLimit(MmsClient::bandwidthLimit, selection, rewritten);
    ASSERT_EQ(_header.size(), 1);
    EXPECT_EQ(_header.first().first().toByteArray(), rewritten);
    EXPECT_EQ(connected.size(), 1);
    EXPECT_EQ(_client->packetSize(), 3200);
    EXPECT_GT(_client->streamBitrate(), 1000);

    EXPECT_EQ(ownLines(), "GET /a%20b/live?x=%26 HTTP/1.1\nPragma: stream-switch-count=2\nPragma: client-id=77\n"
                          "Pragma: stream-switch-entry=ffff:1:0 ffff:2:0 \n"
                          "Pragma: no-cache,rate=1.000000,stream-time=0,stream-offset=4294967295:4294967295,"
                          "packet-num=4294967295,max-duration=0\nPragma: xPlayStrm=1\nReferrer: http://r/");
    EXPECT_EQ(_client->state(), MmsClient::Streaming);

    // The server's own limit on silence holds from now on.
    http()->respond(response(200));
    QByteArray const packets = chunk('H', asfHeader()) + chunk('D', QByteArray(100, 'a')) + chunk('D', "b");
    http()->receive(packets);
    _timers.advance(59000);
    EXPECT_EQ(_done.size(), 0);
    ASSERT_EQ(_data.size(), 1);
    EXPECT_EQ(_data.first().first().toByteArray(), QByteArray(100, 'a') + QByteArray(3100, '\0'));
    EXPECT_EQ(_client->totalBytesReceived(), 3200);
    EXPECT_EQ(_header.size(), 1) << "the same header once more";
    _timers.advance(1000);
    EXPECT_EQ(errors(), Errors{MmsClient::CouldNotConnected});
    EXPECT_TRUE(_clients.clients().isEmpty());
}

TEST_F(HttpMmsClientTest, TellsHowAPlayEnded)
{
    struct Case {
        HttpResponseHeader header;
        QByteArray body;
        HttpClient::Error error;
        MmsClient::MmsClientError expected;
    };
    HttpResponseHeader const none;
    QByteArray const emptyHeader = asfHeader().first(24) + QByteArray(asfHeader().size() - 24, '\0');
    Case const cases[] = {
        {response(200), "", HttpClient::NoError, MmsClient::RemoteServerClosed},
        {response(200), "", HttpClient::UnexpectedClose, MmsClient::RemoteServerClosed},
        {response(200), endChunk(1), HttpClient::NoError, MmsClient::RemoteServerClosed},
        {response(200), endChunk(0), HttpClient::NoError, MmsClient::EndOfStream},
        {response(200), endChunk(0xFFFFFFFF), HttpClient::NoError, MmsClient::EndOfStream},
        {response(200), chunk('H', emptyHeader), HttpClient::NoError, MmsClient::CouldNotConnected},
        {response(200), QByteArray(9 << 20, '\0'), HttpClient::NoError, MmsClient::CouldNotConnected},
        {response(302), "", HttpClient::NoError, MmsClient::RemoteServerClosed},
        {response(404), "$E page", HttpClient::NoError, MmsClient::StreamNotAvailable},
        {response(453, {}, "not enough BANDWIDTH"), "", HttpClient::NoError, MmsClient::BandwidthNotAvailable},
        {response(453, {}, "Other"), "", HttpClient::NoError, MmsClient::StreamNotAvailable},
        {response(503), "", HttpClient::NoError, MmsClient::StreamNotAvailable},
        {none, "", HttpClient::HostNotFound, MmsClient::CouldNotResolveServer},
        {none, "", HttpClient::ConnectionRefused, MmsClient::CouldNotConnected},
        {none, "", HttpClient::UnexpectedClose, MmsClient::UnknownError},
        {none, "", HttpClient::InvalidResponseHeader, MmsClient::UnknownError},
        {none, "", HttpClient::Aborted, MmsClient::CouldNotConnected},
        {none, "", HttpClient::AuthenticationRequiredError, MmsClient::AuthenticationRequiredError},
        {none, "", HttpClient::ProxyAuthenticationRequiredError, MmsClient::ProxyAuthenticationRequiredError},
    };
    for (Case const& c : cases) {
        _done.clear();
        describe();
        request();
        QPointer<FakeHttpClient> const client = http();
        if (c.header.isValid())
            client->respond(c.header);
        client->receive(c.body);
        if (_done.isEmpty())
            client->finish(c.error);
        EXPECT_EQ(errors(), Errors{c.expected})
            << c.header.statusCode() << " " << c.body.left(20).toHex().constData() << " " << c.error;
        EXPECT_EQ(_client->state(), MmsClient::Unconnected);
        EXPECT_EQ(_client->error(), c.expected);
        EXPECT_TRUE(_clients.clients().isEmpty());
    }
}

TEST_F(HttpMmsClientTest, WithTooLittleBandwidthNoStreamsAreSelected)
{
    describe(); // Fills the selection.
    request();
    http()->finish();
    _client->connectToServer(QUrl("http://h/live"), {}, 10000);
    request();
    http()->respond(response(453, {}, "Not Enough Bandwidth"));
    http()->finish();
    EXPECT_EQ(ownLines().section("\nPragma: no-cache", 0, 0), "GET /live HTTP/1.1\nPragma: stream-switch-count=0");
}

TEST_F(HttpMmsClientTest, FollowsRedirections)
{
    struct Case {
        char const* location;
        char const* host;
        int port;
        char const* path;
    };
    Case const cases[] = {{"http://b/other", "b", 80, "/other"},
                          {"http://b:99/other?", "b", 99, "/other?key=1&x"},
                          {"/other?r=2", "a", 8080, "/other?r=2"},
                          {"more", "a", 8080, "/more"},
                          {"mms://b", "b", 80, "/"}};
    for (Case const& c : cases) {
        _client->connectToServer(QUrl("http://a:8080/live?key=1&x"), "http://r/", 10000);
        request();
        http()->respond(response(302, QString("Location: ") + c.location + "\r\n"));
        http()->finish();
        EXPECT_EQ(request().header.path(), c.path);
        EXPECT_EQ(http()->host(), c.host);
        EXPECT_EQ(http()->port(), c.port);
        EXPECT_EQ(request().header.value("Referrer"), "http://r/");
        EXPECT_EQ(_done.size(), 0);
    }
}

TEST_F(HttpMmsClientTest, DetoursWithoutEndAreNotFollowed)
{
    struct Case {
        HttpResponseHeader header;
        int requests;
        int delay; ///< ms before the next request
    };
    Case const cases[] = {{response(302, "Location: /live\r\n"), HttpMmsClient::maximumDetours + 1, 0},
                          {response(204), HttpMmsClient::maximumDetours + 1, HttpMmsClient::noContentDelay},
                          {response(302, "Location: rtsp://h/live\r\n"), 1, 0}};
    for (Case const& c : cases) {
        _done.clear();
        _client->connectToServer(QUrl("http://h/live"), {}, 10000);
        for (int i = 0; i < c.requests; ++i) {
            EXPECT_EQ(_done.size(), 0);
            _timers.advance(i > 0 && c.delay > 0 ? c.delay - 1 : 0);
            EXPECT_EQ(_clients.clients().isEmpty(), i > 0 && c.delay > 0) << i;
            _timers.advance(1);
            ASSERT_TRUE(http()) << i;
            http()->respond(c.header);
            http()->finish();
        }
        EXPECT_EQ(errors(), Errors{MmsClient::StreamNotAvailable});
    }
}

TEST_F(HttpMmsClientTest, WhatIsNotReadWaitsAndAFloodIsLeft)
{
    play();
    _client->setReading(false);
    newest()->receive(chunk('D', "a") + chunk('D', "b"));
    newest()->finish(HttpClient::UnexpectedClose);
    EXPECT_EQ(_data.size() + _done.size(), 0);
    _client->setReading(true);
    QCoreApplication::processEvents();
    EXPECT_EQ(_data.size(), 1);
    EXPECT_EQ(errors(), Errors{MmsClient::RemoteServerClosed});

    for (char const type : {'D', 'M'}) {
        _done.clear();
        play();
        QByteArray const flood = chunk(type, "").repeated(8192);
        for (qint64 sent = 0; sent <= HttpMmsRequest::maximumUselessBytes; sent += flood.size()) {
            EXPECT_EQ(_done.size(), 0) << type << sent;
            newest()->receive(flood);
        }
        EXPECT_EQ(_done.size(), 1) << type;
    }
}

TEST_F(HttpMmsClientTest, TheLastWordsOutliveTheClient)
{
    QtHttpClientFactory network;
    HttpTestServer server;
    QUrl const url(QString("http://127.0.0.1:%1/live").arg(server.port()));
    MmsFarewells farewells(&network, 60000); // A busy machine says them late.
    _client->setFarewells(&farewells);
    for (bool const isStopHeard : {false, true}) {
        _client->connectToServer(url, {}, 10000);
        answerDescribe();
        request();
        newest()->respond(response(200));
        _client->disconnectFromServer();
        if (isStopHeard) {
            newest()->respond(response(200));
            newest()->finish();
        }
        _client.reset();
        QStringList heard;
        for (int i = isStopHeard ? 1 : 0; i < 2; ++i) {
            HttpTestServer::Request const last = server.takeRequest();
            heard << (last.lines.contains("Pragma: xStopStrm=1") ? "stop"
                      : last.body.startsWith("<XML>")            ? "log"
                                                                 : "?");
            server.send("HTTP/1.1 200 OK\r\nContent-Length: 0\r\n\r\n");
        }
        EXPECT_EQ(heard.last(), "log");
        EXPECT_EQ(heard.first(), isStopHeard ? "log" : "stop");
        _client = std::make_unique<HttpMmsClient>(guid, &_clients, &_timers, &_dateTime, &_queue);
        _client->setFarewells(&farewells);
    }
    MmsFarewells brief(&network, 100);
    brief.say(url,
              {{HttpRequestHeader("GET", "/silence", 1, 1), {}}}); // Its end waits for the server, but not for ever.
}

TEST_F(HttpMmsClientTest, GoesAlongWithThePlaylistOfTheServer)
{
    play();
    QPointer<FakeHttpClient> const stream = http();
    changePlaylist();
    QPointer<FakeHttpClient> const report = newest();
    ASSERT_NE(report, stream);
    EXPECT_TRUE(report->sent().last().body.startsWith("<XML><Summary>mms://h/live</Summary><c-ip>0.0.0.0</c-ip>"));
    EXPECT_EQ(ownLines(), "POST /live HTTP/1.1\nPragma: stream-switch-count=2\nPragma: client-id=78\n"
                          "Pragma: stream-switch-entry=ffff:1:0 ffff:2:0 \nPragma: no-cache,rate=1.000000\n"
                          "Content-Length: 0");
    EXPECT_EQ(_client->httpMmsState(), HttpMmsClient::SelectingStream);
    report->respond(response(200));
    report->finish();
    EXPECT_EQ(_client->httpMmsState(), HttpMmsClient::SelectingStream) << "the report's end is no answer";
    newest()->respond(response(200));
    newest()->finish();
    EXPECT_EQ(_client->httpMmsState(), HttpMmsClient::Playing);
    stream->receive(chunk('D', "a") + chunk('D', "b"));
    EXPECT_EQ(_data.size(), 1);
    EXPECT_EQ(http(), stream);
}

TEST_F(HttpMmsClientTest, AResetStreamBeginsTheSessionAnew)
{
    for (bool const streamEnds : {false, true}) {
        play();
        QPointer<FakeHttpClient> const stream = newest();
        changePlaylist();
        request();
        QPointer<FakeHttpClient> const select = newest();
        if (streamEnds)
            stream->finish();
        select->respond(response(200, "Pragma: xResetStrm=1\r\n"));
        select->finish();
        EXPECT_EQ(ownLines().section('\n', 0, 1), "GET /live HTTP/1.1\nPragma: no-cache,rate=1.000000,stream-time=0,"
                                                  "stream-offset=0:0,packet-num=4294967295,max-duration=0");
        EXPECT_EQ(_done.size(), 0);
        EXPECT_TRUE(!stream || !_clients.clients().contains(stream));
    }
    EXPECT_EQ(_header.size(), 1) << "the header of the reconnection is the same";
}

TEST_F(HttpMmsClientTest, AStreamThatEndsDuringTheSelectionHasEnded)
{
    play();
    QPointer<FakeHttpClient> const stream = http();
    changePlaylist();
    request();
    stream->finish();
    EXPECT_EQ(_done.size(), 0);
    newest()->respond(response(200));
    newest()->finish();
    EXPECT_EQ(errors(), Errors{MmsClient::RemoteServerClosed});
}

TEST_F(HttpMmsClientTest, AnEndOfAnEntryWithoutANewPlaylistChangesNothing)
{
    play();
    for (char const* const ids : {"playlist-gen-id=1", "playlist-gen-id=01", "playlist-gen-id=1,x"}) {
        http()->receive(chunk('M', ids));
        http()->receive(endChunk(1));
    }
    _timers.advance(0);
    EXPECT_TRUE(http());
    EXPECT_EQ(_client->httpMmsState(), HttpMmsClient::Playing);
}

TEST_F(HttpMmsClientTest, LeavesAStreamWithAStopAndAReport)
{
    play();
    _client->setGUID("{ffffffff-89ab-cdef-0123-456789abcdef}");
    _client->disconnectFromServer();
    ASSERT_TRUE(http()) << "the stream is not read on";
    EXPECT_EQ(ownLines(), "POST /live HTTP/1.1\nPragma: xStopStrm=1\nContent-Length: 0");
    EXPECT_EQ(_done.size(), 0);
    http()->respond(response(200));
    http()->finish();
    EXPECT_EQ(errors(), Errors{MmsClient::NoError});

    ASSERT_TRUE(http());
    FakeHttpClient::Sent const report = http()->sent().last();
    EXPECT_EQ(report.header.toString(),
              "POST /live HTTP/1.1\r\nHost: h\r\nAccept: */*\r\nUser-Agent: NSPlayer/11.0.5721.5145\r\n"
              "Pragma: client-id=77\r\nPragma: xClientGUID={ffffffff-89ab-cdef-0123-456789abcdef}\r\n"
              "Content-Type: application/x-wms-LogStats;charset=UTF-8\r\nContent-Length: " +
                  QString::number(report.body.size()) + "\r\n\r\n");
    EXPECT_TRUE(report.body.contains("<date>2011-02-03</date><time>"));
    EXPECT_TRUE(report.body.endsWith("<cs-url>mms://h/live</cs-url><ContentDescription></ContentDescription></XML>"));
    http()->respond(response(200));
    http()->finish();
    _timers.advance(60000);
    EXPECT_TRUE(_clients.clients().isEmpty()) << "the end of the report begins no session";
    EXPECT_EQ(_done.size(), 1);
}

TEST_F(HttpMmsClientTest, LeavingWithoutAStreamLeavesNothingBehind)
{
    LogCapture const capture;
    std::function<void()> const ways[] = {
        [this] { _client->connectToServer(QUrl("http://h/live"), {}, 10000); },
        [this] {
            _client->connectToServer(QUrl("http://h/live"), {}, 10000);
            request();
        },
        [this] { describe(); },
    };
    for (auto const& way : ways) {
        way();
        _client->disconnectFromServer();
        _timers.advance(60000);
        EXPECT_TRUE(_clients.clients().isEmpty());
        EXPECT_EQ(_client->state(), MmsClient::Unconnected);
    }
    EXPECT_EQ(_done.size(), 0);
    EXPECT_TRUE(capture.contains("mmsStop(http://h/live),_httpMmsState=Describing,_error=NoError"));
}

TEST_F(HttpMmsClientTest, ANewSessionTakesThePlaceOfTheOldOne)
{
    _client->connectToServer(QUrl("http://h/live"), {}, 10000);
    request();
    QPointer<FakeHttpClient> const old = http();
    _client->connectToServer(QUrl("http://i/live"), {}, 10000);
    request();
    ASSERT_TRUE(http());
    EXPECT_EQ(http()->host(), "i");
    EXPECT_NE(http(), old);
    EXPECT_EQ(old->abortCount(), 1);
    answerDescribe();
    EXPECT_EQ(_client->clientId(), "77");
    EXPECT_EQ(_done.size(), 0);
}

TEST_F(HttpMmsClientTest, WrongStatesAreLoggedAndDoNothing)
{
    LogCapture const capture;
    _client->mmsSelectStream();
    _client->mmsStop();
    EXPECT_TRUE(_clients.clients().isEmpty());
    play();
    _client->mmsDescribe();
    _client->mmsPlay();
    EXPECT_TRUE(http());
    EXPECT_TRUE(capture.contains("mmsSelectStream(),_httpMmsState=None,_error=NoError"));
    EXPECT_TRUE(capture.contains("mmsDescribe(mms://h/live),_httpMmsState=Playing,_error=NoError"));
    EXPECT_TRUE(capture.contains("mmsPlay(mms://h/live),_httpMmsState=Playing,_error=NoError"));
}

TEST_F(HttpMmsClientTest, MayBeDeletedFromItsOwnSignals)
{
    for (bool const atData : {true, false}) {
        _client = std::make_unique<HttpMmsClient>(guid, &_clients, &_timers, &_dateTime, &_queue);
        play();
        QObject::connect(_client.get(), &MmsClient::onData, this->_client.get(), [&] {
            if (atData)
                _client.reset();
        });
        QObject::connect(_client.get(), &MmsClient::done, this->_client.get(), [&] { _client.reset(); });
        QPointer<FakeHttpClient> const client = http();
        client->receive(chunk('D', "a") + chunk('D', "b") + chunk('D', "c") + endChunk(0));
        EXPECT_FALSE(_client);
        EXPECT_TRUE(_clients.clients().isEmpty());
        processPendingEvents();
    }
}

TEST_F(HttpMmsClientTest, WhatIsNotWantedAnyMoreIsGivenBack)
{
    HttpMmsClientFactory factory(guid, &_clients, &_timers, &_dateTime, &_queue);
    QPointer<MmsClient> const client = factory.createMmsClient(nullptr);
    QSignalSpy const done(client, &MmsClient::done);
    client->connectToServer(QUrl("http://h/live"), {}, 10000);
    request();
    factory.disposeMmsClient(client);
    processPendingEvents();
    EXPECT_FALSE(client);
    EXPECT_TRUE(_clients.clients().isEmpty());
    EXPECT_EQ(done.size(), 0);
}

TEST_F(HttpMmsClientTest, GetHeaderWaitsForTheHeaderAlone)
{
    struct Case {
        std::function<void()> server;
        bool expected;
    };
    Case const cases[] = {
        {[this] { answerDescribe(); }, true},
        {[this] {
             request();
             http()->finish(HttpClient::HostNotFound);
         },
         false},
        {[this] { _timers.advance(3000); }, false},
    };
    for (Case const& c : cases) {
        QTimer::singleShot(0, _client.get(), c.server);
        QByteArray header = "before";
        EXPECT_EQ(_client->getHeader(QUrl("http://h/live"), 3000, header), c.expected);
        EXPECT_EQ(header.startsWith(QByteArray::fromHex("6265666f72653026b275")), c.expected);
        _timers.advance(60000);
        EXPECT_TRUE(_clients.clients().isEmpty());
        EXPECT_EQ(_client->state(), MmsClient::Unconnected);
    }
}

TEST(HttpMmsClient, PlaysOverTheNetwork)
{
    HttpTestServer server;
    QtHttpClientFactory clients;
    QtTimerFactory timers;
    FixedDateTime dateTime;
    SystemTickCounter ticks;
    SortedMemoQueue queue(&ticks, &timers);
    HttpMmsClient client(guid, &clients, &timers, &dateTime, &queue);
    QByteArray received;
    QSignalSpy const done(&client, &MmsClient::done);
    QObject::connect(&client, &MmsClient::onData, [&](QByteArray const& packet) { received += packet; });
    client.connectToServer(QUrl(QString("mms://127.0.0.1:%1/live").arg(server.port())), {}, 10000);
    QByteArray const header = chunk('H', asfHeader());
    server.answer("HTTP/1.0 200 OK\r\nPragma: client-id=5\r\n\r\n" + header);
    server.close();
    HttpTestServer::Request const play = server.takeRequest();
    EXPECT_EQ(play.lines.first(), "GET /live HTTP/1.1");
    EXPECT_EQ(play.lines.join('\n').count("\nPragma: "), 6);
    server.send("HTTP/1.0 200 OK\r\n\r\n");
    server.sendByteByByte(chunk('D', QByteArray(50, 'a')) + chunk('D', "b"));
    EXPECT_TRUE(processEventsUntil([&] { return received == QByteArray(50, 'a') + QByteArray(3150, '\0'); }));
    server.send(endChunk(0));
    EXPECT_TRUE(processEventsUntil([&] { return done.size() == 1 && server.allClosed(); }));
    EXPECT_EQ(done.first().first().value<MmsClient::MmsClientError>(), MmsClient::EndOfStream);
}
