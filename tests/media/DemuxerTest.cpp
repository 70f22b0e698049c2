#include "Demuxer.h"

#include "Clips.h"
#include "DetachedThreads.h"
#include "FileDataSource.h"
#include "SourceTestSupport.h"
#include "StreamOpener.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <future>

namespace
{

/// Bytes of which one read is held up until it is let go or, unless it is deaf, the demuxer interrupts it.
class Gate
{
public:
    explicit Gate(QByteArray bytes) : _bytes(std::move(bytes)) {}

    void close(bool isDeaf = false, qsizetype from = 0)
    {
        std::lock_guard const lock(_mutex);
        _closedFrom = from;
        _isDeaf = isDeaf;
    }
    void open()
    {
        std::lock_guard const lock(_mutex);
        _closedFrom.reset();
        _changed.notify_all();
    }
    /// Waits until a read is held up.
    void awaitHeld()
    {
        std::unique_lock lock(_mutex);
        _changed.wait(lock, [this] { return _isHeld; });
    }

    FormatContextPointer operator()(Demuxer const& demuxer)
    {
        _interrupt = demuxer.interruptCallback();
        AVFormatContext* const prepared = avformat_alloc_context();
        FFwrapper::setFFHandler(prepared, &Gate::read, &Gate::seek, this);
        return StreamOpener::open(prepared, {StreamOpener::File, "gate", {}}, demuxer);
    }

private:
    bool isInterrupted() const { return _interrupt.callback(_interrupt.opaque) != 0; }

    static int read(void* opaque, std::uint8_t* buffer, int size)
    {
        auto& self = *static_cast<Gate*>(opaque);
        std::unique_lock lock(self._mutex);
        self._isHeld = self._closedFrom && self._position >= *self._closedFrom;
        self._changed.notify_all();
        while (self._isHeld && self._closedFrom && (self._isDeaf || !self.isInterrupted()))
            self._changed.wait_for(lock, std::chrono::milliseconds(1)); // As FFmpeg's own protocols ask.
        if (std::exchange(self._isHeld, false))
            self._closedFrom.reset();
        if (self.isInterrupted())
            return AVERROR_EXIT;
        qsizetype const end = self._closedFrom && *self._closedFrom > 0 ? *self._closedFrom : self._bytes.size();
        qsizetype const count = std::min<qsizetype>(size, end - self._position);
        std::memcpy(buffer, self._bytes.constData() + self._position, static_cast<std::size_t>(count));
        self._position += count;
        return count > 0 ? static_cast<int>(count) : AVERROR_EOF;
    }
    static std::int64_t seek(void* opaque, std::int64_t offset, int origin)
    {
        auto& self = *static_cast<Gate*>(opaque);
        if ((origin & ~AVSEEK_FORCE) == AVSEEK_SIZE)
            return self._bytes.size();
        return self._position = offset;
    }

    QByteArray const _bytes;
    qsizetype _position = 0; ///< On the demuxer's thread.
    AVIOInterruptCB _interrupt{};
    std::mutex _mutex; ///< Guards what follows.
    std::condition_variable _changed;
    std::optional<qsizetype> _closedFrom;
    bool _isDeaf = false;
    bool _isHeld = false;
};

class DemuxerTest : public testing::Test
{
protected:
    static constexpr int frames = 30 * 25;

    void start()
    {
        bool isOver = false;
        demuxer = Demuxer::start(std::ref(gate), -1, &listener, [&] { isOver = true; });
        ASSERT_TRUE(waitUntil([&] { return isOver; }));
        ASSERT_TRUE(demuxer->isOpen());
    }
    /// Reads, until FFmpeg is held up.
    std::future<int> readUntilHeld(bool isDeaf = false)
    {
        gate.close(isDeaf);
        auto reading = std::async(std::launch::async, [this] { return readAll(); });
        gate.awaitHeld();
        return reading;
    }
    int readAll()
    {
        AVPacket* packet = av_packet_alloc();
        int result = 0;
        for (; (result = demuxer->read(packet)) >= 0; av_packet_unref(packet))
            ++count;
        av_packet_free(&packet);
        return result;
    }
    int seekToStart() { return demuxer->seek(demuxer->info().video, 0, AVSEEK_FLAG_BACKWARD); }
    bool isInterrupted() const
    {
        AVIOInterruptCB const interrupt = demuxer->interruptCallback();
        return interrupt.callback(interrupt.opaque) != 0;
    }
    void TearDown() override
    {
        demuxer->abandon();
        gate.open();
        std::weak_ptr<Demuxer> const ending = std::exchange(demuxer, nullptr);
        EXPECT_TRUE(waitUntil([&] { return ending.expired(); }));
    }

    QObject listener;
    Gate gate{Clips::bytes(Clips::videoOnly(30))};
    std::shared_ptr<Demuxer> demuxer;
    std::atomic<int> count{0}; ///< Of packets read.
};

} // namespace

