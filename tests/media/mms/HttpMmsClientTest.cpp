#include "HttpMmsClient.h"

#include "AsfStreamFilter.h"
#include "DateTimeBuilder.h"
#include "EventLoop.h"
#include "FakeHttpClientFactory.h"
#include "FakeTimerFactory.h"
#include "HttpMmsRequest.h"
#include "HttpTestServer.h"
#include "MmsTestSupport.h"
#include "QtHttpClientFactory.h"
#include "SortedMemoQueue.h"

#include <QDateTime>
#include <QPointer>
#include <QSignalSpy>

#include <gmock/gmock.h>

using namespace ChunkBytes;

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

    /// The response to the newest request, whole and without a body.
    void answer(HttpResponseHeader const& header)
    {
        request();
        QPointer<FakeHttpClient> const client = newest();
        client->respond(header);
        client->finish();
    }
    void answerDescribe(QString const& pragma = "client-id=77")
    {
        request();
        newest()->respond(response(200, "Pragma: " + pragma + "\r\n"));
        newest()->receive(header(asfHeader()));
        newest()->finish();
    }
    void describe()
    {
        _client->connectToServer(QUrl("mms://h/live"), {}, 10000);
        answerDescribe();
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
        newest()->receive(metadata("playlist-gen-id=1,broadcast-id=9") + end(1));
        newest()->receive(metadata("playlist-gen-id=01") + end(1)); // The same.
        _timers.advance(0);
        EXPECT_EQ(_client->httpMmsState(), HttpMmsClient::Playing);
        newest()->receive(metadata("playlist-gen-id=2,broadcast-id=9") + end(1));
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
    EXPECT_EQ(_client->streamBitrate(), 464000);

    EXPECT_EQ(ownLines(), "GET /a%20b/live?x=%26 HTTP/1.1\nPragma: stream-switch-count=2\nPragma: client-id=77\n"
                          "Pragma: stream-switch-entry=ffff:1:0 ffff:2:0 \n"
                          "Pragma: no-cache,rate=1.000000,stream-time=0,stream-offset=4294967295:4294967295,"
                          "packet-num=4294967295,max-duration=0\nPragma: xPlayStrm=1\nReferrer: http://r/");
    EXPECT_EQ(_client->state(), MmsClient::Streaming);

    // The server's own limit on silence holds from now on.
    http()->respond(response(200));
    QByteArray const packets = header(asfHeader()) + data(QByteArray(100, 'a')) + data("b");
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
    QByteArray const emptyHeader = asfHeader().first(24) + QByteArray(asfHeader().size() - 24, '\0');
    HttpResponseHeader const none;
    using Http = HttpClient;
    using Mms = MmsClient;
    for (auto const& [header, body, error, expected] :
         {std::tuple(response(200), QByteArray(), Http::UnexpectedClose, Mms::RemoteServerClosed),
          {response(200), end(1), Http::NoError, Mms::RemoteServerClosed},
          {response(200), end(0), Http::NoError, Mms::EndOfStream},
          {response(200), ChunkBytes::header(emptyHeader), Http::NoError, Mms::CouldNotConnected},
          {response(404), "$E page", Http::NoError, Mms::StreamNotAvailable},
          {response(453, {}, "not enough BANDWIDTH"), "", Http::NoError, Mms::BandwidthNotAvailable},
          {response(453, {}, "Other"), "", Http::NoError, Mms::StreamNotAvailable},
          {none, "", Http::HostNotFound, Mms::CouldNotResolveServer},
          {none, "", Http::ConnectionRefused, Mms::CouldNotConnected},
          {none, "", Http::InvalidResponseHeader, Mms::UnknownError},
          {none, "", Http::AuthenticationRequiredError, Mms::AuthenticationRequiredError},
          {none, "", Http::ProxyAuthenticationRequiredError, Mms::ProxyAuthenticationRequiredError}}) {
        _done.clear();
        describe();
        request();
        QPointer<FakeHttpClient> const client = http();
        if (header.isValid())
            client->respond(header);
        client->receive(body);
        if (_done.isEmpty())
            client->finish(error);
        EXPECT_EQ(errors(), Errors{expected}) << header.statusCode() << " " << error;
        EXPECT_TRUE(_client->state() == Mms::Unconnected && _client->error() == expected);
        EXPECT_TRUE(_clients.clients().isEmpty());
    }
    _client->connectToServer(QUrl("http://h/live"), {}, 10000); // After sessions that filled the selection.
    answer(response(453, {}, "Not Enough Bandwidth"));
    EXPECT_TRUE(ownLines().startsWith("GET /live HTTP/1.1\nPragma: stream-switch-count=0\nPragma: no-cache"));
}

TEST_F(HttpMmsClientTest, FollowsRedirections)
{
    for (auto const& [location, path, host, port] : {std::tuple("http://b/other", "/other", "b", 80),
                                                     {"http://b:99/other?", "/other?key=1&x", "b", 99},
                                                     {"more?r=2", "/more?r=2", "a", 8080}}) {
        _client->connectToServer(QUrl("http://a:8080/live?key=1&x"), "http://r/", 10000);
        answer(response(302, QString("Location: ") + location + "\r\n"));
        EXPECT_EQ(request().header.path(), path);
        EXPECT_EQ(http()->host(), host);
        EXPECT_EQ(http()->port(), port);
        EXPECT_EQ(request().header.value("Referrer"), "http://r/");
    }
}

