#include "CurlTransfer.h"
#include "NameLookup.h"
#include "QtHttpClientFactory.h"
#include "QtHttpClientFixture.h"

#include <QElapsedTimer>
#include <QEventLoop>
#include <QThread>

#include <functional>

namespace
{

/// How far a request has got when it is ended.
enum Moment { Queued, Resolving, Asked, InHeader, InBody, HeldUp, Finished, momentCount };
enum Way { Abort, Delete, Dispose, wayCount };

class QtHttpClientEndTest : public QtHttpClientTest, public testing::WithParamInterface<std::tuple<int, int>>
{
protected:
    void bringTo(Moment moment)
    {
        if (moment == Resolving)
            client->setHost("slow.invalid", server.port());
        client->get("/");
        if (moment == Resolving) {
            ASSERT_TRUE(processEventsUntil([&] { return lookup.waiting() == 1; }));
        }
        if (moment < Asked)
            return;
        server.takeRequest();
        if (moment == InHeader)
            server.sendByteByByte("HTTP/1.1 200 OK\r\nA: b");
        if (moment == InBody)
            server.sendByteByByte("HTTP/1.1 200 OK\r\n\r\nabc");
        if (moment == HeldUp) {
            isReading = false;
            server.send("HTTP/1.1 200 OK\r\n\r\n" + QByteArray(2 * CurlTransfer::maximumUnreadBytes, 'x'));
            ASSERT_TRUE(
                processEventsUntil([&] { return client->bytesAvailable() >= CurlTransfer::maximumUnreadBytes; }));
        }
        if (moment == Finished) {
            server.send(shortResponse);
            ASSERT_TRUE(untilDone());
        }
    }

    NameLookup lookup;
};

} // namespace

TEST_P(QtHttpClientEndTest, IsAtOnce)
{
    auto const [moment, way] = GetParam();
    bringTo(static_cast<Moment>(moment));
    QElapsedTimer elapsed;
    elapsed.start();
    QtHttpClientFactory factory;
    if (way == Abort)
        client->abort();
    else if (way == Delete)
        client.reset();
    else
        factory.disposeHttpClient(client.release());
    processPendingEvents();
    EXPECT_LT(elapsed.elapsed(), 100);
    EXPECT_EQ(errors.size(), moment == Finished || way == Abort ? 1 : 0);
    EXPECT_TRUE(moment == Finished || processEventsUntil([&] { return server.allClosed(); }));

    client = std::make_unique<QtHttpClient>();
    follow(*client);
    errors.clear();
    client->get("/next");
    server.answer(shortResponse);
    ASSERT_TRUE(untilDone());
    EXPECT_EQ(error(), HttpClient::NoError);
}

INSTANTIATE_TEST_SUITE_P(All, QtHttpClientEndTest,
                         testing::Combine(testing::Range(0, int(momentCount)), testing::Range(0, int(wayCount))));

TEST_F(QtHttpClientTest, AReceiverMayEndTheClientFromAnySignal)
{
    auto const challenge = "HTTP/1.1 401 No\r\nWWW-Authenticate: Basic realm=\"r\"\r\nContent-Length: 0\r\n\r\n";
    for (int signal = 0; signal < 6; ++signal)
        for (bool const isDeleted : {false, true}) {
            auto* const victim = new QtHttpClient;
            QPointer<QtHttpClient> const alive(victim);
            victim->setHost("127.0.0.1", server.port());
            bool isEnded = false;
            auto const end = [&] {
                if (std::exchange(isEnded, true))
                    return;
                if (isDeleted)
                    delete victim;
                else
                    victim->abort();
            };
            if (signal == 0)
                QObject::connect(victim, &HttpClient::responseHeaderReceived, &server, end);
            else if (signal == 1)
                QObject::connect(victim, &HttpClient::readyRead, &server, end);
            else if (signal == 2)
                QObject::connect(victim, &HttpClient::dataReadProgress, &server, end);
            else if (signal == 3)
                QObject::connect(victim, &HttpClient::done, &server, end);
            else if (signal == 4)
                QObject::connect(victim, &HttpClient::authenticationRequired, &server, end);
            else
                QObject::connect(victim, &HttpClient::dataSendProgress, &server, end);
            victim->post("/", "body");
            server.answer(signal == 4 ? QByteArray(challenge) : shortResponse);
            ASSERT_TRUE(processEventsUntil([&] { return isEnded; })) << signal;
            processPendingEvents();
            EXPECT_EQ(alive.isNull(), isDeleted);
            delete alive;
        }
}

TEST_F(QtHttpClientTest, AReceiverMayRunAnEventLoopOfItsOwn)
{
    QtHttpClient other;
    QObject::connect(client.get(), &HttpClient::responseHeaderReceived, &other, [&] {
        follow(other);
        other.get("/inner");
        server.answer(shortResponse);
        EXPECT_TRUE(untilDone());
    });
    client->get("/outer");
    server.answer("HTTP/1.1 200 OK\r\nContent-Length: 5\r\n\r\nouter");
    ASSERT_TRUE(untilDone(2));
    EXPECT_EQ(errors, (QList<HttpClient::Error>{HttpClient::NoError, HttpClient::NoError}));
    EXPECT_EQ(body, "okouter");
}

TEST_F(QtHttpClientTest, ARequestMayBeginAnotherAtItsEnd)
{
    int left = 3;
    QObject::connect(client.get(), &HttpClient::done, client.get(), [&] {
        if (left-- > 0)
            client->get("/more");
    });
    client->get("/");
    for (int i = 0; i < 4; ++i)
        server.answer(shortResponse);
    ASSERT_TRUE(untilDone(4));
    EXPECT_EQ(body, "okokokok");
}

TEST_F(QtHttpClientTest, WorksOnTheThreadItIsMovedToAndGoesAfterItsEnd)
{
    for (bool const isLeftRunning : {false, true}) {
        QThread thread;
        auto moved = std::make_unique<QtHttpClient>();
        moved->setHost("127.0.0.1", server.port());
        QByteArray received;
        QObject::connect(moved.get(), &HttpClient::readyRead, moved.get(), [&](HttpClient* reader) {
            received += reader->readAll();
            thread.quit();
        });
        QObject::connect(&thread, &QThread::started, moved.get(), [&] { moved->get("/"); });
        moved->moveToThread(&thread);
        thread.start();
        server.answer(isLeftRunning ? "HTTP/1.1 200 OK\r\n\r\nok" : shortResponse);
        ASSERT_TRUE(thread.wait());
        EXPECT_EQ(received, "ok");
        moved.reset();
        EXPECT_TRUE(processEventsUntil([&] { return server.allClosed(); }));
    }
}
