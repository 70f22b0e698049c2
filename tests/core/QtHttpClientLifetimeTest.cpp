#include "CurlTransfer.h"
#include "NameLookup.h"
#include "QtHttpClientFactory.h"
#include "QtHttpClientFixture.h"

#include <QThread>

namespace
{

/// How far a request has got when it is ended.
enum Moment { Queued, Resolving, Asked, HeldUp, Finished, momentCount };

class QtHttpClientEndTest : public QtHttpClientTest, public testing::WithParamInterface<std::tuple<int, bool>>
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

    NameLookup lookup; ///< Who waited for a name would wait for ever.
};

} // namespace

TEST_P(QtHttpClientEndTest, IsAtOnce)
{
    auto const [moment, isGivenBack] = GetParam();
    bringTo(static_cast<Moment>(moment));
    if (isGivenBack)
        QtHttpClientFactory().disposeHttpClient(client.release());
    else
        client->abort();
    processPendingEvents();
    EXPECT_EQ(errors.size(), moment == Finished || !isGivenBack ? 1 : 0);
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
                         testing::Combine(testing::Range(0, int(momentCount)), testing::Bool()));

TEST_F(QtHttpClientTest, AReceiverMayEndTheClientFromAnySignal)
{
    auto const endFrom = [this](auto signal) {
        for (bool const isDeleted : {false, true}) {
            QPointer<QtHttpClient> const victim(new QtHttpClient);
            victim->setHost("127.0.0.1", server.port());
            bool isEnded = false;
            QObject::connect(victim, signal, &server, [&] {
                if (std::exchange(isEnded, true))
                    return;
                if (isDeleted)
                    delete victim;
                else
                    victim->abort();
            });
            victim->post("/", "body");
            server.answer(shortResponse);
            ASSERT_TRUE(processEventsUntil([&] { return isEnded; }));
            processPendingEvents();
            EXPECT_EQ(victim.isNull(), isDeleted);
            delete victim;
        }
    };
    endFrom(&HttpClient::dataSendProgress);
    endFrom(&HttpClient::responseHeaderReceived);
    endFrom(&HttpClient::dataReadProgress);
    endFrom(&HttpClient::readyRead);
    endFrom(&HttpClient::done);
}

TEST_F(QtHttpClientTest, WorksOnTheThreadItIsMovedToAndGoesAfterItsEnd)
{
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
    server.answer("HTTP/1.1 200 OK\r\n\r\nok"); // Which goes on.
    ASSERT_TRUE(thread.wait());
    EXPECT_EQ(received, "ok");
    moved.reset();
    EXPECT_TRUE(processEventsUntil([&] { return server.allClosed(); }));
}
