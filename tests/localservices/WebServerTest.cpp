#include "WebServer.h"

#include "ApiCall.h"
#include "ApiDescription.h"
#include "ApiNames.h"
#include "ChannelLogo.h"
#include "DirectoryFixture.h"
#include "LogInText.h"
#include "LoopbackClient.h"
#include "TickCounter.h"
#include "WebConnection.h"

namespace
{
class WebServerTest : public DirectoryFixture
{
protected:
    void SetUp() override { ASSERT_TRUE(server.listen(QHostAddress::LocalHost, 0)); }

    static QByteArray get(QByteArray const& path, QByteArray const& more = {})
    {
        return "GET " + path + " HTTP/1.1\r\nHost: 127.0.0.1\r\n" + more + "\r\n";
    }

    WebFaultPlan faults;
    WebServer::Reply waiting; ///< For the path /later.
    WebServer server{{[this](WebRequest const& request, WebServer::Reply const& reply) {
                          if (request.path == "/later")
                              waiting = reply;
                          else
                              reply(WebAnswer::text(200, request.path + ' ' + request.host + ' ' + request.body));
                      },
                      [](WebRequest const&) { return QString("Method"); },
                      [](QString const& text) { return WebAnswer::text(500, text); }},
                     faults,
                     clock,
                     timers};
};

QByteArray envelope(QByteArray const& body, QByteArray const& space = ApiNames::envelope)
{
    return "<s:Envelope xmlns:s='" + space + "'><s:Header><x/></s:Header><s:Body>" + body + "</s:Body></s:Envelope>";
}
} // namespace

TEST_F(WebServerTest, AnswersRequestsOfOneConnectionAndOfHostsThatAreNone)
{
    LoopbackClient client(server.port());
    client.say(get("/a%20b?c"));
    EXPECT_TRUE(client.waitFor("/a b 127.0.0.1 \n"));
    client.say("POST /p HTTP/1.1\r\nHost: <x>\r\nContent-Length: 4\r\n\r\nbody");
    EXPECT_TRUE(client.waitFor("/p 127.0.0.1 body"));
    client.say(get("/later"));
    EXPECT_TRUE(processEventsUntil([&] { return waiting != nullptr; }));
    client.say(get("/impatient"));
    EXPECT_TRUE(client.waitForEnd()) << "it sends more before it has been answered";
    waiting(WebAnswer::text(200, "too late"));
    LoopbackClient last(server.port());
    last.say(get("/x", "Connection: close\r\n"));
    EXPECT_TRUE(last.waitForEnd());
    EXPECT_TRUE(last.heard().endsWith("/x 127.0.0.1 \n"));
}

TEST_F(WebServerTest, BoundsWhatARequestMayTake)
{
    QByteArray const longLine(WebConnection::maximumRequest + 1, 'x');
    for (QByteArray const& bytes :
         QByteArrayList{get("/" + longLine), get("/", "A: " + longLine + "\r\n"), longLine,
                        "POST / HTTP/1.1\r\nContent-Length: 9000000000000000000\r\n\r\n" + longLine,
                        "POST / HTTP/1.1\r\nTransfer-Encoding: chunked\r\n\r\n7fffffffffffffff\r\n" + longLine,
                        "POST / HTTP/1.1\r\nContent-Length: -5\r\n\r\nhello", get("/a") + get("/b")}) {
        LoopbackClient client(server.port());
        client.say(bytes);
        EXPECT_TRUE(client.waitForEnd()) << bytes.left(40).constData();
        EXPECT_FALSE(client.heard().contains("HTTP/1.1 200")) << bytes.left(40).constData();
    }
    LoopbackClient mute(server.port());
    LoopbackClient slow(server.port());
    slow.say("GET / HTTP/1.1\r\n");
    ASSERT_TRUE(processEventsUntil([&] { return server.connectionCount() == 2; }));
    timers.advance(2 * WebConnection::msForRequest);
    EXPECT_TRUE(mute.waitForEnd());
    EXPECT_TRUE(slow.waitForEnd());
}