TEST_F(HttpMmsClientTest, DetoursWithoutEndAreNotFollowed)
{
    for (auto const& [header, delay] :
         {std::pair(response(302, "Location: /live\r\n"), 0), {response(204), HttpMmsClient::noContentDelay}}) {
        _done.clear();
        _client->connectToServer(QUrl("http://h/live"), {}, 10000);
        for (int i = 0; i <= HttpMmsClient::maximumDetours; ++i) {
            EXPECT_EQ(_done.size(), 0) << i;
            answer(header);
            EXPECT_TRUE(delay == 0 || _clients.clients().isEmpty());
            _timers.advance(delay);
        }
        EXPECT_EQ(errors(), Errors{MmsClient::StreamNotAvailable});
    }
}

TEST_F(HttpMmsClientTest, WhatIsNotReadWaitsAndAFloodIsLeft)
{
    play();
    _client->setReading(false);
    newest()->receive(data("a") + data("b"));
    newest()->finish(HttpClient::UnexpectedClose);
    EXPECT_EQ(_data.size() + _done.size(), 0);
    _client->setReading(true);
    QCoreApplication::processEvents();
    EXPECT_EQ(_data.size(), 1);
    EXPECT_EQ(errors(), Errors{MmsClient::RemoteServerClosed});

    _done.clear();
    play();
    QByteArray const flood = metadata("").repeated(8192);
    for (qint64 sent = 0; sent <= HttpMmsRequest::maximumUselessBytes; sent += flood.size()) {
        EXPECT_EQ(_done.size(), 0) << sent;
        newest()->receive(flood);
    }
    EXPECT_EQ(_done.size(), 1);
}

TEST_F(HttpMmsClientTest, TheLastWordsOutliveTheClient)
{
    QtHttpClientFactory network;
    HttpTestServer server;
    auto farewells = std::make_unique<MmsFarewells>(&network, 60000); // A busy machine says them late.
    _client->setFarewells(farewells.get());
    QUrl const url(QString("http://127.0.0.1:%1/live").arg(server.port()));
    _client->connectToServer(url, {}, 10000);
    answerDescribe();
    request();
    newest()->respond(response(200));
    _client->disconnectFromServer();
    _client.reset();
    EXPECT_TRUE(server.takeRequest().lines.contains("Pragma: xStopStrm=1"));
    server.send("HTTP/1.1 200 OK\r\nContent-Length: 0\r\n\r\n");
    EXPECT_TRUE(server.takeRequest().body.startsWith("<XML>"));
    server.send("HTTP/1.1 200 OK\r\nContent-Length: 0\r\n\r\n");
    farewells->say(url, {{HttpRequestHeader("GET", "/another"), {}}}); // To the thread that runs by now.
    EXPECT_EQ(server.takeRequest().lines.first(), "GET /another HTTP/1.1");
    server.send("HTTP/1.1 200 OK\r\nContent-Length: 0\r\n\r\n");
    farewells.reset(); // Waits for the end.
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
    answer(response(200));
    EXPECT_EQ(_client->httpMmsState(), HttpMmsClient::Playing);
    stream->receive(data("a") + data("b"));
    EXPECT_EQ(_data.size(), 1);
    EXPECT_EQ(http(), stream);
}

TEST_F(HttpMmsClientTest, AStreamThatEndsDuringTheSelectionHasEndedAndAResetOneBeginsAnew)
{
    for (bool const isReset : {false, true}) {
        _done.clear();
        play();
        QPointer<FakeHttpClient> const stream = http();
        changePlaylist();
        request();
        if (!isReset)
            stream->finish();
        EXPECT_EQ(_done.size(), 0);
        answer(response(200, isReset ? "Pragma: xResetStrm=1\r\n" : ""));
        EXPECT_EQ(errors(), isReset ? Errors() : Errors{MmsClient::RemoteServerClosed});
        EXPECT_TRUE(!stream || !_clients.clients().contains(stream));
    }
    EXPECT_EQ(ownLines(), "GET /live HTTP/1.1\nPragma: no-cache,rate=1.000000,stream-time=0,"
                          "stream-offset=0:0,packet-num=4294967295,max-duration=0");
}

TEST_F(HttpMmsClientTest, LeavesAStreamWithAStopAndAReport)
{
    play();
    _client->setGUID("{ffffffff-89ab-cdef-0123-456789abcdef}");
    _client->disconnectFromServer();
    ASSERT_TRUE(http()) << "the stream is not read on";
    EXPECT_EQ(ownLines(), "POST /live HTTP/1.1\nPragma: xStopStrm=1\nContent-Length: 0");
    EXPECT_EQ(_done.size(), 0);
    answer(response(200));
    EXPECT_EQ(errors(), Errors{MmsClient::NoError});
    FakeHttpClient::Sent const report = request();
    EXPECT_TRUE(report.header.toString().contains("xClientGUID={ffffffff-89ab-cdef-0123-456789abcdef}"));
    EXPECT_TRUE(report.body.contains("<date>2011-02-03</date><time>"));
    EXPECT_TRUE(report.body.endsWith("<cs-url>mms://h/live</cs-url><ContentDescription></ContentDescription></XML>"));
    answer(response(200));
    _timers.advance(60000);
    EXPECT_TRUE(_clients.clients().isEmpty()) << "the end of the report begins no session";
    EXPECT_EQ(_done.size(), 1);
}

TEST_F(HttpMmsClientTest, LeavingWithoutAStreamLeavesNothingBehind)
{
    for (bool const isDescribed : {false, true}) {
        _client->connectToServer(QUrl("http://h/live"), {}, 10000);
        if (isDescribed)
            answerDescribe();
        _client->disconnectFromServer();
        _timers.advance(60000);
        EXPECT_TRUE(_clients.clients().isEmpty() && _client->state() == MmsClient::Unconnected && _done.isEmpty());
    }
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
        client->receive(data("a") + data("b") + data("c") + end(0));
        EXPECT_FALSE(_client);
        EXPECT_TRUE(_clients.clients().isEmpty());
        processPendingEvents();
    }
}
