#include "NativeRtspClient.h"

#include "EventLoop.h"
#include "NameLookup.h"
#include "ReconnectionPolicy.h"
#include "RtspTestServer.h"
#include "RtspWorkers.h"
#include "StreamTimes.h"
#include "Uri.h"

#include <QCoreApplication>

namespace
{

using Request = RtspTestServer::Request;

/// A client and what has come of it.
class NativeRtspClientTest : public testing::Test
{
protected:
    void TearDown() override
    {
        _client.reset();
        EXPECT_TRUE(_workers->wait(20000));
    }

    void make(RtspPatience patience = {.udp = 5000, .silence = 5000})
    {
        _client = std::make_unique<NativeRtspClient>(_workers, patience);
        QObject::connect(_client.get(), &RtspClient::connected, [this] { ++_connections; });
        QObject::connect(_client.get(), &RtspClient::headerReceived,
                         [this](QByteArray const& header) { _headers.append(header); });
        QObject::connect(_client.get(), &RtspClient::dataReceived, [this](QByteArray const& chunk, bool isEntry) {
            EXPECT_TRUE(isEntry || !_data.isEmpty());
            _data += chunk;
        });
        QObject::connect(_client.get(), &RtspClient::done,
                         [this](NetworkErrors::NetworkError error) { _ends.append(error); });
    }
    void connectTo(QString const& address, int timeout = 5000)
    {
        if (!_client)
            make();
        _client->connectToServer(Uri(address), timeout);
    }
    bool untilPlaying()
    {
        return processEventsUntil([this] { return _server.isPlaying(); });
    }
    bool untilData()
    {
        return processEventsUntil([this] { return !_data.isEmpty(); });
    }
    bool untilSounds(int packets)
    {
        return processEventsUntil([&] { return times().size() == packets; });
    }
    QList<qint64> times() { return timesOf(QByteArray(_headers.value(0) + _data))[0]; }
    int untilEnd()
    {
        qsizetype const before = _ends.size();
        return processEventsUntil([&] { return _ends.size() > before; }) ? _ends.last() : -1;
    }

    std::shared_ptr<RtspWorkers> const _workers = std::make_shared<RtspWorkers>();
    RtspTestServer _server;
    std::unique_ptr<NativeRtspClient> _client;
    int _connections = 0;
    QList<QByteArray> _headers;
    QByteArray _data;
    QList<int> _ends;
};

} // namespace

TEST_F(NativeRtspClientTest, PlaysByUdpAndGoesOnAfterALoss)
{
    connectTo(_server.address());
    ASSERT_TRUE(untilPlaying());
    _server.sendSound(10);
    ASSERT_TRUE(untilSounds(10));
    EXPECT_EQ(_server.count("SETUP UDP"), 1);
    EXPECT_EQ(_connections, 1);

    _server.dropConnections();
    EXPECT_EQ(untilEnd(), NetworkErrors::EndOfStream);
    EXPECT_TRUE(_client->isNetworkAvailable());
    EXPECT_FALSE(_client->isFinite());
    connectTo(_server.address());
    ASSERT_TRUE(processEventsUntil([this] { return _connections == 2; }));
    _server.sendSound(5);
    ASSERT_TRUE(untilSounds(15));
    EXPECT_EQ(_headers.value(0), _headers.value(1));
    QList<qint64> const sounds = times();
    for (qsizetype i = 1; i < sounds.size(); ++i)
        EXPECT_EQ(sounds[i] - sounds[i - 1], 20) << i; // One clock for both sessions.
    _client->disconnectFromServer();
    EXPECT_TRUE(processEventsUntil([this] { return _server.count("TEARDOWN") == 1; }));
    EXPECT_EQ(_ends.size(), 1);
}

TEST_F(NativeRtspClientTest, TakesTheTransportThatTheServerDoesNotRefuseAndRemembersIt)
{
    for (bool const refusesTcp : {false, true}) {
        RtspTestServer server;
        server.on("SETUP", [&](Request const& request) {
            return request.isTcp() == refusesTcp ? RtspTestServer::reply(request, "461 Unsupported transport")
                                                 : server.answerTo(request);
        });
        make({.udp = refusesTcp ? 50 : 5000, .silence = 5000}); // Nothing comes by UDP at first.
        connectTo(server.address());
        QStringList expected{"SETUP UDP", "SETUP TCP"};
        if (refusesTcp)
            expected.append("SETUP UDP");
        ASSERT_TRUE(processEventsUntil([&] { return server.asked().filter("SETUP") == expected; }));
        ASSERT_TRUE(processEventsUntil([&] { return server.isPlaying(); }));
        _data.clear();
        server.sendSound(3);
        EXPECT_TRUE(untilData());
        if (!refusesTcp) {
            server.dropConnections();
            untilEnd();
            connectTo(server.address());
            ASSERT_TRUE(processEventsUntil([&] { return server.isPlaying(); }));
            EXPECT_EQ(server.count("SETUP UDP"), 1);
        }
        _client.reset();
    }
}

