#include "CurlTransfer.h"
#include "QtHttpClientFixture.h"

#include <QAuthenticator>
#include <QDir>
#include <QFile>
#include <QNetworkProxy>
#include <QSignalSpy>

#include <algorithm>
#include <functional>

TEST_F(QtHttpClientTest, ARequestGoesOutExactlyAsGiven)
{
    HttpRequestHeader header("POST", "/a b?c=ÿ\r\nX: y", 1, 0);
    header.addValue("Pragma", "no-cache,rate=1.000");
    header.addValue("Host", "another.host");
    header.addValue("pragma", "xClientGUID={1}");
    header.addValue("Empty", "");
    header.addValue("Evil", "a\r\nInjected: b");
    header.addValue("Content-Length", "99");
    client->request(header, "body");
    HttpTestServer::Request const request = server.takeRequest();
    EXPECT_EQ(request.lines,
              (QList<QByteArray>{"POST /a%20b?c=%C3%BF%0D%0AX:%20y HTTP/1.0", "Pragma: no-cache,rate=1.000",
                                 "Host: another.host", "pragma: xClientGUID={1}", "Empty:", "Evil: a  Injected: b",
                                 "Content-Length: 4"}));
    EXPECT_EQ(request.body, "body");
    EXPECT_EQ(client->state(), HttpClient::Sending);
    EXPECT_EQ(client->currentRequest(), header);
}

TEST_F(QtHttpClientTest, NothingIsAddedThatHttpDoesNotNeed)
{
    QByteArray const host = "Host: 127.0.0.1:" + QByteArray::number(server.port());
    client->post("/p", "x");
    EXPECT_EQ(server.takeRequest().lines,
              (QList<QByteArray>{"POST /p HTTP/1.1", host, "Connection: Keep-Alive", "Content-Length: 1"}));
}

TEST_F(QtHttpClientTest, AResponseEndsAsItShould)
{
    QByteArray const ok = "HTTP/1.1 200 OK\r\n";
    QByteArray const chunked = ok + "Transfer-Encoding: chunked\r\n\r\n";
    struct {
        QByteArray bytes; ///< After which the server closes.
        HttpClient::Error error;
        int status; ///< 0: no header is reported.
        char const* body;
    } const cases[] = {
        {shortResponse, HttpClient::NoError, 200, "ok"},
        {ok + "\r\nabc", HttpClient::NoError, 200, "abc"},
        {chunked + "3\r\nabc\r\n1;x\r\nd\r\n0\r\nHTTP/1.1 500 trailer: x\r\n\r\n", HttpClient::NoError, 200, "abcd"},
        {"ICY 200 OK\r\nicy-name: n\r\n\r\nmp3", HttpClient::NoError, 200, "mp3"},
        {"HTTP/1.1 103 Hints\r\nA: b\r\n\r\n" + shortResponse, HttpClient::NoError, 200, "ok"},
        {"HTTP/1.1 302 Go\r\nLocation: http://127.0.0.1:1/\r\nContent-Length: 0\r\n\r\n", HttpClient::NoError, 302,
         ""},
        {ok + "Content-Length: 4\r\n\r\nab", HttpClient::WrongContentLength, 200, "ab"},
        {chunked + "5\r\nab", HttpClient::UnexpectedClose, 200, "ab"},
        {"", HttpClient::UnexpectedClose, 0, ""},
        {"SSH-2.0-x\r\n\r\n", HttpClient::InvalidResponseHeader, 0, ""},
        {"HTTP/1.1 200 " + QByteArray(65536, 'a') + "\r\n\r\n", HttpClient::InvalidResponseHeader, 0, ""},
        {ok + QByteArray("A: b\r\n").repeated(10000) + "\r\n", HttpClient::InvalidResponseHeader, 0, ""},
    };
    for (auto const& [bytes, expected, status, expectedBody] : cases) {
        SCOPED_TRACE(bytes.first(std::min<qsizetype>(bytes.size(), 100)).toStdString());
        headers.clear();
        body.clear();
        errors.clear();
        client->get("/");
        server.answer(bytes);
        server.close();
        ASSERT_TRUE(untilDone());
        EXPECT_EQ(error(), expected);
        EXPECT_EQ(headers.size(), status ? 1 : 0);
        EXPECT_EQ(headers.isEmpty() ? 0 : headers.constFirst().statusCode(), status);
        EXPECT_EQ(body, expectedBody);
    }
}

