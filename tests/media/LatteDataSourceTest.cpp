#include "LatteDataSource.h"

#include "Clips.h"
#include "FFwrapper.h"
#include "FakeLatteClient.h"
#include "FileLatteClientFactory.h"
#include "Latte.h"
#include "LatteInput.h"
#include "LogCapture.h"
#include "SourceTestSupport.h"

#include <gmock/gmock.h>

namespace
{

/// A source whose clock the test moves.
class ClockedLatteSource : public LatteDataSource
{
public:
    using LatteDataSource::LatteDataSource;

    QTimer* timer(char const* name) const { return findChild<QTimer*>(name); }
    using LatteDataSource::hasDemuxer;
    using LatteDataSource::onErrorTimer;

    std::atomic<qint64> now{0};

protected:
    qint64 currentMilliseconds() const override { return now; }
};

/// One ASF file taken apart into the header that a client describes and the packets that it delivers.
struct Asf {
    explicit Asf(QString const& path)
    {
        QByteArray const file = Clips::bytes(path);
        qsizetype const data = file.indexOf(QByteArray::fromHex("3626b2758e66cf11a6d900aa0062ce6c")) + 50;
        qsizetype const index = file.indexOf(QByteArray::fromHex("90080033b1e5cf1189f400a0c90349cb"));
        header = file.left(data);
        qsizetype const flags = header.indexOf(QByteArray::fromHex("a1dcab8c47a9cf118ee400c00c205365")) + 88;
        header[flags] = 3; // Broadcast, seekable: the length in the header means nothing.
        packets = file.mid(data, index - data);
    }

    static constexpr int packetSize = 3200;
    QByteArray header;
    QByteArray packets;
};

class LatteDataSourceTest : public testing::Test
{
protected:
    LatteDataSourceTest()
    {
        for (char const* scheme : {"mms", "http", "rtsp"})
            _latte.registerLatteClientFactory(UriScheme(scheme), &_factory);
    }

    void open(char const* uri, QByteArray const& profile = {})
    {
        StreamDescription description{Uri(uri)};
        description.setDescriptor(profile);
        _source = std::make_unique<ClockedLatteSource>(&_latte, description, QString());
        _opened = std::make_unique<QSignalSpy>(_source.get(), &GLMovieDataSource::opened);
        _error = std::make_unique<QSignalSpy>(_source.get(), &GLMovieDataSource::error);
        _closed = std::make_unique<QSignalSpy>(_source.get(), &GLMovieDataSource::closed);
        _source->open();
    }

    /// Lets queued signals arrive.
    static void settle() { QCoreApplication::processEvents(); }

    FakeLatteClient& client() const { return *_factory.client; }

    void deliver(QByteArray const& bytes)
    {
        client().deliver(bytes);
        settle();
    }

    /// Brings the source to the open state, on the whole of an ASF file.
    void openOn(Asf const& asf)
    {
        open("mms://host/live");
        client().setDescriptor(asf.header);
        settle();
        _source->now = 5000;
        deliver(asf.packets);
        ASSERT_TRUE(waitUntil([this] { return _opened->size() == 1; }));
    }

    Latte _latte;
    FakeLatteClientFactory _factory;
    std::unique_ptr<ClockedLatteSource> _source;
    std::unique_ptr<QSignalSpy> _opened;
    std::unique_ptr<QSignalSpy> _error;
    std::unique_ptr<QSignalSpy> _closed;
};

} // namespace

TEST_F(LatteDataSourceTest, OpensWhenTheStartDelayIsOver)
{
    Asf const asf(Clips::wmv());
    for (int const delay : {0, 5000}) {
        open("mms://host/live");
        if (delay == 0)
            _source->setStartDelay(0);
        client().setDescriptor(asf.header);
        _source->now = delay - 1;
        deliver(asf.packets);
        EXPECT_TRUE(_opened->isEmpty());
        EXPECT_TRUE(_source->timer("retryTimer")->isActive()); // Should nothing more come, it opens all the same.
        EXPECT_EQ(_source->timer("retryTimer")->interval(), 1);
        _source->now = delay;
        EXPECT_TRUE(waitUntil([this] { return _opened->size() == 1; }));
        EXPECT_TRUE(_source->videoStream());
        EXPECT_TRUE(_source->audioStream());
        EXPECT_FALSE(_source->isSeekable());
    }
}

