#include "Clips.h"
#include "EventLoop.h"
#include "HttpTestServer.h"
#include "SoapAllowedChannels.h"
#include "SoapLogin.h"
#include "SoapMessages.h"
#include "SoapSignup.h"
#include "SoapTransport.h"
#include "SoapUserChannels.h"

#include <QNetworkProxy>
#include <QSignalSpy>
#include <QSslConfiguration>
#include <QSslKey>
#include <QSslServer>

#include <cstdlib>
#include <gtest/gtest.h>

namespace
{

QByteArray envelope(QByteArray const& body)
{
    return "<?xml version='1.0' encoding='utf-8'?>\n"
           "<s:Envelope xmlns:s='http://schemas.xmlsoap.org/soap/envelope/'><s:Header><x/></s:Header>"
           "<s:Body>" +
           body + "</s:Body></s:Envelope>";
}

QByteArray http(QByteArray const& body, QByteArray const& status = "200 OK")
{
    return "HTTP/1.1 " + status + "\r\nContent-Type: text/xml\r\nContent-Length: " + QByteArray::number(body.size()) +
           "\r\n\r\n" + body;
}

class SoapTest : public testing::Test
{
protected:
    SoapService service(char const* scheme = "http")
    {
        return SoapService::at(Uri(QString("%1://127.0.0.1:%2/").arg(scheme).arg(_server.port())), &_manager);
    }

    HttpTestServer _server;
    QNetworkAccessManager _manager;
};

} // namespace

TEST_F(SoapTest, ACallIsOneElementWithItsArgumentsAndTheListInTheAnswerIsRead)
{
    // What stays on this machine takes no way around.
    _manager.setProxy(QNetworkProxy(QNetworkProxy::HttpProxy, "192.0.2.1", 3128));
    SoapUserChannels channels(service());
    QSignalSpy found(&channels, &SoapUserChannels::getUserChannelsCompleted);
    channels.getUserChannels("<\"Ö & 月\">  ", 2, "node");
    channels.getTopUserChannels("dropped: one is under way");
    HttpTestServer::Request const request = _server.takeRequest();
    EXPECT_EQ(request.lines.constFirst(), "POST /client/api HTTP/1.1");
    QByteArray const head = request.lines.join('\n').toLower();
    EXPECT_TRUE(head.contains("\nsoapaction: \"urn:getuserstreams\"\n")) << head.constData();
    EXPECT_TRUE(head.contains("\ncontent-type: text/xml; charset=utf-8")) << head.constData();
    EXPECT_TRUE(request.body.contains("GetUserStreams><Query>&lt;&quot;Ö &amp; 月&quot;&gt;  </Query><Page>2</Page>"
                                      "<node_identifier>node</node_identifier></"))
        << request.body.constData();
    EXPECT_TRUE(request.body.contains("=\"urn:GetUserStreams\""));
    _server.send(
        http(envelope("<a:GetUserStreamsResponse xmlns:a='urn:GetUserStreams'><a:anyName>"
                      "<total_entries> 7 </total_entries>\n<user_streams><row><id>1</id><name>A &amp; B</name>"
                      "<has_chat>1</has_chat><rating_average>4.5</rating_average><logo_url xmlns:i='i' "
                      "i:nil='true'>x</logo_url></row><row/></user_streams></a:anyName>"
                      "</a:GetUserStreamsResponse>")));
    ASSERT_TRUE(processEventsUntil([&] { return !found.isEmpty(); }));
    EXPECT_FALSE(channels.isWaitingForResponse());
    auto const list = found[0][1].value<QList<SoapUserChannel>>();
    ASSERT_EQ(list.size(), 2);
    EXPECT_EQ(found[0][0], 7);
    EXPECT_EQ(list[0].name + list[0].logoUrl, "A & B");
    EXPECT_TRUE(list[0].hasChat);
    EXPECT_EQ(list[0].ratingAverage, 4.5);
    EXPECT_EQ(list[1], SoapUserChannel());
    EXPECT_EQ(_server.connectionCount(), 1);
}

