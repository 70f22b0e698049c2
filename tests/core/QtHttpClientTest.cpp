#include "CurlTransfer.h"
#include "FakeHttpClient.h"
#include "LogCapture.h"
#include "QtHttpClientFactory.h"
#include "QtHttpClientFixture.h"

#include <QBuffer>
#include <QFile>
#include <QNetworkProxy>
#include <QSignalSpy>

#include <algorithm>
#include <functional>
#include <vector>

TEST_F(QtHttpClientTest, ARequestGoesOutExactlyAsGiven)
{
    HttpRequestHeader header("POST", "/a b?c=ÿ\r\nX: y", 1, 0);
    header.addValue("Accept", "*/*");
    header.addValue("Pragma", "no-cache,rate=1.000");
    header.addValue("Host", "another.host");
    header.addValue("pragma", "xClientGUID={1}");
    header.addValue("Empty", "");
    header.addValue("Evil", "a\r\nInjected: b");
    header.addValue("Content-Length", "99");
    header.addValue("User-Agent", "NSPlayer");
    client->request(header, "body");
    HttpTestServer::Request const request = server.takeRequest();
    EXPECT_EQ(request.lines,
              (QList<QByteArray>{"POST /a%20b?c=%C3%BF%0D%0AX:%20y HTTP/1.0", "Accept: */*",
                                 "Pragma: no-cache,rate=1.000", "Host: another.host", "pragma: xClientGUID={1}",
                                 "Empty:", "Evil: a  Injected: b", "Content-Length: 4", "User-Agent: NSPlayer"}));
    EXPECT_EQ(request.body, "body");
    EXPECT_EQ(client->state(), HttpClient::Sending);
    EXPECT_EQ(client->currentRequest(), header);
}

TEST_F(QtHttpClientTest, NothingIsAddedThatHttpDoesNotNeed)
{
    QByteArray const host = "Host: 127.0.0.1:" + QByteArray::number(server.port());
    client->get("");
    EXPECT_EQ(server.takeRequest().lines, (QList<QByteArray>{"GET / HTTP/1.1", host, "Connection: Keep-Alive"}));
    server.send(shortResponse);
    client->post("/p", "x");
    EXPECT_EQ(server.takeRequest().lines,
              (QList<QByteArray>{"POST /p HTTP/1.1", host, "Connection: Keep-Alive", "Content-Length: 1"}));
    server.send(shortResponse);
    client->request(HttpRequestHeader("OPTIONS", "*"), {});
    EXPECT_EQ(server.takeRequest().lines, (QList<QByteArray>{"OPTIONS * HTTP/1.1", host}));
    server.send(shortResponse);
    client->request(HttpRequestHeader("HEAD", "/h"), {});
    EXPECT_EQ(server.takeRequest().lines.constFirst(), "HEAD /h HTTP/1.1");
    server.send("HTTP/1.1 200 OK\r\nContent-Length: 1000\r\n\r\n");
    ASSERT_TRUE(untilDone());
    EXPECT_EQ(errors, QList<HttpClient::Error>{HttpClient::NoError});
    EXPECT_EQ(server.connectionCount(), 1);
}

TEST_F(QtHttpClientTest, LongNamesAndPathsAreSentOrRefused)
{
    for (int const size : {1, 255, 1000, 100000}) {
        client->get("/" + QString(size, 'p'));
        EXPECT_EQ(server.takeRequest().lines.constFirst().size(), size + 14);
        server.send(shortResponse);
        ASSERT_TRUE(untilDone());
        errors.clear();
    }
    for (QString const& host : {QString(256, 'h'), QString(100000, 'h'), QString("a b"), QString("a/b#c"),
                                QString("u@h"), QString("nobody.invalid")}) {
        client->setHost(host, server.port());
        client->get("/");
        ASSERT_TRUE(untilDone()) << qPrintable(host);
        EXPECT_EQ(error(), HttpClient::HostNotFound) << qPrintable(host);
        errors.clear();
    }
    EXPECT_EQ(server.connectionCount(), 1);
}

