// The reader thread of a movie: from the data source to the two queues.

#include "GLMovie.h"
#include "GLMovieAudioOutput.h"
#include "GLMovieDataSource.h"
#include "GLMoviePacketQueue.h"
#include "GLMoviePacketQueueWatcher.h"
#include "GLMovieVideoOutput.h"
#include "Logger.h"

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
}

#include <cmath>

namespace
{

// A film whose sound is sparse must not bring all its pictures into memory.
constexpr qint64 maximumVideoBytes = 128 * 1024 * 1024;
constexpr int fewAudioPackets = 8;
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
        if (_requests.isStopRequested()) {
            LOG_DEBUG("Stop was requested. Breaking out of main loop");
            break;
        }
        if (std::optional<double> const target = _requests.takeSeek()) {
            seekTo(*target);
            continue;
        }
        if (_requests.isPaused() && ++pausedRounds % pausedRoundsPerSecond == 0)
            emit _dataSource->resetErrorTimer(); // Paused is not silent.
        if (readerMustWait()) {
            _requests.pauseReader(readerPause);
            continue;
        }
        if (readOnePacket(packet) || _requests.readerMustTurn())
            continue;
        drain();
        if (!_requests.readerMustTurn() && !restart())
            break;
    }
    av_packet_free(&packet);
    QThread::exit(0);
}

bool GLMovie::readerMustWait() const
{
    if (_requests.isPaused() || _videoQueue->bytes() > maximumVideoBytes)
        return true;
    bool const hasSound = _audioStream && !_options.ignoreAudio && (_clock.hasSound() || !_options.renderAudio);
    if (hasSound && _audioQueue->isFull())
        return true;
    // Where both have enough there is nothing to look for. Sound that is given up, or has died, paces nothing; to
    // tell so, or to find what a film has put late, pictures are read ahead some seconds.
    bool const lacksSound = hasSound && _audioQueue->length() < fewAudioPackets && !_counter.isSoundMissing();
    return _videoQueue->isFull() && !lacksSound;
}

bool GLMovie::readOnePacket(AVPacket* packet)
{
    int const result = _dataSource->readFrame(packet);
    if (result == AVERROR(EAGAIN)) {
        LOG_DEBUG("Told to read the frame again");
        _requests.pauseReader(drainPause);
        return true;
    }
    if (result < 0) {
        _sourceLost = result != AVERROR_EOF;
        return false;
    }
    if (isRepeated(*packet))
        LOG_DEBUG("Packet of stream %d left out, it has come before", packet->stream_index);
    else if (_videoStream && packet->stream_index == _videoStream->index)
        takeVideoPacket(packet);
    else if (_audioStream && packet->stream_index == _audioStream->index)
        takeAudioPacket(packet);
    _dataSource->freeFrame(packet);
    return true;
}

bool GLMovie::isRepeated(AVPacket const& packet)
{
    std::optional<qint64> const comeback = _dataSource->comeback();
    if (!comeback)
        return false;
    for (AVStream const* const stream : {_videoStream, _audioStream})
        if (stream && stream->index == packet.stream_index)
            return _repetition.contains(packet, stream->time_base, *comeback);
    return false;
}

void GLMovie::takeVideoPacket(AVPacket* packet)
{
    _counter.countVideo(*packet, _videoStream);
    if (_options.dumpVideo)
        _dump.dumpPacket("Video Packet", *packet);
    if (!_options.ignoreVideo)
        _videoQueue->enqueuePacket(packet);
    else if (_clock.ignoreVideo())
        emit firstVideoPacketReceived();
}

void GLMovie::takeAudioPacket(AVPacket* packet)
{
    _counter.countAudio(*packet, _audioStream);
    if (_options.dumpAudio)
        _dump.dumpPacket("Audio Packet", *packet);
    if (!_options.ignoreAudio)
        _audioQueue->enqueuePacket(packet);
    else if (_clock.ignoreAudio())
        emit firstAudioPacketReceived();
}

void GLMovie::drain()
{
    LOG_INFO("No more frames to queue. Waiting for queued frames to run out");
    auto const wait = [this](auto const& isOver) {
        while (!_requests.readerMustTurn() && !isOver())
            _requests.pauseReader(drainPause);
    };
    _videoQueue->enqueueEnd();
    _audioQueue->enqueueEnd();
    wait([this] { return _videoQueue->isDrained(); });
    wait([this] { return _audioQueue->isDrained(); });
    wait([this] { return !_requests.isPaused() && _audio.isDrained(); });
    if (_requests.readerMustTurn())
        return;
    _audio.stop();
    clearQueues();
}

