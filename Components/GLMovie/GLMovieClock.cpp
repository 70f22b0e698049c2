// When a movie's pictures are due.

#include "GLMovie.h"
#include "GLMovieDataSource.h"
#include "GLMoviePacketQueue.h"
#include "Logger.h"

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
#include <libavutil/time.h>
}

#include <algorithm>
#include <chrono>

namespace
{

constexpr double jumpSeconds = 10.0;   // A clock that leaps this far has been reset by the sender.
constexpr double tooLateSeconds = 5.0; // A picture later than this is not worth decoding.
constexpr qint64 shortestWait = 1000;  // µs
constexpr qint64 longestWait = 10000;  // µs; sound may start, stop or jump meanwhile.

} // namespace

double GLMovie::masterClockTime() const
{
    qint64 const pauseBegan = _pauseBegan;
    qint64 const now = pauseBegan ? pauseBegan : av_gettime_relative();
    return static_cast<double>(now - _startTime) / 1000000.0;
}

void GLMovie::resetStartTime()
{
    _startTime = av_gettime_relative();
    _lastAudioClockTime = 0;
    LOG_DEBUG("Resetting start time to %lld", static_cast<long long>(_startTime));
}

double GLMovie::clockTime()
{
    if (!_syncToAudio || _waitingForFirstAudio)
        return masterClockTime();
    qint64 const now = _pauseBegan ? _pauseBegan.load() : av_gettime_relative();
    if (_audio.isPlaying()) {
        double const time = _audio.audioTime();
        _lastAudioClock = time;
        _lastAudioClockTime = now;
        return time;
    }
    // Sound that has run dry does not hold the picture up: it goes on at its pace from where the sound was.
    if (_lastAudioClockTime == 0)
        return masterClockTime();
    return _lastAudioClock + static_cast<double>(now - _lastAudioClockTime) / 1000000.0;
}

double GLMovie::computeVideoPacketPTS(qint64 timestamp)
{
    if (timestamp == AV_NOPTS_VALUE)
        return 0.0;
    double const seconds = static_cast<double>(timestamp) * av_q2d(_videoStream->time_base);
    if (!_syncToAudio || _waitingForFirstAudio)
        return seconds - _firstVideoPts;
    if (!_sharesSoundsZero) {
        _soundsZero = _firstAudioPts;
        _sharesSoundsZero = true;
    }
    return seconds - _soundsZero;
}

double GLMovie::computeAudioPacketPTS(qint64 timestamp) const
{
    if (timestamp == AV_NOPTS_VALUE)
        return _lastAudioPts;
    return static_cast<double>(timestamp) * av_q2d(_audioStream->time_base) - _firstAudioPts;
}

bool GLMovie::checkIfPacketNeedsDropping(AVPacket const* packet)
{
    if (_waitingForFirstVideo || packet->size == 0)
        return false;
    qint64 const timestamp = packet->pts != AV_NOPTS_VALUE ? packet->pts : packet->dts;
    if (timestamp == AV_NOPTS_VALUE)
        return false;
    double pts = computeVideoPacketPTS(timestamp);
    double late = clockTime() - pts;
    bool const clockWasReset = _lastVideoPts - pts > jumpSeconds;
    if (late <= tooLateSeconds || clockWasReset)
        return false;
    if (_syncToAudio && _soundsZero != _firstAudioPts) {
        // The sound has followed the sender's new clock after the picture did.
        _sharesSoundsZero = false;
        pts = computeVideoPacketPTS(timestamp);
        late = clockTime() - pts;
        if (late <= tooLateSeconds)
            return false;
    }
    _lastVideoPts = pts;
    _dropUntilKeyframe = _syncToAudio.load();
    LOG_INFO("Dropped video packet with pts %lf seconds as it was %lf seconds later than the audio clock", pts, late);
    return true;
}

double GLMovie::waitForPresentationTime(double pts)
{
    bool const jumpedBack = _lastVideoPts - pts > jumpSeconds;
    // Sound that leaps takes the picture along; without it, a leap ahead would hold the picture for as long.
    bool const jumpedAhead = !_syncToAudio && pts - _lastVideoPts > jumpSeconds;
    if (jumpedBack || jumpedAhead) {
        _firstVideoPts = _firstVideoPts + pts;
        _seenKeyframe = _seenKeyframe && !jumpedBack;
        _dropUntilKeyframe = false;
        resetStartTime();
        if (!_syncToAudio) {
            pts = 0.0;
        } else {
            // Sound is queued ahead of what is heard, so its zero moves first; the picture's moves here.
            pts += _soundsZero - _firstAudioPts;
            _soundsZero = _firstAudioPts;
        }
        _lastVideoPts = pts;
    }
    while (!isStopRequested()) {
        double const early = pts - (clockTime() + _frameDelay + _presentationOffset);
        if (early <= 0.0 && !_paused)
            break;
        auto const wait = static_cast<qint64>(early * 1000000.0);
        pauseFor(_paused ? longestWait : std::clamp(wait, shortestWait, longestWait));
    }
    return pts;
}

void GLMovie::pauseFor(qint64 microseconds)
{
    std::unique_lock lock(_wakeMutex);
    if (!isStopRequested())
        _wake.wait_for(lock, std::chrono::microseconds(microseconds));
}

void GLMovie::wakeAll()
{
    {
        // Whoever has checked the flags is asleep by now, or has not checked them yet.
        std::lock_guard const lock(_wakeMutex);
    }
    _wake.notify_all();
    _videoQueue->wake();
    _audioQueue->wake();
}
