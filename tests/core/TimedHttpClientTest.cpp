#include "TimedHttpClient.h"

#include "EventLoop.h"
#include "FakeHttpClientFactory.h"
#include "LogCapture.h"
#include "TimedHttpClientFactory.h"
#include "Timer.h"
#include "TimerFactory.h"

#include <QBuffer>
#include <QSignalSpy>

#include <gtest/gtest.h>

namespace
{

/// A timer on time that the test moves.
class HandTimer : public Timer
{
public:
    void setSingleShot(bool singleShot) override { EXPECT_TRUE(singleShot); }
    int timerId() const override { return -1; }
    void start(int ms) override { _left = _interval = ms; }
    void stop() override { _left = 0; }
    int interval() const override { return _interval; }
    bool isActive() const override { return _left > 0; }

    void advance(int ms)
    {
        if (isActive() && (_left -= ms) <= 0)
            emit timeout(this);
    }

private:
    int _interval = 0;
    int _left = 0;
};

class HandTimerFactory : public TimerFactory
{
public:
    Timer* createTimer() override { return timer = new HandTimer; }
    void disposeTimer(Timer* t) override { t->deleteLater(); }

    QPointer<HandTimer> timer;
};

class TimedHttpClientTest : public testing::Test
{
protected:
    TimedHttpClientTest() : _factory(&_inners, &_timers)
    {
        _client = qobject_cast<TimedHttpClient*>(_factory.createHttpClient(nullptr));
        _inner = _inners.clients().constFirst();
        QObject::connect(_client, &HttpClient::done, _client, [this](HttpClient* client, bool) {
            EXPECT_EQ(client, _client);
            _errors.append(client->error());
        });
    }
    ~TimedHttpClientTest() override { _factory.disposeHttpClient(_client); }

    HandTimer& timer() { return *_timers.timer; }

    HandTimerFactory _timers;
    FakeHttpClientFactory _inners;
    TimedHttpClientFactory _factory;
    TimedHttpClient* _client;
    FakeHttpClient* _inner;
    QList<HttpClient::Error> _errors;
};

} // namespace

TEST_F(TimedHttpClientTest, SilenceEndsTheRequest)
{
    LogCapture capture;
    _client->get("/a", 3);
    timer().advance(2999);
    EXPECT_TRUE(_errors.isEmpty());
    timer().advance(1);
    EXPECT_EQ(_errors, QList<HttpClient::Error>{HttpClient::Aborted});
    EXPECT_TRUE(_client->timedOut());
    EXPECT_TRUE(capture.contains("Downloading /a with timeout 3 seconds."));
    EXPECT_TRUE(capture.contains("********** TimedHttpClient timed out!"));

    _inner->finish(HttpClient::UnknownError);
    EXPECT_EQ(_client->error(), HttpClient::Aborted) << "its own time-out comes first";
    _client->post("/b", "x");
    EXPECT_FALSE(_client->timedOut());
    EXPECT_EQ(_client->error(), HttpClient::NoError);
}

TEST_F(TimedHttpClientTest, EverySignOfLifeStartsTheTimeAnew)
{
    QBuffer device;
    ASSERT_TRUE(device.open(QIODevice::WriteOnly));
    _client->get("/", 1, &device);
    auto const everySign = {
        std::function<void()>([&] { _inner->respond(HttpResponseHeader(200)); }),
        std::function<void()>([&] { emit _inner->readyRead(_inner, {}); }),
        std::function<void()>([&] { emit device.bytesWritten(1); }),
        std::function<void()>([&] { emit _inner->dataReadProgress(_inner, 1, 2); }),
        std::function<void()>([&] { emit _inner->dataSendProgress(_inner, 1, 2); }),
    };
    for (int i = 0; i < 3; ++i)
        for (auto const& sign : everySign) {
            timer().advance(999);
            sign();
        }
    EXPECT_TRUE(_errors.isEmpty());
    timer().advance(1000);
    EXPECT_TRUE(_client->timedOut());
}

TEST_F(TimedHttpClientTest, NoTimeOutWithoutOneOrAfterTheEnd)
{
    HttpRequestHeader const header("GET", "/");
    auto const everyWay = {
        std::function<void()>([&] { _client->get("/"); }),
        std::function<void()>([&] { _client->get("/", 0); }),
        std::function<void()>([&] { _client->post("/", {}); }),
        std::function<void()>([&] { _client->request(header, {}); }),
        std::function<void()>([&] { _client->request(header, {}, 5), _client->close(); }),
        std::function<void()>([&] { _client->post("/", {}, 5), _client->abort(); }),
        std::function<void()>([&] { _client->get("/", 5), _inner->finish(); }),
    };
    for (auto const& way : everyWay) {
        way();
        timer().advance(1000000);
        EXPECT_FALSE(_client->timedOut());
        _inner->finish();
    }
    _client->get("/", std::numeric_limits<int>::max());
    EXPECT_GT(timer().interval(), 2000000000);
}

TEST_F(TimedHttpClientTest, PassesEverythingOnAsItself)
{
    QSignalSpy headers(_client, &HttpClient::responseHeaderReceived);
    QSignalSpy reads(_client, &HttpClient::readyRead);
    _client->setHost("h", HttpClient::ConnectionModeHttps, 444);
    _client->setUser("u", "p");
    _client->setProxy("proxy", 3128, "", "");
    _client->request(HttpRequestHeader("POST", "/p"), "body", 1);
    _inner->respond(HttpResponseHeader(404));
    _inner->receive("reply");
    EXPECT_EQ(_inner->host() + _inner->user() + _inner->proxyHost(), "huproxy");
    EXPECT_EQ(_inner->port(), 444);
    EXPECT_EQ(_inner->sent().constLast().body, "body");
    EXPECT_EQ(headers.at(0).at(0).value<HttpClient*>(), _client);
    EXPECT_EQ(reads.at(0).at(1).value<HttpResponseHeader>().statusCode(), 404);
    EXPECT_EQ(_client->readAll(), "reply");
    EXPECT_EQ(_client->currentRequest().path(), "/p");
    _inner->finish(HttpClient::HostNotFound);
    EXPECT_EQ(_errors, QList<HttpClient::Error>{HttpClient::HostNotFound});
}

TEST_F(TimedHttpClientTest, GoesBackWithAllItHolds)
{
    QPointer<HttpClient> const client(_factory.createHttpClient(nullptr));
    QPointer<FakeHttpClient> const inner(_inners.clients().constLast());
    QPointer<HandTimer> const timer(_timers.timer);
    _factory.disposeHttpClient(client);
    EXPECT_FALSE(_inners.clients().contains(inner));
    EXPECT_TRUE(processEventsUntil([&] { return !client && !inner && !timer; }));

    LogCapture capture;
    _factory.disposeHttpClient(_inner);
    _factory.disposeHttpClient(nullptr);
    EXPECT_EQ(capture.count("[WARNING]"), 1);
}
