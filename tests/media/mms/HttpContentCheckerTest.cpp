#include "HttpContentChecker.h"

#include "EventLoop.h"
#include "FakeHttpClientFactory.h"
#include "FakeTimerFactory.h"
#include "HttpMmsTestSupport.h"
#include "HttpTestServer.h"
#include "LogCapture.h"
#include "MmsPragmas.h"
#include "QtHttpClientFactory.h"
#include "QtTimerFactory.h"

#include <gmock/gmock.h>

namespace
{

class HttpContentCheckerTest : public testing::Test
{
protected:
    HttpContentCheckerTest()
    {
        QObject::connect(&_checker, &HttpContentChecker::finished, &_checker,
                         [this](HttpContentChecker::CheckResponse const& answer, bool failed) {
                             _answer = answer;
                             _failed = failed;
                             ++_finished;
                         });
    }

    /// The newest request. Each has a client of its own.
    FakeHttpClient& client() { return *_clients.clients().last(); }
    QString path() { return client().sent().last().header.path(); }

    /// Runs one check against one answer.
    void check(HttpResponseHeader const& header, QByteArray const& body = {}, bool ends = true)
    {
        _finished = 0;
        _checker.cancel();
        _checker.check("http://h/live", {}, {}, 1000);
        client().respond(header);
        if (!body.isEmpty() && !_clients.clients().isEmpty())
            client().receive(body);
        if (ends && !_clients.clients().isEmpty())
            client().finish();
    }

    FakeTickCounter _clock;
    FakeTimerFactory _timers{_clock};
    FakeHttpClientFactory _clients;
    HttpContentChecker _checker{&_clients, &_timers};
    HttpContentChecker::CheckResponse _answer;
    bool _failed = false;
    int _finished = 0;
};

} // namespace

TEST_F(HttpContentCheckerTest, AsksAsAWindowsMediaClientDoes)
{
    struct Case {
        char const* url;
        char const* host;
        int port;
        char const* path;
        HttpClient::ConnectionMode mode;
    };
    Case const cases[] = {
        {"http://h/a%20b/c?d=%26&e", "h", 80, "/a%20b/c?d=%26&e", HttpClient::ConnectionModeHttp},
        {"mms://h", "h", 80, "/", HttpClient::ConnectionModeHttp},
        {"MMS://h:8080?x", "h", 8080, "/?x", HttpClient::ConnectionModeHttp},
        {"https://h/x", "h", 0, "/x", HttpClient::ConnectionModeHttps},
    };
    for (Case const& c : cases) {
        _checker.check(c.url, "http://r/", "{guid}", 1000);
        EXPECT_EQ(client().host(), c.host);
        EXPECT_EQ(client().port(), c.port);
        EXPECT_EQ(client().mode(), c.mode);
        EXPECT_EQ(client().sent().last().header.toString(),
                  QString("GET ") + c.path +
                      " HTTP/1.1\r\nHost: h\r\nUser-Agent: NSPlayer/11.0.5721.5145\r\nAccept: */*\r\n"
                      "Supported: com.microsoft.wm.srvppair, com.microsoft.wm.sswitch, com.microsoft.wm.predstrm, "
                      "com.microsoft.wm.startupprofile\r\nPragma: no-cache\r\nPragma: xClientGUID={guid}\r\n"
                      "Referrer: http://r/\r\n\r\n");
    }
}