TEST_F(QtHttpClientTest, AServerWaitsWhileNobodyReads)
{
    constexpr qsizetype size = 4 * CurlTransfer::maximumUnreadBytes;
    QSignalSpy progress(client.get(), &HttpClient::dataReadProgress);
    isReading = false;
    client->get("/");
    server.answer("HTTP/1.1 200 OK\r\nContent-Length: " + QByteArray::number(size) + "\r\n\r\n");
    QByteArray const sent = QByteArray("0123456789abcdef").repeated(size / 16);
    server.send(sent);
    ASSERT_TRUE(processEventsUntil([&] { return client->bytesAvailable() >= CurlTransfer::maximumUnreadBytes; }));
    processPendingEvents();
    EXPECT_LT(client->bytesAvailable(), CurlTransfer::maximumUnreadBytes + 65536);
    EXPECT_GT(server.bytesToWrite(), 0);
    EXPECT_EQ(client->state(), HttpClient::Reading);

    char piece[4096];
    bool const isRead = processEventsUntil([&] {
        while (qint64 const count = client->read(piece, sizeof piece))
            body.append(piece, count);
        return !errors.isEmpty();
    });
    ASSERT_TRUE(isRead);
    EXPECT_EQ(error(), HttpClient::NoError);
    EXPECT_EQ(body, sent);
    EXPECT_EQ(progress.constLast().mid(1), (QVariantList{int(size), int(size)}));
}

TEST_F(QtHttpClientTest, ABodyStaysUntilTheNextRequestBegins)
{
    isReading = false;
    client->get("/");
    server.answer(shortResponse);
    ASSERT_TRUE(untilDone());
    client->get("/");
    EXPECT_EQ(client->bytesAvailable(), 2);
    server.takeRequest();
    EXPECT_EQ(client->readAll(), "");
}

TEST_F(QtHttpClientTest, RequestsRunInTheirOrderAndEndOnce)
{
    QSignalSpy progress(client.get(), &HttpClient::dataSendProgress);
    QList<int> const ids = {client->get("/1"), client->setUser("u", "p"), client->post("/2", "b"), client->close(),
                            client->get("/3")};
    EXPECT_TRUE(std::is_sorted(ids.begin(), ids.end(), std::less_equal<>()));
    for (char const* const line : {"GET /1 HTTP/1.1", "POST /2 HTTP/1.1", "GET /3 HTTP/1.1"}) {
        EXPECT_EQ(server.takeRequest().lines.constFirst(), line);
        EXPECT_TRUE(errors.isEmpty());
        server.send(shortResponse);
    }
    ASSERT_TRUE(untilDone());
    EXPECT_EQ(body, "okokok");
    EXPECT_EQ(progress.constLast().mid(1), (QVariantList{1, 1}));
    EXPECT_EQ(server.connectionCount(), 2) << "one before close(), one after";
}

TEST_F(QtHttpClientTest, AFailureDropsTheRequestsBehindIt)
{
    client->get("/1");
    client->get("/2");
    server.takeRequest();
    server.close();
    ASSERT_TRUE(untilDone());
    processPendingEvents();
    EXPECT_EQ(errors, QList<HttpClient::Error>{HttpClient::UnexpectedClose});
    client->get("/3");
    EXPECT_EQ(server.takeRequest().lines.constFirst(), "GET /3 HTTP/1.1");
    server.send(shortResponse);
    ASSERT_TRUE(untilDone(2));
    EXPECT_EQ(error(), HttpClient::NoError);
}

TEST_F(QtHttpClientTest, FailuresToConnectHaveTheirNames)
{
    QTcpServer closed;
    ASSERT_TRUE(closed.listen(QHostAddress::LocalHost, 0));
    quint16 const port = closed.serverPort();
    closed.close();
    for (auto const& [host, expected] : {std::pair(QString("u@h"), HttpClient::HostNotFound),
                                         std::pair(QString("nobody.invalid"), HttpClient::HostNotFound),
                                         std::pair(QString("127.0.0.1"), HttpClient::ConnectionRefused),
                                         std::pair(QString(), HttpClient::UnknownError)}) {
        errors.clear();
        client->setHost(host, port);
        client->get("/");
        ASSERT_TRUE(untilDone()) << qPrintable(host);
        EXPECT_EQ(error(), expected) << qPrintable(host);
    }
}

