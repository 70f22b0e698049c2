#include "TimedHttpClient.h"

#include "FakeHttpClientFactory.h"
#include "FakeTimerFactory.h"
#include "TimedHttpClientFactory.h"

#include <QSignalSpy>

#include <gtest/gtest.h>

namespace
{

class TimedHttpClientTest : public testing::Test
{
protected:
    TimedHttpClientTest()
    {
        QObject::connect(_client, &HttpClient::done, _client,
                         [this](HttpClient* client, bool) { _errors.append(client->error()); });
    }
    ~TimedHttpClientTest() override
    {
        _factory.disposeHttpClient(_client);
        EXPECT_TRUE(_inners.clients().isEmpty());
        EXPECT_TRUE(_timers.timers().isEmpty());
    }

    FakeTickCounter _clock;
    FakeTimerFactory _timers{_clock};
    FakeHttpClientFactory _inners;
    TimedHttpClientFactory _factory{&_inners, &_timers};
    QPointer<TimedHttpClient> _client = qobject_cast<TimedHttpClient*>(_factory.createHttpClient(nullptr));
    QPointer<FakeHttpClient> _inner = _inners.clients().constFirst();
    QList<HttpClient::Error> _errors;
};

} // namespace

TEST_F(TimedHttpClientTest, SilenceEndsTheRequestAndNothingElse)
{
    _client->request(HttpRequestHeader("GET", "/a"), {}, 3);
    _timers.advance(2999);
    EXPECT_TRUE(_errors.isEmpty());
    _timers.advance(1);
    EXPECT_EQ(_errors, QList<HttpClient::Error>{HttpClient::Aborted});
    EXPECT_TRUE(_client->timedOut());

    HttpRequestHeader const header("GET", "/b");
    _client->request(header, {});
    _timers.advance(1000000);
    _inner->finish();
    _client->request(header, {}, 5);
    _inner->finish();
    _timers.advance(1000000);
    EXPECT_FALSE(_client->timedOut()) << "without one, or after the end";
    EXPECT_EQ(_client->error(), HttpClient::NoError);
}

TEST_F(TimedHttpClientTest, EverySignOfLifeStartsTheTimeAnewAndIsPassedOn)
{
    QSignalSpy headers(_client, &HttpClient::responseHeaderReceived);
    QSignalSpy reads(_client, &HttpClient::readyRead);
    _client->setHost("h", HttpClient::ConnectionModeHttps, 444);
    EXPECT_EQ(_inner->port(), 444);
    _client->request(HttpRequestHeader("POST", "/p"), "body", 1);
    EXPECT_EQ(_inner->sent().constLast().body, "body");
    auto const everySign = {
        std::function<void()>([&] { _inner->respond(HttpResponseHeader(404)); }),
        std::function<void()>([&] { emit _inner->readyRead(_inner, HttpResponseHeader(404)); }),
        std::function<void()>([&] { emit _inner->dataReadProgress(_inner, 1, 2); }),
        std::function<void()>([&] { emit _inner->dataSendProgress(_inner, 1, 2); }),
    };
    for (auto const& sign : everySign) {
        _timers.advance(999);
        sign();
    }
    _timers.advance(999);
    EXPECT_EQ(headers.at(0).at(0).value<HttpClient*>(), _client);
    EXPECT_EQ(reads.at(0).at(1).value<HttpResponseHeader>().statusCode(), 404);
    _inner->receive("unread");
    _timers.advance(5000);
    EXPECT_TRUE(_errors.isEmpty()) << "who does not read makes the server wait";
    EXPECT_EQ(_client->readAll(), "unread");
    _timers.advance(1000);
    EXPECT_TRUE(_client->timedOut());
}
