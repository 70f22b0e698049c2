// The reader thread of a movie: from the data source to the two queues.

#include "GLMovie.h"
#include "GLMovieDataSource.h"
#include "GLMoviePacketQueue.h"
#include "GLMoviePacketQueueWatcher.h"
#include "Logger.h"

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
#include <libavutil/time.h>
}

#include <cmath>

namespace
{

constexpr int maximumAudioPackets = 32;
constexpr int maximumVideoPackets = 100; // Without sound; with it, the sound paces the reader.
// A film whose sound is sparse must not bring all its pictures into memory.
constexpr qint64 maximumVideoBytes = 128 * 1024 * 1024;
constexpr qint64 readerPause = 20000;      // µs
constexpr qint64 drainPause = 1000;        // µs
constexpr qint64 pauseBeforeLoop = 500000; // µs
constexpr int pausedRoundsPerSecond = 50;

} // namespace

void GLMovie::run()
{
    AVPacket* packet = av_packet_alloc();
    int pausedRounds = 0;
    while (packet) {
        if (_stopRequested) {
            LOG_DEBUG("Stop was requested. Breaking out of main loop");
            break;
        }
        if (_paused && ++pausedRounds % pausedRoundsPerSecond == 0)
            emit _dataSource->resetErrorTimer(); // Paused is not silent.
        if (readerMustWait()) {
            pauseFor(readerPause);
            continue;
        }
        if (readOnePacket(packet))
            continue;
        if (_stopRequested)
            continue;
        drain();
        if (_stopRequested)
            continue;
        if (!restart())
            break;
    }
    av_packet_free(&packet);
    _readerEnded.store(true, std::memory_order_release);
    QThread::exit(0);
}

bool GLMovie::readerMustWait() const
{
    if (_paused)
        return true;
    if (_videoQueue->bytes() > maximumVideoBytes)
        return true;
    return _audioStream ? _audioQueue->length() > maximumAudioPackets : _videoQueue->length() > maximumVideoPackets;
}

bool GLMovie::readOnePacket(AVPacket* packet)
{
    int const result = _dataSource->readFrame(packet);
    if (result == AVERROR(EAGAIN)) {
        LOG_DEBUG("Told to read the frame again");
        pauseFor(drainPause);
        return true;
    }
    if (result < 0) {
        _lost = result != AVERROR_EOF;
        return false;
    }
    if (_videoStream && packet->stream_index == _videoStream->index)
        takeVideoPacket(packet);
    else if (_audioStream && packet->stream_index == _audioStream->index)
        takeAudioPacket(packet);
    _dataSource->freeFrame(packet);
    return true;
}

void GLMovie::takeVideoPacket(AVPacket* packet)
{
    int const lost = packetsLost(*packet, _videoStream, _videoLoss);
    {
        std::lock_guard const lock(_statisticsMutex);
        ++_statistics.videoCount;
        _statistics.videoBytes += packet->size;
        _statistics.videoLost += lost;
        if (lost > 0)
            qDebug("Video Packet loss detected lost %d packets. Percent video packet loss %.2lf", lost,
                   100.0 * static_cast<double>(_statistics.videoLost) /
                       static_cast<double>(_statistics.videoCount + _statistics.videoLost));
    }
    if (_dumpVideo)
        _dump.dumpPacket("Video Packet", *packet);
    if (!_ignoreVideo) {
        _videoQueue->enqueuePacket(packet);
        return;
    }
    if (_waitingForFirstVideo.exchange(false))
        emit firstVideoPacketReceived();
}

void GLMovie::takeAudioPacket(AVPacket* packet)
{
    int const lost = packetsLost(*packet, _audioStream, _audioLoss);
    {
        std::lock_guard const lock(_statisticsMutex);
        ++_statistics.audioCount;
        _statistics.audioBytes += packet->size;
        _statistics.audioLost += lost;
        if (lost > 0)
            qDebug("Audio Packet loss detected lost %d packets. Percent audio packet loss %.2lf", lost,
                   100.0 * static_cast<double>(_statistics.audioLost) /
                       static_cast<double>(_statistics.audioCount + _statistics.audioLost));
    }
    if (_dumpAudio)
        _dump.dumpPacket("Audio Packet", *packet);
    if (!_ignoreAudio) {
        _audioQueue->enqueuePacket(packet);
        return;
    }
    if (_waitingForFirstAudio.exchange(false))
        emit firstAudioPacketReceived();
}

