#include "../SourceTestSupport.h"
#include "BufferLatteVisualiser.h"
#include "Clips.h"
#include "FakeMmsClient.h"
#include "Latte.h"
#include "LatteClientFactory.h"
#include "LatteDataSource.h"
#include "MmsLatteClientFixture.h"
#include "NameLookup.h"
#include "QtDateTimeBuilder.h"
#include "QtHttpClientFactory.h"
#include "QtTcpSocketFactory.h"
#include "QtTimerFactory.h"

#include <gmock/gmock.h>

namespace
{

constexpr int filmPacketSize = 3200;

/// A film as a stream, which goes on where it was with each connection.
struct Film {
    explicit Film(QString const& path)
    {
        QByteArray const file = Clips::bytes(path);
        qsizetype const data = file.indexOf(QByteArray::fromHex("3626b2758e66cf11a6d900aa0062ce6c")) + 50;
        qsizetype const index = file.indexOf(QByteArray::fromHex("90080033b1e5cf1189f400a0c90349cb"));
        header = file.left(data);
        header[header.indexOf(QByteArray::fromHex("a1dcab8c47a9cf118ee400c00c205365")) + 88] = 3; // Broadcast.
        packets = file.mid(data, index - data);
    }

    QByteArray header;
    QByteArray packets;
    qsizetype position = 0; ///< On the client's thread.
    std::atomic<bool> isOver{false};
};

/// A transport that sends the film by itself, on its own thread, and is cut off by the server in the middle.
class FilmMmsClient : public FakeMmsClient
{
public:
    FilmMmsClient(Film& film, QObject* parent) : FakeMmsClient(MmsClient::MmsTcp, parent), _film(film)
    {
        connect(&_timer, &QTimer::timeout, this, &FilmMmsClient::send);
    }
    void connectToServer(QUrl const& url, QString const& referrer, int timeout) override
    {
        FakeMmsClient::connectToServer(url, referrer, timeout);
        QMetaObject::invokeMethod(
            this, [this] { begin(_film.header, 160000, filmPacketSize); }, Qt::QueuedConnection);
        _timer.start(0);
    }

private:
    void send()
    {
        if (state() != Streaming)
            return;
        deliver(_film.packets.mid(_film.position, filmPacketSize));
        _film.position += filmPacketSize;
        if (_film.position >= _film.packets.size()) {
            _timer.stop();
            _film.isOver = true;
        } else if (_film.position / filmPacketSize == _film.packets.size() / filmPacketSize / 2) {
            _timer.stop();
            end(RemoteServerClosed);
        }
    }

    Film& _film;
    QTimer _timer{this};
};

class FilmMmsClientFactory : public MmsClientFactory
{
public:
    explicit FilmMmsClientFactory(Film& film) : _film(film) {}
    MmsClient* createMmsClient(QObject* parent) override { return new FilmMmsClient(_film, parent); }
    void disposeMmsClient(MmsClient* client) override
    {
        client->blockSignals(true);
        client->deleteLater();
    }

private:
    Film& _film;
};

/// Makes clients over the system's clock and network, with the film's transports if there is one.
class RealClientFactory : public LatteClientFactory
{
public:
    explicit RealClientFactory(Film* film = nullptr) : _film(film) {}
    LatteClient* createLatteClient(Uri const& uri) override
    {
        client = new MmsLatteClient("{guid}", uri, &_timers, &_sockets, &_http, &_dates, nullptr);
        if (_film)
            client->findChild<MmsLatteClientPrivate*>()->setMmsClientFactories(
                std::make_unique<FilmMmsClientFactory>(*_film), std::make_unique<FilmMmsClientFactory>(*_film));
        return client;
    }
    void disposeLatteClient(LatteClient* disposed) override { delete disposed; }

    MmsLatteClient* client = nullptr;

private:
    Film* const _film;
    QtTimerFactory _timers;
    QtTcpSocketFactory _sockets;
    QtHttpClientFactory _http;
    QtDateTimeBuilder _dates;
};

class ClockedLatteSource : public LatteDataSource
{
public:
    using LatteDataSource::LatteDataSource;
    std::atomic<qint64> now{0};

protected:
    qint64 currentMilliseconds() const override { return now; }
};

char const* const refused = "mms://127.0.0.1:1/live";

} // namespace