TEST_F(DemuxerTest, AReadGivesWayToASeekAndGoesOnThere)
{
    start();
    auto reading = readUntilHeld();
    EXPECT_GE(seekToStart(), 0);
    EXPECT_EQ(reading.get(), AVERROR_EOF);
    EXPECT_GE(count, frames);
}

TEST_F(DemuxerTest, AnInterruptedSeekLosesNothingOfWhatIsRead)
{
    start();
    auto reading = readUntilHeld(true);
    auto seeking = std::async(std::launch::async, [this] { return seekToStart(); });
    EXPECT_TRUE(waitUntil([this] { return isInterrupted(); }));
    demuxer->setInterrupted(true); // The seek still waits for FFmpeg, which does not listen.
    EXPECT_EQ(seeking.get(), AVERROR_EXIT);
    EXPECT_EQ(reading.get(), AVERROR_EXIT);
    demuxer->setInterrupted(false);
    gate.open();
    EXPECT_EQ(readAll(), AVERROR_EOF);
    EXPECT_NEAR(count, frames, 2); // What FFmpeg cut off may miss a few bytes.
}

TEST_F(DemuxerTest, AbandonedItEndsInWhateverItIsHeldUpBy)
{
    start();
    auto reading = readUntilHeld();
    demuxer->abandon();
    EXPECT_EQ(reading.get(), AVERROR_EXIT);
    std::weak_ptr<Demuxer> const ending = std::exchange(demuxer, nullptr);
    EXPECT_TRUE(waitUntil([&] { return ending.expired(); }));

    gate.close(false, 5000); // While it looks for streams, in the first picture.
    demuxer = Demuxer::start(std::ref(gate), -1, &listener, [] { FAIL() << "nobody listens any more"; });
    gate.awaitHeld();
    TearDown();
    QCoreApplication::processEvents();
    start();
}

TEST(KeyFrameSeek, FindsTheKeyFrameBeforeWhereTheFormatHasNoIndex)
{
    FileDataSource source(Clips::rareKeyFrames(25));
    ASSERT_TRUE(openSource(source));
    double const second = 1.0 / av_q2d(source.videoSnapshot().timeBase);
    AVPacket* packet = av_packet_alloc();
    for (auto const& [target, key] : {std::pair{24.0, 20.0}, {9.9, 0.0}, {20.1, 20.0}, {0.0, 0.0}, {10.1, 10.0}}) {
        long long const time = std::llround((source.startTime() + target) * second);
        ASSERT_GE(source.seekFrame(source.videoStream(), time, AVSEEK_FLAG_BACKWARD), 0);
        double last = 0.0; // Of a row of pictures without a gap.
        for (bool isFirst = true; last < target - 0.05 || isFirst; av_packet_unref(packet)) {
            ASSERT_EQ(source.readFrame(packet), 0) << target;
            if (packet->stream_index != source.videoSnapshot().index)
                continue;
            double const now = static_cast<double>(packet->pts) / second - source.startTime();
            EXPECT_NEAR(now, isFirst ? key : last + 0.04, 0.03) << target;
            EXPECT_TRUE(!isFirst || packet->flags & AV_PKT_FLAG_KEY) << target;
            last = now;
            isFirst = false;
        }
    }
    av_packet_free(&packet);
}

TEST(KeyFrameSeek, ACoverIsSoughtByTheSound)
{
    FileDataSource source(Clips::withCover("mp3"));
    ASSERT_TRUE(openSource(source));
    double const second = 1.0 / av_q2d(source.videoSnapshot().timeBase);
    EXPECT_GE(source.seekFrame(source.videoStream(), std::llround(3.0 * second), AVSEEK_FLAG_BACKWARD), 0);
    int const rest = readToEnd(source).audioFrames;
    EXPECT_GE(source.seekFrame(source.videoStream(), 0, AVSEEK_FLAG_BACKWARD), 0);
    EXPECT_GT(readToEnd(source).audioFrames, 2 * rest);
    EXPECT_GT(rest, 0);
}

TEST(DetachedThreadsDeathTest, TheEndOfTheProcessAsksThemToFinishWaitsAndKeepsItsStatus)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    static std::promise<void> asked;
    auto const endWhileAtWork = [](int farewell, bool isAsked) {
        if (isAsked)
            DetachedThreads::setAtEnd([] { asked.set_value(); });
        static DetachedThreads& threads = DetachedThreads::make(std::chrono::milliseconds(farewell));
        threads.start([] {
            asked.get_future().wait();
            std::fputs("finished", stderr);
        });
        std::exit(3);
    };
    EXPECT_EXIT(endWhileAtWork(10000, true), testing::ExitedWithCode(3), "finished");
    EXPECT_EXIT(endWhileAtWork(0, false), testing::ExitedWithCode(3), "") << "who hangs is left behind";
}
