#include "NativeRtspClient.h"

#include "EventLoop.h"
#include "FFwrapper.h"
#include "LogCapture.h"
#include "NameLookup.h"
#include "ReconnectionPolicy.h"
#include "RtspTestServer.h"
#include "RtspWorkers.h"
#include "Uri.h"

extern "C" {
#include <libavformat/avformat.h>
}

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QRandomGenerator>

#include <gmock/gmock.h>

namespace
{

using testing::ElementsAre;
using Request = RtspTestServer::Request;

constexpr int connectTimeout = 5000;

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
    void connectTo(QString const& address, int timeout = connectTimeout)
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

struct Bytes {
    QByteArray data;
    qsizetype at = 0;
};

int readBytes(void* opaque, std::uint8_t* buffer, int size)
{
    auto* const bytes = static_cast<Bytes*>(opaque);
    auto const count = std::min<qsizetype>(size, bytes->data.size() - bytes->at);
    std::copy_n(bytes->data.constData() + bytes->at, count, buffer);
    bytes->at += count;
    return count > 0 ? static_cast<int>(count) : AVERROR_EOF;
}

/// The times, in units of 1/8000 s, of the packets of PCMU in a stream.
QList<qint64> soundTimes(QByteArray const& stream)
{
    Bytes bytes{stream};
    AVFormatContext* opening = avformat_alloc_context();
    FFwrapper::setFFHandler(opening, &readBytes, nullptr, &bytes);
    FFwrapper::openContext(opening, "", FFwrapper::probeFormat(stream)); // Fails as long as there is too little.
    FormatContextPointer const context(opening);
    QList<qint64> times;
    if (!context || context->nb_streams != 1)
        return times;
    EXPECT_EQ(context->streams[0]->codecpar->codec_id, AV_CODEC_ID_PCM_MULAW);
    EXPECT_EQ(context->streams[0]->codecpar->sample_rate, 8000);
    AVPacket* packet = av_packet_alloc();
    while (av_read_frame(context.get(), packet) >= 0) {
        times.append(av_rescale_q(packet->pts, context->streams[0]->time_base, {1, 8000}));
        av_packet_unref(packet);
    }
    av_packet_free(&packet);
    return times;
}

} // namespace

TEST_F(NativeRtspClientTest, PlaysByUdpAndGoesOnAfterALoss)
{
    connectTo(_server.address());
    ASSERT_TRUE(untilPlaying());
    _server.sendSound(10);
    ASSERT_TRUE(processEventsUntil([this] { return soundTimes(_headers.value(0) + _data).size() == 10; }));
    EXPECT_EQ(_server.count("SETUP UDP"), 1);
    EXPECT_EQ(_connections, 1);

    _server.dropConnections();
    EXPECT_EQ(untilEnd(), NetworkErrors::EndOfStream);
    EXPECT_TRUE(_client->isNetworkAvailable());
    EXPECT_FALSE(_client->isFinite());
    connectTo(_server.address());
    ASSERT_TRUE(processEventsUntil([this] { return _connections == 2; }));
    _server.sendSound(5);
    ASSERT_TRUE(processEventsUntil([this] { return soundTimes(_headers.value(0) + _data).size() == 15; }));
    EXPECT_EQ(_headers.value(0), _headers.value(1));
    QList<qint64> const times = soundTimes(_headers.value(0) + _data);
    for (qsizetype i = 1; i < times.size(); ++i)
        EXPECT_EQ(times[i] - times[i - 1], 160) << i; // One clock for both sessions.
}

TEST_F(NativeRtspClientTest, TheSessionIsKeptAliveInUdpModeAndEnded)
{
    _server.session = "1;timeout=1"; // Half of that rounds to none: a word with each packet.
    connectTo(_server.address());
    ASSERT_TRUE(untilPlaying());
    EXPECT_TRUE(processEventsUntil([this] {
        _server.sendSound(1);
        return _server.count("GET_PARAMETER") >= 3;
    }));
    _client->disconnectFromServer();
    EXPECT_TRUE(processEventsUntil([this] { return _server.openConnections() == 0; }));

    // Without answers on their way: those would make the connection end in a reset, which takes the last word with
    // it.
    _server.session = "2;timeout=60";
    int const before = _server.count("TEARDOWN");
    _data.clear();
    connectTo(_server.address());
    ASSERT_TRUE(processEventsUntil([this] { return _connections == 2; }));
    _server.sendSound(1);
    ASSERT_TRUE(untilData());
    _client->disconnectFromServer();
    EXPECT_TRUE(processEventsUntil([&] { return _server.count("TEARDOWN") == before + 1; }));
    EXPECT_TRUE(processEventsUntil([this] { return _server.openConnections() == 0; }));
    EXPECT_TRUE(_ends.isEmpty());
}