TEST_F(HttpContentCheckerTest, TellsStreamsFilesAndPlaylistsApart)
{
    struct Case {
        char const* type;
        QByteArray body;
        HttpContentChecker::ContentType expected;
    };
    QByteArray const asf = QByteArray::fromHex("3026b2758e66cf11a6d900aa0062ce6c") + "reference";
    Case const cases[] = {
        {"application/vnd.ms.wms-hdr.asfv1", "", HttpContentChecker::MmsStream},
        {"application/x-mms-framed", "", HttpContentChecker::MmsStream},
        {"Application/Octet-Stream; x=y", "", HttpContentChecker::MmsStream},
        {"video/mp4\r\nContent-Type: application/octet-stream", "", HttpContentChecker::PlainFile},
        {"audio/mpeg", "asx", HttpContentChecker::PlainFile},
        {"video/x-ms-wmv", "", HttpContentChecker::PlainFile},
        {"video/x-ms-asf", "<Asx", HttpContentChecker::Unknown},
        {"video/x-ms-asf", "<ASX", HttpContentChecker::PlaylistDocument},
        {"video/x-ms-asf", asf, HttpContentChecker::PlainFile},
        {"video/x-ms-wvx; charset=utf-8", "[Reference]", HttpContentChecker::PlaylistDocument},
        {"audio/x-ms-wax", "<asx>", HttpContentChecker::PlaylistDocument},
        {"text/html", "REFERENCE", HttpContentChecker::PlaylistDocument},
        {"text/plain", QByteArray("<\0a\0s\0x\0>\0", 10), HttpContentChecker::PlaylistDocument},
        {"text/plain", "nothing", HttpContentChecker::Unknown},
        {"application/json", "<asx>", HttpContentChecker::Unknown},
        {nullptr, "<asx>", HttpContentChecker::PlaylistDocument},
        {nullptr, "", HttpContentChecker::Unknown},
    };
    for (Case const& c : cases) {
        check(response(200, c.type ? QString("Content-Type: ") + c.type + "\r\n" : QString()), c.body);
        if (c.expected == HttpContentChecker::Unknown) {
            EXPECT_EQ(_finished, 0) << c.type << "is to be tried again";
            continue;
        }
        EXPECT_EQ(_finished, 1);
        EXPECT_EQ(_answer.contentType, c.expected) << c.type << c.body.constData();
        EXPECT_FALSE(_failed);
        EXPECT_TRUE(_clients.clients().isEmpty());
        EXPECT_TRUE(_timers.timers().isEmpty());
    }
}

TEST_F(HttpContentCheckerTest, LeavesAnswersThatDoNotEnd)
{
    check(response(200, "Content-Type: application/octet-stream\r\nPragma: no-cache,client-id=77,"
                        "features=\"broadcast\",timeout=60000\r\nPragma: xResetStrm=1\r\n"),
          {}, false);
    EXPECT_EQ(_finished, 1);
    EXPECT_TRUE(_answer.isBroadcast && _answer.isLive);
    EXPECT_EQ(_answer.clientId, "77");
    EXPECT_EQ(_answer.streamTimeout, 60000);

    check(response(200, "Content-Type: text/plain\r\n"), "<asx>" + QByteArray(2 << 20, 'x'), false);
    EXPECT_EQ(_finished, 1);
    EXPECT_EQ(_answer.body.size(), HttpContentChecker::maximumBodyBytes);
    EXPECT_TRUE(_clients.clients().isEmpty());
}

TEST_F(HttpContentCheckerTest, FollowsRedirectionsUnderTheFirstKey)
{
    struct Case {
        char const* location;
        char const* host;
        char const* path;
    };
    Case const cases[] = {
        {"http://b/other", "b", "/other?q=1"}, {"/other?r=2", "a", "/other?r=2"}, {"mms://b:99/x", "b", "/x?q=1"}};
    for (Case const& c : cases) {
        _finished = 0;
        _checker.check("mms://a/live?q=1", {}, {}, 1000);
        client().respond(response(302, QString("Location: ") + c.location + "\r\n"));
        EXPECT_EQ(_finished, 0);
        ASSERT_EQ(_clients.clients().size(), 1);
        EXPECT_EQ(client().host(), c.host);
        EXPECT_EQ(path(), c.path);
        client().respond(response(200, "Content-Type: application/octet-stream\r\n"));
        EXPECT_EQ(_finished, 1);
        EXPECT_EQ(_answer.key, "mms://a/live?q=1");
        EXPECT_TRUE(_answer.url.endsWith(c.path)) << qPrintable(_answer.url);
    }
    _finished = 0;
    _checker.check("http://a/", {}, {}, 1000);
    for (int i = 0; i <= HttpContentChecker::maximumRedirections; ++i)
        client().respond(response(302, "Location: /\r\n"));
    EXPECT_EQ(_finished, 1);
    EXPECT_TRUE(_failed);
}