TEST_F(NativeRtspClientTest, EachFailureHasItsError)
{
    struct Case {
        char const* what;
        RtspTestServer::Answer answer; ///< To DESCRIBE.
        int error;
    };
    auto const status = [](QByteArray const& text) {
        return [text](Request const& request) { return RtspTestServer::reply(request, text); };
    };
    auto const bytes = [](QByteArray const& text) { return [text](Request const&) { return text; }; };
    Case const cases[] = {
        {"password", status("401 Unauthorized"), NetworkErrors::AuthenticationRequired},
        {"absent", status("404 Not Found"), NetworkErrors::StreamUnavailable},
        {"no streams", [](Request const& request) { return RtspTestServer::describe(request, {}); },
         NetworkErrors::StreamUnavailable},
        {"brings nothing", {}, NetworkErrors::StreamUnavailable},
        {"silent", bytes({}), NetworkErrors::CouldNotConnect},
        {"endless", bytes("RTSP/1.0 200 OK\r\n" + QByteArray("X: y\r\n").repeated(10000)),
         NetworkErrors::CouldNotConnect},
    };
    for (Case const& c : cases) {
        SCOPED_TRACE(c.what);
        make({.udp = 100, .silence = 100});
        _server.on("DESCRIBE", c.answer);
        connectTo(_server.address(), 500);
        EXPECT_EQ(untilEnd(), c.error);
        EXPECT_TRUE(_client->isNetworkAvailable());
    }
    QString const address = _server.address();
    _server.stopListening();
    connectTo(address);
    EXPECT_EQ(untilEnd(), NetworkErrors::CouldNotConnect);
    connectTo("rtsp://unknown.invalid/live");
    EXPECT_EQ(untilEnd(), NetworkErrors::CouldNotResolve);
    EXPECT_FALSE(_client->isNetworkAvailable());
}

TEST_F(NativeRtspClientTest, EndAndSilenceOfTheStreamAreLosses)
{
    QByteArray const media = _server.media;
    // What breaks off long before its end, or goes on long after it, is lost all the same.
    for (QByteArray const range : {"", "npt=0-10", "npt=0-0.01", "npt=0-0.1"}) {
        if (!range.isEmpty())
            _server.media = "a=range:" + range + "\r\n" + media;
        make();
        connectTo(_server.address());
        ASSERT_TRUE(untilPlaying());
        _server.sendSound(5);
        ASSERT_TRUE(untilSounds(5));
        _server.sendBye();
        EXPECT_EQ(untilEnd(), NetworkErrors::EndOfStream);
        EXPECT_EQ(_client->isFinite(), range == "npt=0-0.1") << range.constData();
        _data.clear();
    }
    make({.udp = 5000, .silence = 200});
    connectTo(_server.address());
    ASSERT_TRUE(processEventsUntil([this] {
        _server.sendSound(1);
        return !_data.isEmpty();
    }));
    EXPECT_EQ(untilEnd(), NetworkErrors::StreamUnavailable);
}

TEST_F(NativeRtspClientTest, RedirectionsWithoutEndAreNotFollowed)
{
    _server.on("DESCRIBE", [this](auto const& request) {
        return RtspTestServer::reply(request, "302 Moved", "Location: " + _server.address().toUtf8() + "\r\n");
    });
    connectTo(_server.address());
    EXPECT_EQ(untilEnd(), NetworkErrors::StreamUnavailable);
    EXPECT_EQ(_server.count("DESCRIBE"), ReconnectionPolicy::maximumRedirections + 1);
}

TEST_F(NativeRtspClientTest, LookUpsThatHangAreLeftBehindUpToABound)
{
    NameLookup const lookUp;
    connectTo("rtsp://slow.invalid/live", 300 - NativeRtspClient::grace);
    EXPECT_EQ(untilEnd(), NetworkErrors::CouldNotResolve);
    EXPECT_EQ(lookUp.waiting(), 1);
    connectTo(_server.address()); // Nothing stands in the way of the next.
    EXPECT_TRUE(untilPlaying());
    for (int i = 0; i < RtspWorkers::maximum; ++i)
        connectTo("rtsp://slow.invalid/live");
    EXPECT_EQ(untilEnd(), NetworkErrors::GeneralError);
}

TEST_F(NativeRtspClientTest, ClosesAtAnyMoment)
{
    for (int i = 0; i < 18; ++i) {
        make({.udp = 20, .silence = 1000});
        int const asked = i % 9; // From the look-up to the eighth request, for TCP after UDP brought nothing.
        qsizetype const before = _server.asked().size();
        connectTo(_server.address());
        EXPECT_TRUE(processEventsUntil([&] { return _server.asked().size() >= before + asked; }));
        if (asked == 4)
            _server.sendSound(5);
        _client.reset();
        while (_workers->count() > 0)
            QCoreApplication::processEvents(); // They take leave of the server, which is in this thread.
    }
}