struct ResponseCase {
    char const* name;
    QByteArray bytes; ///< After which the server closes.
    HttpClient::Error error;
    int status; ///< 0: no header is reported.
    char const* body;
};

class QtHttpClientResponseTest : public QtHttpClientTest, public testing::WithParamInterface<ResponseCase>
{
};

TEST_P(QtHttpClientResponseTest, EndsAsItShould)
{
    for (bool const isInPieces : {false, true}) {
        auto const& [name, bytes, expected, status, expectedBody] = GetParam();
        if (isInPieces && bytes.size() > 1000)
            break;
        headers.clear();
        body.clear();
        errors.clear();
        client->get("/");
        server.takeRequest();
        isInPieces ? server.sendByteByByte(bytes) : server.send(bytes);
        server.close();
        ASSERT_TRUE(untilDone());
        EXPECT_EQ(error(), expected);
        EXPECT_EQ(headers.size(), status ? 1 : 0);
        EXPECT_EQ(headers.isEmpty() ? 0 : headers.constFirst().statusCode(), status);
        EXPECT_EQ(body, expectedBody);
    }
}

QByteArray const ok = "HTTP/1.1 200 OK\r\n";
QByteArray const chunked = ok + "Transfer-Encoding: chunked\r\n\r\n";

INSTANTIATE_TEST_SUITE_P(
    All, QtHttpClientResponseTest,
    testing::Values(
        ResponseCase{"Whole", shortResponse, HttpClient::NoError, 200, "ok"},
        ResponseCase{"UntilClose", ok + "\r\nabc", HttpClient::NoError, 200, "abc"},
        ResponseCase{"Chunked", chunked + "3\r\nabc\r\n1;x\r\nd\r\n0\r\nHTTP/1.1 500 trailer: x\r\n\r\n",
                     HttpClient::NoError, 200, "abcd"},
        ResponseCase{"Icy", "ICY 200 OK\r\nicy-name: n\r\n\r\nmp3", HttpClient::NoError, 200, "mp3"},
        ResponseCase{"Interim", "HTTP/1.1 100 Continue\r\n\r\nHTTP/1.1 103 Hints\r\nA: b\r\n\r\n" + shortResponse,
                     HttpClient::NoError, 200, "ok"},
        ResponseCase{"NotFound", "HTTP/1.1 404 No\r\nContent-Length: 4\r\n\r\nlost", HttpClient::NoError, 404,
                     "lost"},
        ResponseCase{"Redirect", "HTTP/1.1 302 Go\r\nLocation: http://127.0.0.1:1/\r\nContent-Length: 0\r\n\r\n",
                     HttpClient::NoError, 302, ""},
        ResponseCase{"Plain401", "HTTP/1.1 401 No\r\nContent-Length: 2\r\n\r\nno", HttpClient::NoError, 401, "no"},
        ResponseCase{"CutBody", ok + "Content-Length: 4\r\n\r\nab", HttpClient::WrongContentLength, 200, "ab"},
        ResponseCase{"CutChunk", chunked + "5\r\nab", HttpClient::UnexpectedClose, 200, "ab"},
        ResponseCase{"CutHeader", ok + "A: b\r\n", HttpClient::UnexpectedClose, 0, ""},
        ResponseCase{"Nothing", "", HttpClient::UnexpectedClose, 0, ""},
        ResponseCase{"Junk", "SSH-2.0-x\r\n\r\n", HttpClient::InvalidResponseHeader, 0, ""},
        ResponseCase{"NoColon", ok + "junk\r\n\r\n", HttpClient::InvalidResponseHeader, 0, ""},
        ResponseCase{"Nul", ok + QByteArray("A: b\0c\r\n\r\n", 10), HttpClient::InvalidResponseHeader, 0, ""},
        ResponseCase{"LongStatusLine", "HTTP/1.1 200 " + QByteArray(65536, 'a') + "\r\n\r\n",
                     HttpClient::InvalidResponseHeader, 0, ""},
        ResponseCase{"HugeLine", ok + "A: " + QByteArray(1 << 20, 'a') + "\r\n\r\n",
                     HttpClient::InvalidResponseHeader, 0, ""},
        ResponseCase{"NoLineEnd", "HTTP/1.1 " + QByteArray(1 << 20, '2'), HttpClient::InvalidResponseHeader, 0, ""},
        ResponseCase{"ManyLines", ok + QByteArray("A: b\r\n").repeated(10000) + "\r\n",
                     HttpClient::InvalidResponseHeader, 0, ""},
        ResponseCase{"ManyInterims", QByteArray("HTTP/1.1 100 C\r\n\r\n").repeated(10000) + shortResponse,
                     HttpClient::InvalidResponseHeader, 0, ""}),
    [](auto const& testInfo) { return testInfo.param.name; });