TEST_F(QtHttpClientTest, ClientsShareTheConnectionsOfTheirThread)
{
    for (int i = 1; i <= 3; ++i) {
        client->get("/");
        server.answer(shortResponse);
        ASSERT_TRUE(untilDone(i));
        client = std::make_unique<QtHttpClient>();
        follow(*client);
    }
    EXPECT_EQ(server.connectionCount(), 1);
}

TEST_F(QtHttpClientTest, TheApplicationsProxyGetsTheWholeAddressAndItsCredentials)
{
    QByteArray const challenge = "HTTP/1.1 407 No\r\nProxy-Authenticate: Basic\r\nContent-Length: 0\r\n\r\n";
    QNetworkProxy const before = QNetworkProxy::applicationProxy();
    QNetworkProxy proxy(QNetworkProxy::HttpProxy, "127.0.0.1", server.port());
    QNetworkProxy::setApplicationProxy(proxy);
    client->setHost("far.invalid", 8080);
    client->get("/a");
    EXPECT_EQ(server.takeRequest().lines.first(2),
              (QList<QByteArray>{"GET http://far.invalid:8080/a HTTP/1.1", "Host: far.invalid:8080"}));
    server.send(challenge);
    ASSERT_TRUE(untilDone());
    EXPECT_EQ(error(), HttpClient::ProxyAuthenticationRequiredError);

    proxy.setUser("me");
    proxy.setPassword("here");
    QNetworkProxy::setApplicationProxy(proxy);
    client->setHost("far.invalid", HttpClient::ConnectionModeHttps);
    client->get("/b");
    server.answer(challenge);
    QList<QByteArray> const lines = server.takeRequest().lines;
    EXPECT_EQ(lines.constFirst(), "CONNECT far.invalid:443 HTTP/1.1");
    EXPECT_TRUE(lines.contains("Proxy-Authorization: Basic " + QByteArray("me:here").toBase64()));
    server.send("HTTP/1.1 200 Connected\r\n\r\nno TLS");
    ASSERT_TRUE(untilDone(2));
    EXPECT_EQ(error(), HttpClient::UnknownError);
    EXPECT_TRUE(headers.isEmpty()) << "the tunnel's answer is not the server's";
    QNetworkProxy::setApplicationProxy(before);
}

TEST_F(QtHttpClientTest, ABodyGoesToItsDeviceOrTheRequestFails)
{
    QFile whole(QDir::home().filePath("body"));
    QFile full("/dev/full");
    for (QFile* const device : {&whole, &full}) {
        ASSERT_TRUE(device->open(QIODevice::ReadWrite | QIODevice::Unbuffered));
        errors.clear();
        client->get("/", device);
        server.answer(shortResponse);
        ASSERT_TRUE(untilDone());
        processPendingEvents();
        EXPECT_EQ(errors,
                  QList<HttpClient::Error>{device == &whole ? HttpClient::NoError : HttpClient::UnknownError});
    }
    EXPECT_EQ(whole.size(), 2);
}

TEST_F(QtHttpClientTest, WhoKnowsThePasswordOfTheRealmIsAskedForIt)
{
    QStringList realms;
    for (QByteArray const& challenge :
         {QByteArray("Basic realm=\"The Club\""), QByteArray("Basic charset=\"UTF-8\", Realm=\"B\"")}) {
        client = std::make_unique<QtHttpClient>(); // The one before knows it already.
        follow(*client);
        QObject::connect(client.get(), &HttpClient::authenticationRequired, client.get(),
                         [&](HttpClient*, QString const& host, quint16, QAuthenticator* authenticator) {
                             realms.append(host + ' ' + authenticator->realm());
                             authenticator->setUser("me");
                             authenticator->setPassword("here");
                         });
        errors.clear();
        client->get("/");
        server.answer("HTTP/1.1 401 No\r\nWWW-Authenticate: " + challenge + "\r\nContent-Length: 0\r\n\r\n");
        EXPECT_TRUE(server.takeRequest().lines.contains("Authorization: Basic " + QByteArray("me:here").toBase64()));
        server.send(shortResponse);
        ASSERT_TRUE(untilDone());
        EXPECT_EQ(error(), HttpClient::NoError);
    }
    EXPECT_EQ(realms, (QStringList{"127.0.0.1 The Club", "127.0.0.1 B"}));
}