TEST_F(NativeRtspClientTest, TakesTcpWhenUdpBringsNothingAndRemembersIt)
{
    make({.udp = 50, .silence = 5000});
    connectTo(_server.address());
    ASSERT_TRUE(processEventsUntil([this] { return _server.count("SETUP TCP") == 1 && _server.isPlaying(); }));
    _server.sendSound(3);
    ASSERT_TRUE(untilData());
    _server.dropConnections();
    untilEnd();
    connectTo(_server.address());
    ASSERT_TRUE(processEventsUntil([this] { return _server.count("SETUP TCP") == 2; }));
    EXPECT_EQ(_server.count("SETUP UDP"), 1);
}

TEST_F(NativeRtspClientTest, TakesTheTransportThatTheServerDoesNotRefuse)
{
    for (bool const refusesTcp : {false, true}) {
        RtspTestServer server;
        server.on("SETUP", [&](Request const& request) {
            bool const refuses = request.isTcp() == refusesTcp;
            server.on("SETUP", refuses || server.count("SETUP TCP") > 0 ? RtspTestServer::Answer() : nullptr);
            return RtspTestServer::reply(request, "461 Unsupported transport");
        });
        if (refusesTcp) // Answered for UDP, refused for TCP.
            server.on("SETUP", nullptr);
        make({.udp = refusesTcp ? 50 : 5000, .silence = 5000});
        if (refusesTcp)
            server.on("PLAY", [&](Request const& request) {
                server.on("SETUP", [&](Request const& setup) {
                    server.on("SETUP", nullptr);
                    return RtspTestServer::reply(setup, "461 Unsupported transport");
                });
                server.on("PLAY", nullptr);
                return RtspTestServer::reply(request, "200 OK", "Session: 1\r\n");
            });
        connectTo(server.address());
        QStringList const expected =
            refusesTcp ? QStringList{"SETUP UDP", "SETUP TCP", "SETUP UDP"} : QStringList{"SETUP UDP", "SETUP TCP"};
        ASSERT_TRUE(processEventsUntil([&] { return server.asked().filter("SETUP") == expected; }));
        ASSERT_TRUE(processEventsUntil([&] { return server.isPlaying() && server.asked().last() == "PLAY"; }));
        _data.clear();
        server.sendSound(3);
        EXPECT_TRUE(untilData());
        _client.reset();
    }
}