TEST(MmsLatteClientOnItsThread, AStreamPlaysThroughADataSourceAcrossAReconnection)
{
    Film film(Clips::wmv(12));
    RealClientFactory factory(&film);
    Latte latte;
    latte.registerLatteClientFactory(UriScheme("mms"), &factory);
    ClockedLatteSource source(&latte, StreamDescription(Uri(refused)), QString());
    QSignalSpy const opened(&source, &GLMovieDataSource::opened);
    QSignalSpy const progress(&source, &GLMovieDataSource::stateChanged);
    QSignalSpy const playing(&source, &GLMovieDataSource::playing);
    source.open();
    BufferLatteVisualiser visualiser(factory.client); // Watches from this thread.
    visualiser.start();
    source.now = 5000;
    ASSERT_TRUE(waitUntil([&] { return !opened.isEmpty(); }));
    ASSERT_TRUE(source.videoStream());
    Reader reader(source);
    ASSERT_TRUE(waitUntil([&] {
        visualiser.sample();
        visualiser.grab();
        return film.isOver && factory.client->bytesBuffered() == 0;
    }));
    source.stop();
    ReadResult const result = reader.result();
    EXPECT_EQ(result.videoFrames, 300);
    EXPECT_GT(result.audioFrames, 200);
    QStringList texts;
    for (QList<QVariant> const& arguments : progress)
        texts << arguments.at(1).toString();
    EXPECT_EQ(texts.count("Reconnecting..."), 1);
    EXPECT_EQ(texts.count("Playing..."), 2);
    EXPECT_EQ(playing.size(), 2);
    source.close();
    visualiser.sample();
    visualiser.grab();
}

TEST(MmsLatteClientOnItsThread, ClosesAtOnceAtAnyMoment)
{
    NameLookup lookup;
    Film film(Clips::wmv());
    RealClientFactory filmFactory(&film);
    RealClientFactory networkFactory;
    for (RealClientFactory* const factory : {&filmFactory, &networkFactory}) {
        Latte latte;
        latte.registerLatteClientFactory(UriScheme("mms"), factory);
        for (QString const& address : {QString(refused), QString("mms://slow.invalid/live")}) {
            for (int turns = 0; turns < 12; ++turns) {
                ClockedLatteSource source(&latte, StreamDescription(Uri(address)), QString());
                source.now = 5000;
                source.open();
                for (int i = 0; i < turns * 3; ++i)
                    QTest::qWait(1);
                QElapsedTimer elapsed;
                elapsed.start();
                source.close();
                EXPECT_LT(elapsed.elapsed(), 100);
            }
        }
    }
}

TEST_F(MmsLatteClientTest, ANameThatHangsNeitherHoldsTheClientNorEndsIt)
{
    NameLookup const lookup;
    start("mms://slow.invalid/live");
    for (int i = 0; i < 3; ++i) {
        failCheck();
        transport()->end(MmsClient::CouldNotConnected);
        ASSERT_TRUE(waitUntil([&] { return lookup.waiting() > 0; }));
        EXPECT_EQ(client->state(), LatteClient::Delivering);
        timers.advance(1000 << i);
    }
    QElapsedTimer elapsed;
    elapsed.start();
    client->stopBuffering();
    client.reset();
    EXPECT_LT(elapsed.elapsed(), 100);
}

TEST_F(MmsLatteClientTest, TheEndOfTheFirstConnectionWaitsForTheNetworkTest)
{
    start("mms://localhost/live");
    failCheck();
    transport()->end(MmsClient::CouldNotConnected);
    ASSERT_TRUE(waitUntil([&] { // The answer has come when another look-up can be begun.
        timers.advance(1000);
        if (http.clients().isEmpty())
            return false;
        failCheck();
        takeEvents();
        transport()->end(MmsClient::CouldNotConnected);
        return takeEvents().isEmpty();
    }));
    EXPECT_EQ(client->state(), LatteClient::Delivering);
    ASSERT_TRUE(waitUntil([&] { return client->state() == LatteClient::Finished; }));
    EXPECT_EQ(takeEvents(), QStringList("error 4"));
}