TEST_F(LatteDataSourceTest, OtherSchemesWaitForEnoughBytes)
{
    Asf const asf(Clips::wmv(12));
    open("rtsp://host/live", asf.header); // The directory's descriptor stands in for the client's.
    _source->now = 5000;
    deliver(asf.packets.left(127999));
    EXPECT_TRUE(_opened->isEmpty());
    EXPECT_FALSE(_source->hasDemuxer());
    deliver(asf.packets.mid(127999, 1));
    EXPECT_TRUE(waitUntil([this] { return _opened->size() == 1; }));
    client().setState(LatteClient::Finished);
}

TEST_F(LatteDataSourceTest, EveryPacketArrivesInOrderFromBothBuffers)
{
    Asf const asf(Clips::wmv(12));
    open("mms://host/live");
    client().setDescriptor(asf.header);
    client().setPacketSize(Asf::packetSize);
    _source->now = 5000;
    qsizetype const half = asf.packets.size() / 2 / Asf::packetSize * Asf::packetSize;
    deliver(asf.packets.left(half));
    ASSERT_TRUE(waitUntil([this] { return _opened->size() == 1; }));
    Reader reader(*_source);
    for (qsizetype at = half; at < asf.packets.size(); at += 5000) // Pieces that are no whole packets.
        deliver(asf.packets.mid(at, 5000));
    EXPECT_FALSE(reader.isDone());
    client().setState(LatteClient::Finished);
    ReadResult const result = reader.result();
    EXPECT_EQ(result.end, AVERROR_EOF);
    EXPECT_EQ(result.videoFrames, 300);
    EXPECT_GT(result.audioFrames, 200);
}

TEST_F(LatteDataSourceTest, AStreamThatCannotBeParsedIsTriedAgainEveryFiveSeconds)
{
    LogCapture const capture;
    Asf const asf(Clips::wmv());
    QByteArray broken = asf.header.left(30);
    open("mms://host/live");
    client().setDescriptor(broken);
    _source->now = 5000;
    deliver("some");
    EXPECT_TRUE(waitUntil([this] { return !_source->hasDemuxer(); }));
    _source->now = 9999;
    deliver("more");
    EXPECT_EQ(capture.count("Opening mms://host/live"), 1);
    client().setDescriptor(asf.header);
    _source->now = 10000;
    deliver("");
    EXPECT_TRUE(waitUntil([&] { return capture.count("Opening mms://host/live") == 2; }));
    EXPECT_EQ(client().emptyReads(), 0) << "a read and a signal would chase each other for ever";
    EXPECT_TRUE(_closed->isEmpty());
    EXPECT_TRUE(capture.contains("Cannot play mms://host/live"));
}

TEST_F(LatteDataSourceTest, WhatCannotBePlayedIsReported)
{
    open("mms://host/live");
    client().setDescriptor(QByteArray(100, '\xA7'));
    _source->now = 5000;
    deliver("data");
    EXPECT_EQ(_opened->size(), 1);
    EXPECT_EQ(_source->videoStream(), nullptr);
    EXPECT_EQ(_source->audioStream(), nullptr);
    EXPECT_LT(readToEnd(*_source).end, 0);
    open("mms://host/live");
    client().setDescriptor(Asf(Clips::wmv()).header.left(30));
    client().setState(LatteClient::Finished); // Nothing comes to try again with.
    _source->now = 10000;
    deliver("data");
    EXPECT_TRUE(waitUntil([this] { return _error->size() == 1; }));
    open("gopher://host/a");
    EXPECT_EQ(_factory.client, nullptr);
    ASSERT_EQ(_error->size(), 1);
    EXPECT_EQ(_error->first().at(1).toString(), "Stream unavailable");
}

TEST_F(LatteDataSourceTest, ABlockedReadEndsOnInterruptionAndOnTheClientsState)
{
    Asf const asf(Clips::wmv());
    for (bool const interrupt : {true, false}) {
        openOn(asf);
        Reader reader(*_source);
        ASSERT_TRUE(waitUntil([this] { return _source->bytesRead() > 50000; }));
        if (interrupt)
            _source->setInterrupted(true);
        else
            client().setState(LatteClient::Idle);
        int const end = reader.result().end;
        settle();
        EXPECT_EQ(end == AVERROR_EXIT, interrupt);
        EXPECT_NE(end, AVERROR_EOF); // A live stream has no end: this is a loss.
        EXPECT_EQ(_error->size(), interrupt ? 0 : 1);
    }
    EXPECT_EQ(_error->first().at(1).toString(), "Stream unavailable");
}

TEST_F(LatteDataSourceTest, WhatMayComeAgainIsRememberedFromTheBeginning)
{
    open("mms://host/live");
    std::vector<std::optional<qint64>> comebacks{_source->comeback()};
    for (int plays = 0; plays < 3; ++plays) {
        emit client().playing(&client());
        comebacks.push_back(_source->comeback());
        _source->now += 1000;
    }
    _source->now += LatteDataSource::repetitionTime;
    comebacks.push_back(_source->comeback());
    EXPECT_THAT(comebacks, testing::ElementsAre(0, 0, testing::Gt(0), testing::Gt(comebacks[2]), 0));
}