TEST_F(QtHttpClientTest, RepeatedHeaderLinesKeepTheirOrder)
{
    client->get("/");
    server.answer("HTTP/1.1 200 Fine\r\nPragma: b\r\nServer: s\r\npragma: a\r\nContent-Length: 0\r\n\r\n");
    ASSERT_TRUE(untilDone());
    EXPECT_EQ(headers.constFirst().toString(), "HTTP/1.1 200 Fine\r\nPragma: b\r\nServer: s\r\npragma: a\r\n"
                                               "Content-Length: 0\r\n\r\n");
}

TEST_F(QtHttpClientTest, AnEndlessBodyIsDeliveredAsItComes)
{
    QSignalSpy progress(client.get(), &HttpClient::dataReadProgress);
    client->get("/live");
    server.answer("HTTP/1.0 200 OK\r\n\r\n");
    ASSERT_TRUE(processEventsUntil([&] { return headers.size() == 1; }));
    EXPECT_EQ(client->state(), HttpClient::Reading);
    for (int i = 1; i <= 50; ++i) {
        server.send(QByteArray(1000, 'x'));
        ASSERT_TRUE(processEventsUntil([&] { return body.size() == i * 1000; }));
    }
    EXPECT_EQ(progress.constLast().mid(1), (QVariantList{50000, 0}));
    client->abort();
    EXPECT_EQ(error(), HttpClient::Aborted);
    EXPECT_TRUE(processEventsUntil([&] { return server.allClosed(); }));
}

TEST_F(QtHttpClientTest, AServerWaitsWhileNobodyReads)
{
    constexpr qsizetype size = 4 * CurlTransfer::maximumUnreadBytes;
    isReading = false;
    client->get("/");
    server.answer(ok + "Content-Length: " + QByteArray::number(size) + "\r\n\r\n");
    QByteArray sent(size, 'a');
    for (qsizetype i = 0; i < size; i += 997)
        sent[i] = static_cast<char>(i / 997);
    server.send(sent);
    ASSERT_TRUE(processEventsUntil([&] { return client->bytesAvailable() >= CurlTransfer::maximumUnreadBytes; }));
    processPendingEvents();
    EXPECT_LT(client->bytesAvailable(), CurlTransfer::maximumUnreadBytes + 65536);
    EXPECT_GT(server.bytesToWrite(), 0);
    EXPECT_TRUE(errors.isEmpty());

    char piece[4096];
    bool const isRead = processEventsUntil([&] {
        while (qint64 const count = client->read(piece, sizeof piece))
            body.append(piece, count);
        return !errors.isEmpty();
    });
    ASSERT_TRUE(isRead);
    EXPECT_EQ(error(), HttpClient::NoError);
    EXPECT_EQ(body, sent);
}

TEST_F(QtHttpClientTest, ABodyStaysUntilTheNextRequestBegins)
{
    isReading = false;
    client->get("/");
    server.answer(shortResponse);
    ASSERT_TRUE(untilDone());
    EXPECT_EQ(client->state(), HttpClient::Connected);
    EXPECT_FALSE(client->currentRequest().isValid());
    client->get("/");
    EXPECT_EQ(client->bytesAvailable(), 2);
    server.takeRequest();
    EXPECT_EQ(client->readAll(), "");
}

