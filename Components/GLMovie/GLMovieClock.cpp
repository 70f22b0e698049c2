#include "GLMovieClock.h"

#include "Logger.h"
#include "LoggerManager.h"

extern "C" {
#include <libavutil/time.h>
}

#include <algorithm>
#include <cmath>
#include <utility>

Logger* GLMovieClock::log = LoggerManager::logger();

namespace
{
constexpr double microseconds = 1000000.0;
constexpr double longestStep = 0.2; // Seconds; a longer pause between pictures says nothing about the next.
} // namespace

GLMovieClock::GLMovieClock() : GLMovieClock([] { return static_cast<qint64>(av_gettime_relative()); }) {}

GLMovieClock::GLMovieClock(TimeSource now) : _now(std::move(now)) {}

void GLMovieClock::reset(bool hasPicture, bool hasSound, bool isLive)
{
    std::lock_guard const lock(_mutex);
    _isLive = isLive;
    _video = Track();
    _audio = Track();
    _video.present = hasPicture;
    _audio.present = hasSound;
    _started = false;
    _baseTime = 0.0;
    _startTime = instant();
    _sought.reset();
}

double GLMovieClock::seek(double movieTime, double streamStart)
{
    std::lock_guard const lock(_mutex);
    double const zero = (_audio.first ? _audio.first : _video.first).value_or(streamStart);
    for (Track* const track : {&_video, &_audio}) {
        Track fresh;
        fresh.present = track->present;
        fresh.first = track->first.value_or(zero); // Nothing may have begun yet: it begins in mid-film then.
        fresh.movieTime = movieTime;
        *track = fresh;
    }
    _started = false;
    _sought = movieTime;
    return zero + movieTime;
}

void GLMovieClock::leaveSound()
{
    std::lock_guard const lock(_mutex);
    _audio.present = false;
    _audio.pending.reset();
}

void GLMovieClock::takeSound()
{
    std::lock_guard const lock(_mutex);
    _audio.present = true;
}

bool GLMovieClock::hasVideo() const
{
    std::lock_guard const lock(_mutex);
    return _video.present;
}

bool GLMovieClock::hasSound() const
{
    std::lock_guard const lock(_mutex);
    return _audio.present;
}

void GLMovieClock::setRate(double rate)
{
    std::lock_guard const lock(_mutex);
    double const time = masterClockTime();
    _startTime = instant();
    _baseTime = time;
    _rate = rate;
}

double GLMovieClock::rate() const
{
    std::lock_guard const lock(_mutex);
    return _rate;
}

void GLMovieClock::setPaused(bool paused)
{
    std::lock_guard const lock(_mutex);
    if (paused == _pauseBegan.has_value())
        return;
    if (paused) {
        _pauseBegan = _now();
        return;
    }
    qint64 const stood = _now() - *_pauseBegan;
    _startTime += stood;
    _lastHeard += stood;
    _lastShown += stood;
    _pauseBegan.reset();
}

void GLMovieClock::setPresentationOffset(double seconds)
{
    std::lock_guard const lock(_mutex);
    _presentationOffset = seconds;
}

double GLMovieClock::time(std::optional<double> heard)
{
    std::lock_guard const lock(_mutex);
    hear(heard);
    return masterClockTime();
}

bool GLMovieClock::syncToAudio() const
{
    std::lock_guard const lock(_mutex);
    return goesBySound();
}

bool GLMovieClock::waitingForFirstVideo() const
{
    std::lock_guard const lock(_mutex);
    return !_video.begun;
}

bool GLMovieClock::waitingForFirstAudio() const
{
    std::lock_guard const lock(_mutex);
    return !_audio.begun;
}

double GLMovieClock::movieTime() const
{
    std::lock_guard const lock(_mutex);
    if (_sought)
        return *_sought;
    if (goesBySound() || !_video.present)
        return _audio.movieTime;
    return _audio.present ? std::max(_audio.movieTime, _video.movieTime) : _video.movieTime;
}