TEST_F(HttpContentCheckerTest, TriesAgainAsOftenAsTheAnswerDeserves)
{
    struct Case {
        char const* name;
        std::function<void(FakeHttpClient&)> answer;
        int tries;
    };
    Case const cases[] = {
        {"refused", [](FakeHttpClient& c) { c.finish(HttpClient::ConnectionRefused); },
         HttpContentChecker::maximumTries},
        {"unknown content", [](FakeHttpClient& c) { c.respond(response(200, "Content-Type: application/json\r\n")); },
         HttpContentChecker::maximumAnsweredTries},
        {"a page that stalls",
         [this](FakeHttpClient& c) {
             c.respond(response(200, "Content-Type: text/html\r\n"));
             _timers.advance(_timers.timers().last()->interval());
         },
         HttpContentChecker::maximumAnsweredTries},
        {"silence", [this](FakeHttpClient&) { _timers.advance(_timers.timers().last()->interval()); },
         HttpContentChecker::maximumSilentTries},
        {"not found", [](FakeHttpClient& c) { c.respond(response(404)); }, 1},
        {"server error", [](FakeHttpClient& c) { c.respond(response(503)); }, 1},
    };
    for (Case const& c : cases) {
        _finished = 0;
        _checker.check("http://a/", {}, {}, 1000);
        for (int i = 0; i < c.tries; ++i) {
            ASSERT_EQ(_finished, 0) << c.name;
            ASSERT_EQ(_clients.clients().size(), 1) << c.name;
            EXPECT_EQ(_timers.timers().last()->interval(), 1000 << i) << c.name;
            c.answer(client());
        }
        EXPECT_EQ(_finished, 1) << c.name;
        EXPECT_TRUE(_failed) << c.name;
        EXPECT_TRUE(_clients.clients().isEmpty()) << c.name;
    }
}

TEST_F(HttpContentCheckerTest, WhatCannotBeAskedFailsFromTheEventLoop)
{
    for (QString const url : {"", "http://", "rtsp://h/x", "file:///etc/passwd", "http://h:99999/", "://"}) {
        _finished = 0;
        _checker.check(url, {}, {}, 1000);
        EXPECT_EQ(_finished, 0);
        processPendingEvents();
        EXPECT_EQ(_finished, 1) << qPrintable(url);
        EXPECT_TRUE(_failed);
        EXPECT_EQ(_answer.key, url);
    }
    EXPECT_TRUE(_clients.clients().isEmpty());
}

TEST_F(HttpContentCheckerTest, CancelStopsAllChecks)
{
    _checker.check("http://a/", {}, {}, 1000);
    _checker.check("http://b/", {}, {}, 1000);
    _checker.check("", {}, {}, 1000);
    _checker.cancel();
    EXPECT_TRUE(_clients.clients().isEmpty());
    EXPECT_TRUE(_timers.timers().isEmpty());
    processPendingEvents();
    EXPECT_EQ(_finished, 0);
}

TEST(HttpContentChecker, LeavesAnEndlessStreamOverTheNetwork)
{
    HttpTestServer server;
    QtHttpClientFactory clients;
    QtTimerFactory timers;
    auto* const checker = new HttpContentChecker(&clients, &timers);
    HttpContentChecker::CheckResponse answer;
    QObject::connect(checker, &HttpContentChecker::finished, checker, [&](auto const& response, bool failed) {
        EXPECT_FALSE(failed);
        answer = response;
        delete checker;
    });
    checker->check(QString("mms://127.0.0.1:%1/live").arg(server.port()), {}, {}, 10000);
    server.answer("HTTP/1.0 200 OK\r\nContent-Type: application/octet-stream\r\n\r\n" + QByteArray(100000, '$'));
    EXPECT_TRUE(processEventsUntil([&] { return answer.contentType != 0 && server.allClosed(); }));
    EXPECT_EQ(answer.contentType, HttpContentChecker::MmsStream);
}

TEST(MmsPragmas, ReadsOnlyWhatMakesSense)
{
    struct Case {
        char const* value;
        char const* clientId;
        int timeout;
        bool isPlaylist;
    };
    Case const cases[] = {
        {"no-cache,client-id=3158,features=\"broadcast,playlist\",timeout=60000", "3158", 60000, true},
        {"client-id=", "", 0, false},
        {"client-id", "", 0, false},
        {"client-id=1 2\t3", "123", 0, false},
        {"timeout=-5", "", 0, false},
        {"timeout=x", "", 0, false},
        {"timeout=1", "", MmsPragmas::minimumTimeout, false},
        {"timeout=2147483647", "", MmsPragmas::maximumTimeout, false},
        {"timeout=99999999999999", "", 0, false},
        {"playlist,features=\"seekable\"", "", 0, false},
    };
    for (Case const& c : cases) {
        MmsPragmas const pragmas = MmsPragmas::of(response(200, QString("Pragma: ") + c.value + "\r\n"));
        EXPECT_EQ(pragmas.clientId, c.clientId) << c.value;
        EXPECT_EQ(pragmas.timeout, c.timeout) << c.value;
        EXPECT_EQ(pragmas.isPlaylist, c.isPlaylist) << c.value;
    }
    QString const longId = "Pragma: client-id=" + QString(30000, '7') + "\r\n";
    EXPECT_EQ(MmsPragmas::of(response(200, longId)).clientId.size(), MmsPragmas::maximumIdLength);
}