TEST_F(QtHttpClientTest, ABodyGoesToTheDevice)
{
    QBuffer device;
    ASSERT_TRUE(device.open(QIODevice::WriteOnly));
    QSignalSpy reads(client.get(), &HttpClient::readyRead);
    client->get("/", &device);
    server.answer(ok + "Content-Length: 200000\r\n\r\n" + QByteArray(200000, 'x'));
    ASSERT_TRUE(untilDone());
    EXPECT_EQ(device.data(), QByteArray(200000, 'x'));
    EXPECT_EQ(reads.count(), 0);
    EXPECT_EQ(client->bytesAvailable(), 0);
}

TEST_F(QtHttpClientTest, ADeviceThatFailsOrGoesIsAnError)
{
    LogCapture capture;
    QFile full("/dev/full");
    ASSERT_TRUE(full.open(QIODevice::WriteOnly | QIODevice::Unbuffered));
    client->post("/", "x", &full);
    server.answer(ok + "\r\nabc");
    ASSERT_TRUE(untilDone());
    EXPECT_EQ(error(), HttpClient::UnknownError);

    auto buffer = std::make_unique<QBuffer>();
    ASSERT_TRUE(buffer->open(QIODevice::WriteOnly));
    client->get("/", buffer.get());
    server.takeRequest();
    buffer.reset();
    server.send(shortResponse);
    ASSERT_TRUE(untilDone(2));
    EXPECT_EQ(error(), HttpClient::UnknownError);
    EXPECT_EQ(capture.count("writeToDevice()"), 2);
}

TEST_F(QtHttpClientTest, ALargeBodyIsSentWithProgress)
{
    QSignalSpy progress(client.get(), &HttpClient::dataSendProgress);
    QByteArray const upload(3000000, 'u');
    client->post("/", upload);
    EXPECT_EQ(server.takeRequest().body, upload);
    server.send(shortResponse);
    ASSERT_TRUE(untilDone());
    ASSERT_GT(progress.count(), 1);
    EXPECT_EQ(progress.constLast().mid(1), (QVariantList{3000000, 3000000}));
}

TEST_F(QtHttpClientTest, RequestsRunInTheirOrderAndEndOnce)
{
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
    EXPECT_EQ(server.connectionCount(), 2) << "one before close(), one after";

    client->setHost("127.0.0.1", server.port());
    ASSERT_TRUE(untilDone(2));
    EXPECT_EQ(error(), HttpClient::NoError);
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
    client->setHost("127.0.0.1", closed.serverPort());
    closed.close();
    client->get("/");
    ASSERT_TRUE(untilDone());
    EXPECT_EQ(error(), HttpClient::ConnectionRefused);

    QtHttpClient homeless;
    follow(homeless);
    homeless.setHost("");
    homeless.get("/");
    ASSERT_TRUE(untilDone(2));
    EXPECT_EQ(error(), HttpClient::UnknownError);
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

TEST_F(QtHttpClientTest, ManyClientsRunAtOnce)
{
    std::vector<std::unique_ptr<QtHttpClient>> clients(60);
    for (auto& each : clients) {
        each = std::make_unique<QtHttpClient>();
        follow(*each);
        each->get("/");
    }
    for (size_t i = 0; i < clients.size(); ++i)
        server.answer(shortResponse);
    ASSERT_TRUE(untilDone(static_cast<int>(clients.size())));
    EXPECT_EQ(body, QByteArray("ok").repeated(60));
}

TEST(QtHttpClientFactory, TakesBackOnlyItsOwn)
{
    QtHttpClientFactory factory;
    LogCapture capture;
    FakeHttpClient foreign;
    factory.disposeHttpClient(&foreign);
    factory.disposeHttpClient(nullptr);
    EXPECT_EQ(capture.count("[WARNING]"), 1);

    QPointer<HttpClient> const own(factory.createHttpClient(nullptr));
    factory.disposeHttpClient(own);
    ASSERT_TRUE(own);
    EXPECT_TRUE(own->signalsBlocked());
    EXPECT_TRUE(processEventsUntil([&] { return !own; }));
}