TEST_F(SoapTest, EachAnswerThatIsNoneIsToldInWords)
{
    QByteArray const empty = envelope("<GetMessagesResponse/>");
    struct Case {
        QByteArray answer;
        char const* text;
    };
    Case const cases[] = {
        {http(envelope("<s:Fault><faultcode>s:Server</faultcode><faultstring>Come back at 8</faultstring></s:Fault>"),
              "500 Internal Server Error"),
         "Come back at 8"},
        {http(envelope("<s:Fault/>")), "The service reports a fault and does not say which."},
        {http(empty), "The answer of the service is empty."},
        {http(envelope("<RegisterResponse><r>x</r></RegisterResponse>")),
         "The answer of the service cannot be read: it is no answer to GetMessages."},
        {http("<html><body>Welcome to our hotel</body></html>"),
         "The answer of the service cannot be read: it is no answer to GetMessages."},
        {http("<!DOCTYPE x [<!ENTITY a 'b'>]>" + empty),
         "The answer of the service cannot be read: it has a document type."},
        {http(QByteArray("<Envelope><Body>") + QByteArray("<a>").repeated(40)),
         "The answer of the service cannot be read: it has too many parts."},
        {http(empty.chopped(9)), "The answer of the service cannot be read: Premature end of document."},
        {http("no", "503 Overloaded"), "The service answered with the status 503."},
        {"HTTP/1.1 302 Found\r\nLocation: file:///etc/passwd\r\nContent-Length: 0\r\n\r\n",
         "The service answered with the status 302."},
        {"HTTP/1.1 200 OK\r\nContent-Length: 9999999\r\n\r\n" + QByteArray(SoapTransport::maximumBytes + 1, ' '),
         "The answer of the service is too long."},
    };
    SoapMessages messages(service());
    QSignalSpy failed(&messages, &SoapMessages::checkFailed);
    for (Case const& c : cases) {
        messages.checkForMessages("node");
        _server.answer(c.answer);
        ASSERT_TRUE(processEventsUntil([&] { return !failed.isEmpty(); })) << c.text;
        EXPECT_STREQ(qPrintable(failed.takeFirst()[0].toString()), c.text);
    }
    messages.checkForMessages("node");
    for (int i = 0; i < 2; ++i) { // Qt tries twice.
        _server.takeRequest();
        _server.close();
    }
    ASSERT_TRUE(processEventsUntil([&] { return !failed.isEmpty(); }));
    EXPECT_STREQ(qPrintable(failed.takeFirst()[0].toString()), "Connection closed");

    SoapService hasty = service();
    hasty.responseTimeout = 1;
    SoapMessages silence(hasty);
    QSignalSpy given(&silence, &SoapMessages::checkFailed);
    silence.checkForMessages("node");
    ASSERT_TRUE(processEventsUntil([&] { return !given.isEmpty(); }));
    EXPECT_EQ(given[0][0], "The service did not answer in time.");
}

TEST_F(SoapTest, AfterCancellingNothingIsHeardAndTheNextCallGoesOut)
{
    SoapAllowedChannels allowed(service());
    QSignalSpy received(&allowed, &SoapAllowedChannels::allowedChannelsReceived);
    QSignalSpy failed(&allowed, &SoapAllowedChannels::allowedChannelsError);
    allowed.getAllowedChannels("first");
    _server.takeRequest();
    allowed.cancelRequest();
    EXPECT_FALSE(allowed.isWaitingForResponse());
    ASSERT_TRUE(processEventsUntil([&] { return _server.allClosed(); }));
    allowed.getAllowedChannels("second");
    EXPECT_TRUE(_server.takeRequest().body.contains("second"));
    _server.send(
        http(envelope("<GetAllowedChannelsResponse><return><country_id>CH</country_id><channels><item>1</item>"
                      "<item>b</item></channels><ip_address>::1</ip_address></return>"
                      "</GetAllowedChannelsResponse>")));
    ASSERT_TRUE(processEventsUntil([&] { return !received.isEmpty(); }));
    EXPECT_EQ(received[0], (QVariantList{"", "CH", "::1", "", QStringList{"1", "b"}}));
    EXPECT_TRUE(failed.isEmpty());
}

TEST_F(SoapTest, NothingOfAnAccountGoesToAnotherMachineInTheClear)
{
    std::pair<char const*, bool> const cases[] = {
        {"http://localhost:1", true},  {"http://127.9.9.9", true},     {"http://[::1]/base/", true},
        {"https://example.com", true}, {"http://example.com/", false}, {"http://127.0.0.1.example.com", false},
        {"http://192.0.2.1", false},   {"ftp://localhost", false},     {"http:127.0.0.1", false},
    };
    for (auto const& [address, isFine] : cases)
        EXPECT_EQ(SoapService::at(Uri(address), &_manager).refusal().isEmpty(), isFine) << address;
    EXPECT_EQ(SoapService::at(Uri("http://[::1]/base/"), nullptr).url("/client/api"),
              QUrl("http://[::1]/base/client/api"));

    SoapSignup signup(SoapService::at(Uri("http://example.com"), &_manager));
    QSignalSpy completed(&signup, &SoapSignup::signupCompleted);
    signup.signup("ann@example.com", "secret", false);
    signup.cancelRequest();
    signup.signup("ann@example.com", "secret", false);
    EXPECT_TRUE(completed.isEmpty()) << "it comes from the event loop";
    ASSERT_TRUE(processEventsUntil([&] { return !completed.isEmpty(); }));
    EXPECT_TRUE(completed[0][1].toString().startsWith("The service at example.com is not reached over a secure"));
    SoapService trusted = SoapService::at(Uri("http://example.com"), &_manager);
    trusted.allowPlainCredentials = true;
    EXPECT_EQ(trusted.refusal(), "");
}