TEST_F(LatteDataSourceTest, ANewHeaderResetsAndOpensAnew)
{
    Asf const first(Clips::wmv());
    Asf const second(Clips::wmv(12));
    openOn(first);
    Reader reader(*_source);
    ASSERT_TRUE(waitUntil([this] { return _source->bytesRead() > 50000; }));
    client().setDescriptor(second.header);
    client().setDescriptor(second.header);
    settle();
    QTimer* const reset = _source->timer("resetTimer");
    ASSERT_TRUE(reset->isActive());
    EXPECT_EQ(reset->interval(), 3000);
    deliver(second.packets.left(320000));
    EXPECT_FALSE(reader.isDone()); // This is not the end of the stream.
    EXPECT_TRUE(_closed->isEmpty());

    QObject::connect(_source.get(), &GLMovieDataSource::closed, _source.get(), [this] {
        _source->setInterrupted(true); // As the movie does when it stops.
    });
    reset->start(0);
    ASSERT_TRUE(waitUntil([this] { return _closed->size() == 1; }));
    EXPECT_EQ(reader.result().end, AVERROR_EXIT);
    _source->setInterrupted(false);
    ASSERT_TRUE(waitUntil([this] { return _opened->size() == 2; }));
    client().setState(LatteClient::Finished);
    EXPECT_GT(Reader(*_source).result().videoFrames, 80);
}

TEST_F(LatteDataSourceTest, AfterANewHeaderNothingIsTriedBeforeItsPacketsCome)
{
    Asf const second(Clips::wmv(12));
    openOn(Asf(Clips::wmv()));
    Reader reader(*_source);
    ASSERT_TRUE(waitUntil([this] { return client().bytesAvailable() == 0; }));
    client().setDescriptor(second.header);
    settle();
    _source->timer("resetTimer")->start(0);
    ASSERT_TRUE(waitUntil([this] { return _closed->size() == 1; }));
    settle();
    EXPECT_FALSE(_source->hasDemuxer());
    deliver(second.packets.left(320000));
    EXPECT_TRUE(waitUntil([this] { return _opened->size() == 2; })) << "and not five seconds later";
    _source->setInterrupted(true);
}

TEST(LatteInput, WhatComesAfterANewHeaderIsLeftToTheNext)
{
    FakeLatteClient client(Uri("mms://host/live"));
    client.deliver("next");
    LatteInput input(client, {}, "rest");
    input.setInterrupt({[](void*) { return 0; }, nullptr});
    input.startReading();
    input.expectNewHeader();
    unsigned char buffer[100];
    EXPECT_EQ(LatteInput::latteReadCallback(&input, buffer, 100), 4);
    EXPECT_EQ(LatteInput::latteReadCallback(&input, buffer, 100), AVERROR_EOF);
    EXPECT_EQ(client.bytesAvailable(), 4);
}

TEST(LatteInput, WhatRanDryWhileProbingIsAcceptedWhenItsStreamsAreKnown)
{
    FakeLatteClient client(Uri("mms://host/live"));
    LatteInput input(client, {}, {});
    unsigned char buffer[100];
    EXPECT_EQ(LatteInput::latteReadCallback(&input, buffer, 100), AVERROR_EOF);
    FormatContextPointer const context(avformat_alloc_context());
    FFwrapper::setFFHandler(context.get(), &LatteInput::latteReadCallback, nullptr, &input);
    AVCodecParameters& video = *avformat_new_stream(context.get(), nullptr)->codecpar;
    AVCodecParameters& audio = *avformat_new_stream(context.get(), nullptr)->codecpar;
    video.codec_type = AVMEDIA_TYPE_VIDEO;
    video.format = AV_PIX_FMT_YUV420P;
    audio.codec_type = AVMEDIA_TYPE_AUDIO;
    audio.ch_layout.nb_channels = 2;
    for (auto const& [width, rate] : {std::pair(0, 0), {0, 44100}, {160, 0}, {160, 44100}}) {
        video.width = width;
        audio.sample_rate = rate;
        EXPECT_EQ(input.accepts(context.get()), width > 0 && rate > 0) << width << ' ' << rate;
    }
}