bool GLMovieClock::ignoreVideo()
{
    std::lock_guard const lock(_mutex);
    return !std::exchange(_video.begun, true);
}

bool GLMovieClock::ignoreAudio()
{
    std::lock_guard const lock(_mutex);
    _audio.present = false;
    return !std::exchange(_audio.begun, true);
}

void GLMovieClock::beginVideo(double seconds)
{
    std::lock_guard const lock(_mutex);
    _video.begun = true;
    if (!_video.first)
        _video.first = seconds;
    if (!_started)
        startAt(seconds + _video.shift);
}

GLMovieClock::Due GLMovieClock::videoDue(double seconds, std::optional<double> heard)
{
    std::lock_guard const lock(_mutex);
    hear(heard);
    Due due;
    followVideoLeap(seconds, due);
    due.at = seconds + _video.shift;
    due.wait = due.at - masterClockTime() - _presentationOffset;
    _video.pending = due.at;
    return due;
}

void GLMovieClock::followVideoLeap(double seconds, Due& due)
{
    double const now = masterClockTime();
    double const own = seconds + _video.shift;
    double const sounds = seconds + _audio.shift;
    bool const soundIsNear = _audio.begun && std::abs(sounds - now) <= jumpSeconds;
    bool const soundHasLed = soundIsNear && _audio.shift != _video.shift;
    if (_video.end && *_video.end - own > jumpSeconds) {
        due.jumped = true;
        _video.first = seconds;
        bool const hasLed = *_video.end - now > jumpSeconds; // It comes back to the sound.
        moveTo(_video, seconds, soundHasLed || (soundIsNear && hasLed) ? sounds : *_video.end + _videoStep);
        if (!goesBySound())
            startAt(seconds + _video.shift);
    } else if (_isLive && !_video.end && own - now > jumpSeconds && goesBySound()) {
        // A stream that is joined where it begins anew: the first picture comes from before that place, its sound
        // from behind it.
        moveTo(_video, seconds, now);
    } else if ((now - own > jumpSeconds || own - now > gap()) && soundHasLed) {
        moveTo(_video, seconds, sounds);
    } else if (own - now > jumpSeconds && !goesBySound() && !_audio.pending) {
        // Nothing else plays: a leap ahead must not hold the picture for as long.
        _video.first = seconds;
        moveTo(_video, seconds, now);
    }
}

void GLMovieClock::videoShown(double seconds)
{
    std::lock_guard const lock(_mutex);
    double const at = seconds + _video.shift;
    if (_video.end && at > *_video.end && at - *_video.end < longestStep)
        _videoStep = at - *_video.end;
    _video.end = at;
    _video.pending.reset();
    _lastShown = instant();
    _video.movieTime = movieTimeOf(seconds);
    if (!goesBySound())
        _sought.reset();
}

std::optional<double> GLMovieClock::videoLateness(double seconds, std::optional<double> heard)
{
    std::lock_guard const lock(_mutex);
    hear(heard);
    double const own = seconds + _video.shift;
    if (_video.end && *_video.end - own > jumpSeconds)
        return {};
    double const now = masterClockTime();
    if (_audio.begun && _audio.shift != _video.shift)
        return std::min(now - own, std::abs(now - (seconds + _audio.shift)));
    return now - own;
}

void GLMovieClock::restartVideo(double seconds)
{
    std::lock_guard const lock(_mutex);
    startAt(seconds + _video.shift);
}

bool GLMovieClock::takeSoundJump()
{
    std::lock_guard const lock(_mutex);
    return std::exchange(_soundJumped, false);
}

double GLMovieClock::videoMovieTime(double seconds) const
{
    std::lock_guard const lock(_mutex);
    return movieTimeOf(seconds);
}

void GLMovieClock::videoDropped(double seconds)
{
    std::lock_guard const lock(_mutex);
    _video.end = seconds + _video.shift;
    _video.movieTime = movieTimeOf(seconds);
}

