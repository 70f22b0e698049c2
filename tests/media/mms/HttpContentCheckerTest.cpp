#include "HttpContentChecker.h"

#include "EventLoop.h"
#include "FakeHttpClientFactory.h"
#include "FakeTimerFactory.h"
#include "MmsPragmas.h"
#include "MmsTestSupport.h"

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

    /// Runs one check against one answer.
    void check(HttpResponseHeader const& header, QByteArray const& body = {}, bool ends = true)
    {
        _finished = 0;
        _checker.cancel();
        EXPECT_TRUE(_clients.clients().isEmpty() && _timers.timers().isEmpty());
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
    for (auto const& [url, host, port, path] : {std::tuple("http://h/a%20b/c?d=%26&e", "h", 80, "/a%20b/c?d=%26&e"),
                                                {"MMS://h:8080?x", "h", 8080, "/?x"},
                                                {"https://h", "h", 0, "/"}}) {
        _checker.check(url, "http://r/", "{guid}", 1000);
        EXPECT_EQ(client().host(), host);
        EXPECT_EQ(client().port(), port);
        EXPECT_EQ(client().mode() == HttpClient::ConnectionModeHttps, port == 0);
        EXPECT_EQ(client().sent().last().header.toString(),
                  QString("GET ") + path +
                      " HTTP/1.1\r\nHost: h\r\nUser-Agent: NSPlayer/11.0.5721.5145\r\nAccept: */*\r\n"
                      "Supported: com.microsoft.wm.srvppair, com.microsoft.wm.sswitch, com.microsoft.wm.predstrm, "
                      "com.microsoft.wm.startupprofile\r\nPragma: no-cache\r\nPragma: xClientGUID={guid}\r\n"
                      "Referrer: http://r/\r\n\r\n");
    }
}

TEST_F(HttpContentCheckerTest, TellsStreamsFilesAndPlaylistsApart)
{
    using Checker = HttpContentChecker;
    for (auto const& [type, body, expected] :
         {std::tuple("application/vnd.ms.wms-hdr.asfv1", QByteArray(), Checker::MmsStream),
          {"application/x-mms-framed", "", Checker::MmsStream},
          {"Application/Octet-Stream; x=y", "", Checker::MmsStream},
          {"audio/mpeg", "asx", Checker::PlainFile},
          {"video/x-ms-asf", "<ASX", Checker::PlaylistDocument},
          {"video/x-ms-asf", QByteArray::fromHex("3026b2758e66cf11a6d900aa0062ce6c") + "reference",
           Checker::PlainFile},
          {"audio/x-ms-wax; charset=utf-8", "[Reference]", Checker::PlaylistDocument},
          {"text/plain", QByteArray("<\0a\0s\0x\0>\0", 10), Checker::PlaylistDocument},
          {"", "<asx>", Checker::PlaylistDocument}}) {
        check(response(200, *type ? QString("Content-Type: ") + type + "\r\n" : QString()), body);
        EXPECT_EQ(_answer.contentType, expected) << type << body.constData();
        EXPECT_TRUE(_finished == 1 && !_failed && _clients.clients().isEmpty() && _timers.timers().isEmpty());
    }
    for (auto const& [type, body] : {std::pair("text/plain", "nothing"), {"application/json", "<asx>"}}) {
        check(response(200, QString("Content-Type: ") + type + "\r\n"), body);
        EXPECT_EQ(_finished, 0) << type << "is to be tried again";
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
    EXPECT_EQ(_answer.body.size(), HttpContentChecker::maximumBodyBytes);
    EXPECT_TRUE(_clients.clients().isEmpty());
}

TEST_F(HttpContentCheckerTest, FollowsRedirectionsUnderTheFirstKey)
{
    for (auto const& [location, asked] :
         {std::pair("http://b/other", "b/other?q=1"), {"/other?r=2", "a/other?r=2"}, {"mms://b:99/x", "b/x?q=1"}}) {
        _finished = 0;
        _checker.check("mms://a/live?q=1", {}, {}, 1000);
        client().respond(response(302, QString("Location: ") + location + "\r\n"));
        ASSERT_EQ(_clients.clients().size(), 1);
        EXPECT_EQ(client().host() + client().sent().last().header.path(), asked);
        client().respond(response(200, "Content-Type: application/octet-stream\r\n"));
        EXPECT_EQ(_finished, 1);
        EXPECT_EQ(_answer.key, "mms://a/live?q=1");
    }
    _finished = 0;
    _checker.check("http://a/", {}, {}, 1000);
    for (int i = 0; i <= HttpContentChecker::maximumRedirections; ++i)
        client().respond(response(302, "Location: /\r\n"));
    EXPECT_TRUE(_finished == 1 && _failed);
}

TEST_F(HttpContentCheckerTest, TriesAgainAsOftenAsTheAnswerDeserves)
{
    std::pair<std::function<void()>, int> const cases[] = {
        {[this] { client().finish(HttpClient::ConnectionRefused); }, HttpContentChecker::maximumTries},
        {[this] { client().respond(response(200, "Content-Type: application/json\r\n")); },
         HttpContentChecker::maximumAnsweredTries},
        {[this] { _timers.advance(_timers.timers().last()->interval()); }, HttpContentChecker::maximumSilentTries},
        {[this] { // A page that stalls.
             client().respond(response(200, "Content-Type: text/html\r\n"));
             _timers.advance(_timers.timers().last()->interval());
         },
         HttpContentChecker::maximumAnsweredTries},
        {[this] { client().respond(response(404)); }, 1},
    };
    for (auto const& [answer, tries] : cases) {
        SCOPED_TRACE(tries);
        _finished = 0;
        _checker.check("http://a/", {}, {}, 1000);
        for (int i = 0; i < tries; ++i) {
            ASSERT_EQ(_finished, 0);
            ASSERT_EQ(_clients.clients().size(), 1);
            EXPECT_EQ(_timers.timers().last()->interval(), 1000 << i);
            answer();
        }
        EXPECT_TRUE(_finished == 1 && _failed && _clients.clients().isEmpty());
    }
}

TEST_F(HttpContentCheckerTest, WhatCannotBeAskedFailsFromTheEventLoop)
{
    for (QString const url : {"", "http://", "rtsp://h/x", "http://h:99999/"}) {
        _finished = 0;
        _checker.check(url, {}, {}, 1000);
        EXPECT_EQ(_finished, 0);
        processPendingEvents();
        EXPECT_TRUE(_finished == 1 && _failed && _answer.key == url) << qPrintable(url);
    }
}

TEST(MmsPragmas, ReadsOnlyWhatMakesSense)
{
    auto const pragmas = [](QString const& value) {
        return MmsPragmas::of(response(200, "Pragma: " + value + "\r\n"));
    };
    EXPECT_TRUE(pragmas("client-id=3158,features=\"broadcast,playlist\",timeout=60000").isPlaylist);
    EXPECT_FALSE(pragmas("playlist,features=\"seekable\",client-id=").isPlaylist);
    EXPECT_EQ(pragmas("client-id=1 2\t3").clientId, "123");
    EXPECT_EQ(pragmas("client-id=" + QString(30000, '7')).clientId.size(), MmsPragmas::maximumIdLength);
    EXPECT_EQ(pragmas("timeout=-5").timeout, 0);
    EXPECT_EQ(pragmas("timeout=1").timeout, MmsPragmas::minimumTimeout);
    EXPECT_EQ(pragmas("timeout=2147483647").timeout, MmsPragmas::maximumTimeout);
}