TEST_F(LatteDataSourceTest, ClientLivesOnItsThreadAndComesBack)
{
    open("mms://host/live");
    QThread* const latteThread = client().thread();
    EXPECT_NE(latteThread, QThread::currentThread());
    EXPECT_TRUE(waitUntil([&] { return client().threadOfStart() == latteThread; }));
    QSignalSpy const state(_source.get(), &GLMovieDataSource::stateChanged);
    emit client().progressChanged(&client(), "Acquiring...10%");
    settle();
    EXPECT_EQ(state.size(), 1) << "the viewer reads it";
    client().report(NetworkErrors::CouldNotConnect);
    settle();
    ASSERT_EQ(_error->size(), 1);
    EXPECT_EQ(_error->first().at(1).toString(), "Could not connect to server");
    _source->stop();
    EXPECT_EQ(client().threadOfStop(), latteThread);
    EXPECT_EQ(client().thread(), QThread::currentThread());
    EXPECT_EQ(_error->last().at(1).toString(), "");
    client().report(NetworkErrors::CouldNotConnect);
    _source->close(); // What is still queued comes from a client that is gone.
    settle();
    EXPECT_EQ(_factory.disposals, 1);
    EXPECT_EQ(_error->size(), 2);
    _source->open();
    EXPECT_TRUE(_factory.client);
}

TEST_F(LatteDataSourceTest, ALossIsToldWhenNothingIsLeftToBeShown)
{
    openOn(Asf(Clips::wmv()));
    QSignalSpy const state(_source.get(), &GLMovieDataSource::stateChanged);
    auto const read = [this] {
        AVPacket packet = {};
        ASSERT_GE(_source->readFrame(&packet), 0);
        _source->freeFrame(&packet);
        settle();
    };
    auto const lose = [this] {
        emit client().progressChanged(&client(), "Reconnecting...");
        client().report(NetworkErrors::CouldNotConnect);
        settle();
    };
    QTimer& flow = *_source->timer("flowTimer");
    read();
    lose();
    read();
    EXPECT_EQ(state.size() + _error->size(), 0) << "there are frames";
    emit client().playing(&client());
    settle();
    flow.setInterval(0);
    ASSERT_TRUE(waitUntil([&] { return !flow.isActive(); }));
    EXPECT_EQ(state.size() + _error->size(), 0) << "it was over in time";

    auto const keepFlowing = [&] { // As fast as this the timer may have run out.
        read();
        flow.setInterval(LatteDataSource::flowTime);
        flow.start();
    };
    keepFlowing();
    emit client().progressChanged(&client(), "Stopped");
    emit client().readyRead(&client());
    settle();
    flow.setInterval(0);
    ASSERT_TRUE(waitUntil([&] { return !flow.isActive(); }));
    EXPECT_EQ(state.size(), 0) << "the buffer was full, and no longer is";

    keepFlowing();
    lose();
    flow.setInterval(0);
    ASSERT_TRUE(waitUntil([&] { return _error->size() == 1; }));
    EXPECT_EQ(state.size(), 1);
    _source->onErrorTimer();
    EXPECT_EQ(_error->size(), 1) << "it has been told why";
    lose();
    EXPECT_EQ(_error->size(), 2) << "nothing comes any more";
}

TEST_F(LatteDataSourceTest, ClosesAtAnyMoment)
{
    Asf const asf(Clips::wmv());
    for (int i = 0; i < 16; ++i) {
        open("mms://host/live");
        _source->now = 5000;
        if (i % 4 > 0)
            client().setDescriptor(asf.header);
        if (i % 4 > 1)
            client().deliver(asf.packets.left(i * 8000));
        if (i % 8 > 3)
            settle();
        if (i % 4 == 3)
            Reader const reader(*_source);
        _source->close();
    }
    EXPECT_EQ(_factory.disposals, 16);
}

TEST(FileLatteClient, PlaysAFileThroughADataSourceOrRefusesIt)
{
    Latte latte;
    FileLatteClientFactory factory;
    latte.registerLatteClientFactory(UriScheme("file"), &factory);
    for (auto const& [path, frames] : {std::pair{Clips::wmv(8), 200},
                                       {Clips::h264Aac(8), 200},
                                       {Clips::scratch("missing.wmv"), 0},
                                       {Clips::h264AacIndexLast(), 0}}) {
        ClockedLatteSource source(&latte, StreamDescription(Uri("file://" + path)), QString());
        source.setStartDelay(0);
        QSignalSpy const error(&source, &GLMovieDataSource::error);
        ASSERT_EQ(openSource(source), frames > 0) << qPrintable(path);
        EXPECT_EQ(error.size(), frames > 0 ? 0 : 1);
        EXPECT_EQ(frames > 0 ? Reader(source).result().videoFrames : 0, frames) << qPrintable(path);
    }
}