TEST_F(WebServerTest, GoesWrongAsAskedFor)
{
    QString error;
    for (char const* const line :
         {"", "/x", "/x 200", "/x slow", "/x slow -1", "/x silent now", "/x 500 times 0", "/x odd"})
        EXPECT_FALSE(WebFault::parse(QString(line).split(' ', Qt::SkipEmptyParts), error)) << line;
    auto const add = [&](char const* line) {
        auto const fault = WebFault::parse(QString(line).split(' '), error);
        ASSERT_TRUE(fault) << qPrintable(error);
        EXPECT_EQ(fault->toText(), line);
        faults.add(*fault);
    };
    add("/slow slow 5000 times 1");
    add("Method fault out of order times 1");
    LoopbackClient client(server.port());
    client.say(get("/slow"));
    ASSERT_TRUE(processEventsUntil([&] { return faults.toText().size() == 1; }));
    timers.advance(4999);
    processPendingEvents();
    EXPECT_EQ(client.heard(), "");
    timers.advance(1);
    EXPECT_TRUE(client.waitFor("/slow"));
    client.say(get("/x"));
    EXPECT_TRUE(client.waitFor("out of order"));
    server.goAway(3000);
    EXPECT_TRUE(client.waitForEnd());
    LoopbackClient early(server.port());
    EXPECT_TRUE(early.waitForEnd());
    timers.advance(3000);
    LoopbackClient back(server.port());
    back.say(get("/back"));
    EXPECT_TRUE(back.waitFor("/back"));
}

TEST(ApiCall, ReadsCallsAndTellsWhatIsNone)
{
    QString error;
    auto const call = ApiCall::read(
        envelope("<m:Say xmlns:m='urn:Say'><what a='b'>1 &lt; <![CDATA[<2>]]></what><to/></m:Say>"), error);
    ASSERT_TRUE(call) << qPrintable(error);
    EXPECT_EQ(call->argument("what"), "1 < <2>");
    EXPECT_EQ(call->method, "Say");
    QByteArray deep = "<Say xmlns='urn:Say'>";
    for (int i = 0; i < 100'000; ++i)
        deep += "<a>";
    for (QByteArray const& xml :
         QByteArrayList{{},
                        "<html/>",
                        envelope({}),
                        envelope("<Say/>"),
                        envelope("<Say xmlns='urn:Other'/>"),
                        envelope(deep),
                        envelope("<Say xmlns='urn:Say'/><Go xmlns='urn:Go'/>"),
                        envelope("<Say xmlns='urn:Say'><a><b/></a></Say>"),
                        envelope("<Say xmlns='urn:Say'/>", "http://www.w3.org/2003/05/soap-envelope"),
                        "<!DOCTYPE x [<!ENTITY a 'aaaa'>]>" + envelope("<Say xmlns='urn:Say'><b>&a;</b></Say>"),
                        envelope("<Say xmlns='urn:Say'/>") + "more"})
        EXPECT_FALSE(ApiCall::read(xml, error)) << xml.left(80).constData();
}

TEST(LogInText, TakesSixFieldsWithAnyLetters)
{
    auto const read = [](QByteArray const& text) { return LogInText::read(QString::fromLatin1(text.toBase64())); };
    auto const login = read("ann%40a.b p%20w%C3%A4 node 3.2.0 1-Linux x86_64");
    ASSERT_TRUE(login);
    EXPECT_EQ(login->password, QString::fromUtf8("p wä"));
    EXPECT_TRUE(login->isAutomatic);
    for (QByteArray const text :
         {"", "a b c", "a b c d 1Linux x", "a b c d 2-Linux x", "a b  d 1-Linux x", "a b c d 1-L x y"})
        EXPECT_FALSE(read(text)) << text.constData();
    EXPECT_FALSE(LogInText::read("!!!"));
}

TEST(ChannelLogo, EachIsAnother)
{
    QList<QImage> logos;
    for (int i = 0; i < 50; ++i) {
        QImage const logo = ChannelLogo::draw(QString("channel%1").arg(i));
        EXPECT_FALSE(logos.contains(logo));
        logos.append(logo);
    }
    EXPECT_EQ(QImage::fromData(ChannelLogo::png("one"), "PNG").size(), QSize(ChannelLogo::size, ChannelLogo::size));
}