int GLMovie::packetsLost(AVPacket const& packet, AVStream const* stream, LossDetector& detector) const
{
    if (packet.dts == AV_NOPTS_VALUE)
        return 0;
    qint64 const last = detector.lastTimestamp;
    bool const hasLast = detector.hasLast;
    detector.lastTimestamp = packet.dts;
    detector.hasLast = true;

    // The spacing of packets in the stream's time base: what the packet says, else the frame rate.
    double spacing = static_cast<double>(packet.duration);
    if (spacing <= 0.0 && stream->avg_frame_rate.num > 0)
        spacing = av_q2d(av_inv_q(av_mul_q(stream->avg_frame_rate, stream->time_base)));
    if (!hasLast || spacing <= 0.0)
        return 0;
    double const steps = static_cast<double>(packet.dts - last) / spacing;
    // One step is the rule and clocks jitter; a jump beyond a minute is a new clock, not a loss.
    bool const isGap = steps > 1.75 && steps * spacing * av_q2d(stream->time_base) < 60.0;
    return isGap ? static_cast<int>(std::lround(steps)) - 1 : 0;
}

void GLMovie::drain()
{
    LOG_INFO("No more frames to queue. Waiting for queued frames to run out");
    if (!_videoStream || !_videoQueue->enqueueEnd())
        _videoWatcherIdle = true;
    if (!_audioStream || !_audioQueue->enqueueEnd())
        _audioWatcherIdle = true;
    while (!isStopRequested() && (_videoQueue->length() > 0 || !_videoWatcherIdle))
        pauseFor(drainPause);
    while (!isStopRequested() && (_audioQueue->length() > 0 || !_audioWatcherIdle))
        pauseFor(drainPause);
    while (!isStopRequested() && (_paused || (_audio.isPlaying() && !_audio.isDrained())))
        pauseFor(drainPause);
    if (isStopRequested())
        return;
    _audio.stop();
    _videoQueue->clear();
    _audioQueue->clear();
}

bool GLMovie::restart()
{
    bool const loop = _loop && !_lost;
    if (!loop)
        LOG_INFO("Movie finished. Stopping");
    else
        LOG_INFO("Movie finished: Looping");
    bool const reset = resetMovie();
    if (!loop || !reset || _stopRequested) {
        if (loop && !reset)
            LOG_INFO("Seeking failed so movie cannot loop.");
        _playing = false;
        if (!_stopRequested)
            emit completed(this);
        return false;
    }
    pauseFor(pauseBeforeLoop);
    if (_stopRequested)
        return true; // The loop's head says so.
    resetStartTime();
    LOG_DEBUG("Starting video packet queue watcher");
    LOG_DEBUG("Starting audio packet queue watcher");
    startWatchers();
    _playing = true;
    emit looped(this);
    return true;
}

bool GLMovie::resetMovie()
{
    stopWatchers();
    bool sought = true;
    if (_videoStream && !seekStream(_videoStream, 0.0)) {
        LOG_WARNING("Seeking video stream to beginning failed");
        sought = false;
    }
    if (_audioStream && !seekStream(_audioStream, 0.0)) {
        LOG_WARNING("Seeking audio stream to beginning failed");
        sought = false;
    }
    _firstVideoPts = 0.0;
    _firstAudioPts = 0.0;
    _sharesSoundsZero = false;
    _lastVideoPts = 0.0;
    _lastAudioPts = 0.0;
    _playing = false;
    _waitingForFirstVideo = true;
    _waitingForFirstAudio = true;
    _videoLoss = {};
    _audioLoss = {};
    {
        std::lock_guard const lock(_statisticsMutex);
        _statistics = {};
    }
    return sought;
}

bool GLMovie::seekStream(AVStream* stream, double seconds)
{
    double const target = seconds + _dataSource->startTime();
    auto const timestamp = static_cast<long long>(std::llround(target / av_q2d(stream->time_base)));
    return _dataSource->seekFrame(stream, timestamp, AVSEEK_FLAG_BACKWARD) >= 0;
}

void GLMovie::startWatchers()
{
    _videoWatcherIdle = false;
    _audioWatcherIdle = false;
    _videoWatcher->start(QThread::InheritPriority);
    _audioWatcher->start(QThread::InheritPriority);
}

void GLMovie::stopWatchers()
{
    _restarting = true;
    wakeAll();
    LOG_DEBUG("Waiting for video packet queue...");
    _videoWatcher->join();
    LOG_DEBUG("Waiting for audio packet queue...");
    _audioWatcher->join();
    // What the decoders still hold belongs to another place of the film.
    if (_videoCodec)
        avcodec_flush_buffers(_videoCodec.get());
    if (_audioCodec)
        avcodec_flush_buffers(_audioCodec.get());
    _swrContext.reset();
    _restarting = false;
}