bool GLMovie::restart()
{
    bool const loop = _requests.loop() && !_sourceLost;
    if (loop)
        LOG_INFO("Movie finished: Looping");
    else
        LOG_INFO("Movie finished. Stopping");
    bool const reset = resetMovie();
    if (!loop || !reset) {
        if (loop)
            LOG_INFO("Seeking failed so movie cannot loop.");
        _requests.endReader(_sourceLost);
        if (!_requests.isStopRequested())
            emit completed(this);
        return false;
    }
    _requests.pauseReader(pauseBeforeLoop);
    if (_requests.readerMustTurn())
        return true;
    LOG_DEBUG("Starting video packet queue watcher");
    LOG_DEBUG("Starting audio packet queue watcher");
    startWatchers();
    _requests.setPlaying(true);
    emit looped(this);
    return true;
}

bool GLMovie::resetMovie()
{
    stopWatchers();
    double const start = _dataSource->startTime();
    bool sought = true;
    // The pictures last: it is their key frame that everything has to begin with.
    if (_audioStream && !seekStream(_audioStream, start)) {
        LOG_WARNING("Seeking audio stream to beginning failed");
        sought = false;
    }
    if (_videoStream && !seekStream(_videoStream, start)) {
        LOG_WARNING("Seeking video stream to beginning failed");
        sought = false;
    }
    flushOutputs({});
    _clock.reset(_clock.hasVideo(), _clock.hasSound(), !_dataSource->isSeekable());
    _counter.reset();
    _repetition.clear();
    _requests.setPlaying(false);
    return sought;
}

void GLMovie::seekTo(double seconds)
{
    stopWatchers();
    clearQueues();
    _audio.stop();
    double const target = _clock.seek(seconds, _dataSource->startTime());
    _requests.seekHasGone();
    bool sought = false;
    if (_videoStream) {
        LOG_DEBUG("Seeking video stream to %s seconds", qPrintable(QString::number(seconds)));
        sought = seekStream(_videoStream, target);
        if (!sought)
            LOG_WARNING("Seeking video stream failed");
    }
    // One seek moves every stream of a container; a second one would lose the key frame that the first one found.
    if (_audioStream && !sought) {
        LOG_DEBUG("Seeking audio stream to %s seconds", qPrintable(QString::number(seconds)));
        sought = seekStream(_audioStream, target);
        if (!sought)
            LOG_WARNING("Seeking audio stream failed");
    }
    flushOutputs(sought ? std::optional(target) : std::nullopt);
    _counter.forgetTimes();
    _repetition.clear();
    startWatchers();
    _requests.setPlaying(true);
}

bool GLMovie::seekStream(AVStream const* stream, double seconds)
{
    auto const timestamp = static_cast<long long>(std::llround(seconds / av_q2d(stream->time_base)));
    return _dataSource->seekFrame(stream == _videoStream ? _videoStream : _audioStream, timestamp,
                                  AVSEEK_FLAG_BACKWARD) >= 0;
}

void GLMovie::startWatchers()
{
    _videoWatcher->start(QThread::InheritPriority);
    _audioWatcher->start(QThread::InheritPriority);
}

void GLMovie::stopWatchers()
{
    _requests.setRestarting(true);
    _videoQueue->wake();
    _audioQueue->wake();
    LOG_DEBUG("Waiting for video packet queue...");
    _videoWatcher->wait();
    LOG_DEBUG("Waiting for audio packet queue...");
    _audioWatcher->wait();
    _requests.setRestarting(false);
}

void GLMovie::flushOutputs(std::optional<double> from)
{
    if (_videoOutput)
        _videoOutput->flush(from);
    if (_audioOutput)
        _audioOutput->flush(from);
}

void GLMovie::clearQueues()
{
    _videoQueue->clear();
    _audioQueue->clear();
}

void GLMovie::handleVideoPacket(AVPacket* packet)
{
    if (_videoOutput)
        _videoOutput->handleVideoPacket(packet);
}

void GLMovie::handleAudioPacket(AVPacket* packet)
{
    if (_audioOutput)
        _audioOutput->handleAudioPacket(packet);
}