GLMovieClock::Due GLMovieClock::soundDue(double seconds, std::optional<double> heard)
{
    std::lock_guard const lock(_mutex);
    hear(heard);
    Due due;
    if (_audio.end)
        followSoundLeap(seconds);
    due.at = seconds + _audio.shift;
    // Sound alone has nothing to wait for, and what follows what is queued is queued behind it.
    double const now = masterClockTime();
    double const queuedUntil = std::max(_audio.end.value_or(now), now);
    bool const silence = _started && _video.present && due.at - queuedUntil > shortestSilence;
    due.wait = silence ? due.at - now : 0.0;
    _audio.pending = silence ? std::optional(due.at) : std::nullopt;
    return due;
}

void GLMovieClock::followSoundLeap(double seconds)
{
    double const own = seconds + _audio.shift;
    double const pictures = seconds + _video.shift;
    double const end = *_audio.end;
    double const now = masterClockTime();
    bool const pictureHasLed =
        _video.begun && _audio.shift != _video.shift && std::abs(pictures - std::max(end, now)) <= jumpSeconds;
    if (end - own > jumpSeconds) {
        _soundJumped = true;
        _audio.first = seconds;
        moveTo(_audio, seconds, pictureHasLed ? pictures : end);
        startAt(now);
    } else if (own - now > gap() && _video.pending && *_video.pending - now > gap()) {
        // What was left out of a live stream is lost for both: nothing is to be seen or heard until then.
        moveTo(_audio, seconds, pictureHasLed ? pictures : std::max(end, now));
    } else if (own - now > jumpSeconds) {
        // Pictures that go on mean that only the sound is missing; without any, both have leapt, or there are none.
        bool const pictureGoesOn = static_cast<double>(instant() - _lastShown) / microseconds < longestSilence;
        bool const pictureIsNear = _video.begun && (_video.pending || pictureGoesOn);
        if (pictureHasLed)
            moveTo(_audio, seconds, pictures);
        else if (!pictureIsNear)
            moveTo(_audio, seconds, std::max(end, now));
    }
}

void GLMovieClock::soundQueued(double seconds, double at, double duration)
{
    std::lock_guard const lock(_mutex);
    // Film time counts from whichever came first, and does not leap back when sound begins late.
    if (!_audio.first)
        _audio.first = _video.first && _video.shift == _audio.shift ? std::min(seconds, *_video.first) : seconds;
    if (!_started)
        startAt(at);
    if (!_audio.begun)
        _lastHeard = instant(); // It is about to be.
    _audio.begun = true;
    _audio.end = at + duration;
    _audio.pending.reset();
    _audio.movieTime = seconds - *_audio.first;
    _sought.reset();
}

void GLMovieClock::moveTo(Track& track, double seconds, double time)
{
    track.shift = time - seconds;
}

double GLMovieClock::movieTimeOf(double seconds) const
{
    // Picture and sound share the sound's zero, on the timeline, where their shifts may differ for a while.
    if (_audio.present && _audio.begun && _audio.first)
        return seconds + _video.shift - (*_audio.first + _audio.shift);
    return seconds - _video.first.value_or(seconds);
}

bool GLMovieClock::goesBySound() const
{
    return _audio.present && _audio.begun &&
           static_cast<double>(instant() - _lastHeard) / microseconds < longestSilence;
}

void GLMovieClock::hear(std::optional<double> heard)
{
    if (!heard || !_audio.present)
        return;
    _baseTime = *heard;
    _startTime = instant();
    _lastHeard = _startTime;
}

qint64 GLMovieClock::instant() const
{
    return _pauseBegan ? *_pauseBegan : _now();
}

double GLMovieClock::masterClockTime() const
{
    if (!_started)
        return _baseTime;
    return _baseTime + static_cast<double>(instant() - _startTime) / microseconds * _rate;
}

void GLMovieClock::startAt(double time)
{
    _started = true;
    _baseTime = time;
    _startTime = instant();
    LOG_DEBUG("Resetting start time to %lld", static_cast<long long>(_startTime));
}