TEST_F(SoapTest, ACertificateThatNobodyVouchesForEndsTheCallBeforeItIsSent)
{
    QString const key = Clips::scratch("soap-key.pem");
    QString const certificate = Clips::scratch("soap-certificate.pem");
    QString const command = "openssl req -x509 -newkey rsa:2048 -nodes -subj /CN=127.0.0.1 -days 2 -keyout " + key +
                            " -out " + certificate + " 2>/dev/null";
    ASSERT_EQ(std::system(qPrintable(command)), 0);
    QSslConfiguration configuration;
    configuration.setPrivateKey(QSslKey(Clips::bytes(key), QSsl::Rsa));
    configuration.setLocalCertificateChain(QSslCertificate::fromPath(certificate));
    QSslServer server;
    server.setSslConfiguration(configuration);
    ASSERT_TRUE(server.listen(QHostAddress::LocalHost));
    SoapLogin login(SoapService::at(Uri(QString("https://127.0.0.1:%1").arg(server.serverPort())), &_manager));
    QSignalSpy completed(&login, &SoapLogin::loginCompleted);
    login.login({"ann", "secret", "node", "3.2.0"});
    ASSERT_TRUE(processEventsUntil([&] { return !completed.isEmpty(); }));
    QString const text = completed[0][1].value<SoapLoginResponse>().message;
    EXPECT_TRUE(text.startsWith("The service at 127.0.0.1 cannot prove who it is: ")) << qPrintable(text);
    std::unique_ptr<QTcpSocket> const connection(server.nextPendingConnection());
    EXPECT_TRUE(!connection || connection->readAll().isEmpty());
}

TEST_F(SoapTest, ASignInIsSixFieldsAndItsAnswerOffersTheUpdateFirst)
{
    SoapLogin login(service());
    QStringList told;
    SoapLoginResponse response;
    QObject::connect(&login, &SoapLogin::updateAvailable, [&] { told.append("update"); });
    QObject::connect(&login, &SoapLogin::loginCompleted, [&](bool ok, SoapLoginResponse const& r) {
        told.append(ok ? "completed" : "failed");
        response = r;
    });
    login.login({"a b@c", "p w\"ü 月", "node", "3.2.0", true});
    QByteArray const body = _server.takeRequest().body;
    qsizetype const begin = body.indexOf("<login>") + 7;
    QByteArray const line = QByteArray::fromBase64(body.mid(begin, body.indexOf("</login>") - begin));
    EXPECT_TRUE(line.startsWith("a%20b%40c p%20w%22%C3%BC%20%E6%9C%88 node 3.2.0 1-Linux ")) << line.constData();
    EXPECT_EQ(line.count(' '), 5);
    _server.send(
        http(envelope("<LoginWithErrorHandlingResponse><return><authenticated>true</authenticated>"
                      "<update_version>3.3.0</update_version><chat_allowed>true</chat_allowed>"
                      "<roles><item><id>3</id><title>Moderator</title><variables>a=1; b = x=y\nc=3</variables>"
                      "</item></roles></return></LoginWithErrorHandlingResponse>")));
    ASSERT_TRUE(processEventsUntil([&] { return told.size() == 2; }));
    EXPECT_EQ(told, (QStringList{"update", "completed"}));
    EXPECT_TRUE(response.authenticated && response.chatAllowed && response.showSponsorship);
    EXPECT_EQ(response.multiviewChannels, -1);
    ASSERT_EQ(response.roles.size(), 1);
    EXPECT_EQ(response.roles[0].valueForVariable("b"), "x=y");
    EXPECT_TRUE(response.roles[0].valueForVariable("d").isNull());
}

TEST(SoapSignup, TheAnswerListsWhatIsWrong)
{
    std::pair<char const*, char const*> const cases[] = {
        {"<response/>", ""},
        {" <errors><error>Too short</error><error> No &lt;b> </error></errors>", "Too short\nNo <b>"},
        {"<errors><error/></errors>", "The service made no account and does not say why."},
        {"", "Error parsing response"},
        {"<errors><error>cut", "Error parsing response"},
        {"<!DOCTYPE a><response/>", "Error parsing response"},
        {"<welcome/>", "Error parsing response"},
    };
    for (auto const& [reply, errors] : cases)
        EXPECT_EQ(SoapSignup::errorsIn(reply), errors) << reply;
}