TEST_F(NativeRtspClientTest, EachFailureHasItsError)
{
    QByteArray const video = "m=video 0 RTP/AVP 96\r\na=control:picture\r\na=rtpmap:96 H264/90000\r\n";
    QByteArray const subtitles =
        "m=application 0 RTP/AVP 98\r\na=control:data\r\na=rtpmap:98 vnd.onvif.metadata/90000\r\n";
    struct Case {
        char const* what;
        QByteArray method;
        std::function<QByteArray(Request const&)> answer;
        int error;
    };
    auto const status = [](QByteArray const& text) {
        return [text](Request const& request) { return RtspTestServer::reply(request, text); };
    };
    auto const described = [](QByteArray const& media) {
        return [media](Request const& request) { return RtspTestServer::describe(request, media); };
    };
    Case const cases[] = {
        {"password", "DESCRIBE",
         [](Request const& request) {
             return RtspTestServer::reply(request, "401 Unauthorized", "WWW-Authenticate: Basic realm=\"r\"\r\n");
         },
         NetworkErrors::AuthenticationRequired},
        {"authentication header without its end", "DESCRIBE",
         [](Request const& request) {
             return RtspTestServer::reply(request, "401 Unauthorized", "WWW-Authenticate: Digest realm=\"r\r\n");
         },
         NetworkErrors::AuthenticationRequired},
        {"absent", "DESCRIBE", status("404 Not Found"), NetworkErrors::StreamUnavailable},
        {"busy", "SETUP", status("453 Not Enough Bandwidth"), NetworkErrors::StreamUnavailable},
        {"broken", "DESCRIBE", status("500 Internal Server Error"), NetworkErrors::StreamUnavailable},
        {"no streams", "DESCRIBE", described({}), NetworkErrors::StreamUnavailable},
        {"only data", "DESCRIBE", described(subtitles), NetworkErrors::StreamUnavailable},
        {"H.264 without fmtp, and silent", "DESCRIBE", described(video), NetworkErrors::StreamUnavailable},
        {"a picture of no kind", "DESCRIBE", described("m=video 0 RTP/AVP 127\r\n"),
         NetworkErrors::StreamUnavailable},
        {"no SDP", "DESCRIBE", [](Request const& request) { return RtspTestServer::reply(request); },
         NetworkErrors::StreamUnavailable},
        {"silent", "DESCRIBE", [](Request const&) { return QByteArray(); }, NetworkErrors::CouldNotConnect},
        {"hangs up", "DESCRIBE",
         [this](Request const&) {
             QMetaObject::invokeMethod(
                 &_server, [this] { _server.dropConnections(); }, Qt::QueuedConnection);
             return QByteArray();
         },
         NetworkErrors::StreamUnavailable},
    };
    for (Case const& c : cases) {
        SCOPED_TRACE(c.what);
        make({.udp = 100, .silence = 100});
        _server.on(c.method, c.answer);
        connectTo(_server.address(), 500);
        EXPECT_EQ(untilEnd(), c.error);
        _server.on(c.method, nullptr);
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
    // What breaks off long before its end, or goes on long after it, is lost all the same.
    for (QByteArray const range : {"", "npt=0-10", "npt=0-0.01", "npt=0-0.1"}) {
        bool const isFinite = range == "npt=0-0.1";
        QByteArray const media = _server.media;
        if (!range.isEmpty())
            _server.media.prepend("a=range:" + range + "\r\n");
        make();
        connectTo(_server.address());
        ASSERT_TRUE(untilPlaying());
        _server.sendSound(5);
        ASSERT_TRUE(processEventsUntil([this] { return soundTimes(_headers.value(0) + _data).size() == 5; }));
        _server.sendBye();
        EXPECT_EQ(untilEnd(), NetworkErrors::EndOfStream);
        EXPECT_EQ(_client->isFinite(), isFinite) << range.constData();
        _server.media = media;
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

TEST_F(NativeRtspClientTest, ThePasswordIsSentAndNeverLogged)
{
    LogCapture const capture;
    QByteArray credentials;
    _server.on("DESCRIBE", [&](Request const& request) {
        credentials = request.header("Authorization");
        return credentials.isEmpty()
                   ? RtspTestServer::reply(request, "401 Unauthorized", "WWW-Authenticate: Basic realm=\"r\"\r\n")
                   : RtspTestServer::reply(request, "404 Not Found");
    });
    connectTo(_server.address("me:s3cr%40t@"));
    EXPECT_EQ(untilEnd(), NetworkErrors::StreamUnavailable);
    EXPECT_EQ(credentials, "Basic " + QByteArray("me:s3cr@t").toBase64());
    EXPECT_TRUE(capture.contains("Connecting to rtsp://127.0.0.1"));
    EXPECT_FALSE(capture.contains("s3cr"));
}

TEST_F(NativeRtspClientTest, HostileAnswersEndInAnErrorWithinTheTime)
{
    QByteArray const head = "RTSP/1.0 200 OK\r\nCSeq: 1\r\n";
    QString const self = _server.address();
    QByteArray const answers[] = {
        head + QByteArray("X: y\r\n").repeated(10000),
        head + "X: " + QByteArray(1 << 20, 'a') + "\r\n\r\n",
        head + QByteArray("X: a\0b\r\nSession: \0\r\n\r\n", 22),
        QByteArray(1 << 20, '\0'),
        QByteArray(1 << 20, '$'),
        "$" + QByteArray(1 << 20, '\xff'),
        head + "Content-Length: -1\r\n\r\n",
        head + "Content-Length: 99999999999999999999\r\n\r\n",
        head + "Content-Length: 1000000\r\n\r\nshort",
        head + "WWW-Authenticate: Digest realm=\"" + QByteArray(100000, 'r'),
        "HTTP/1.1 200 OK\r\n\r\n",
        "RTSP/1.0 302 Found\r\nCSeq: 1\r\nLocation: " + self.toUtf8() + "\r\n\r\n",
        "RTSP/1.0 302 Found\r\nCSeq: 1\r\nLocation: file:///etc/passwd\r\n\r\n",
    };
    for (char const* const method : {"OPTIONS", "DESCRIBE", "SETUP", "PLAY"})
        for (QByteArray const& answer : answers) {
            SCOPED_TRACE(method + std::string(" ") + answer.left(80).toStdString());
            make({.udp = 50, .silence = 50});
            _server.on(method, [&answer](Request const& request) {
                return QByteArray(answer).replace("CSeq: 1", QByteArray("CSeq: " + request.header("CSeq")));
            });
            connectTo(self, 100);
            EXPECT_GT(untilEnd(), 0);
            _server.on(method, nullptr);
        }
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

TEST_F(NativeRtspClientTest, HostileDescriptionsDoNoHarm)
{
    QByteArray const sound = "m=audio 0 RTP/AVP 0\r\na=control:sound\r\n";
    QByteArray const descriptions[] = {
        sound.repeated(1000),
        "m=video 0 RTP/AVP 96\r\na=rtpmap:96 H264/90000\r\na=fmtp:96 sprop-parameter-sets=" + QByteArray(100000, 'A'),
        "m=video 0 RTP/AVP 96\r\na=rtpmap:96 H264/90000\r\na=fmtp:96 "
        "sprop-parameter-sets=,,,=;packetization-mode\r\n",
        "m=audio 0 RTP/AVP 97\r\na=rtpmap:97 mpeg4-generic/0/0\r\na=fmtp:97 config=;sizelength=-1;indexlength=99\r\n",
        "m=audio 0 RTP/AVP 97\r\na=rtpmap:97 MP4A-LATM/90000\r\na=fmtp:97 config=ffffffffffffffff;cpresent=0\r\n",
        "a=control:" + QByteArray(100000, '/') + "\r\n" + sound,
        "m=\r\nc=\r\na=\r\n=\r\n\r\n" + sound,
    };
    for (QByteArray const& media : descriptions) {
        SCOPED_TRACE(media.left(80).toStdString());
        make({.udp = 50, .silence = 50});
        _server.media = media;
        connectTo(_server.address(), 1000);
        EXPECT_GT(untilEnd(), 0);
    }
}

TEST_F(NativeRtspClientTest, ALookUpThatHangsIsLeftBehind)
{
    NameLookup const lookUp;
    make();
    _client->connectToServer(Uri("rtsp://slow.invalid/live"), 10 - NativeRtspClient::grace);
    EXPECT_EQ(untilEnd(), NetworkErrors::CouldNotResolve);
    EXPECT_EQ(lookUp.waiting(), 1);
    connectTo(_server.address()); // Nothing stands in the way of the next.
    EXPECT_TRUE(untilPlaying());
}

TEST_F(NativeRtspClientTest, TheNumberOfThoseLeftBehindIsBounded)
{
    NameLookup const lookUp;
    for (int i = 0; i < RtspWorkers::maximum; ++i)
        connectTo("rtsp://slow.invalid/live");
    EXPECT_TRUE(_ends.isEmpty());
    connectTo(_server.address());
    EXPECT_EQ(untilEnd(), NetworkErrors::GeneralError);
}

TEST_F(NativeRtspClientTest, ClosesAtAnyMoment)
{
    QRandomGenerator random(7);
    double slowest = 0;
    for (int i = 0; i < 300; ++i) {
        make({.udp = 20, .silence = 1000}); // Through all of connecting, UDP, TCP and streaming.
        connectTo(_server.address());
        QElapsedTimer running;
        running.start();
        qint64 const microseconds = random.bounded(i % 10 == 0 ? 60000 : 8000);
        while (running.nsecsElapsed() < microseconds * 1000) {
            QCoreApplication::processEvents();
            if (_server.isPlaying())
                _server.sendSound(1);
        }
        QElapsedTimer closing;
        closing.start();
        _client.reset();
        slowest = std::max(slowest, static_cast<double>(closing.nsecsElapsed()) / 1e6);
        while (_workers->count() > RtspWorkers::maximum / 2)
            QCoreApplication::processEvents(); // They take leave of the server, which is in this thread.
    }
    std::printf("the slowest of 300 endings took %.3f ms\n", slowest);
    EXPECT_LT(slowest, 1000);
    EXPECT_TRUE(processEventsUntil([this] { return _workers->count() == 0; }));
}
