#include "GLMovieRequests.h"

#include <chrono>
#include <utility>

GLMovieRequests::GLMovieRequests(Interrupt interrupt) : _interrupt(std::move(interrupt)) {}

void GLMovieRequests::begin()
{
    std::lock_guard const lock(_mutex);
    _stopRequested = false;
    _restarting = false;
    _seek.reset();
    _going.reset();
    _reading = true;
    _playing = true;
    _lost = false;
    _interrupt(false);
}

void GLMovieRequests::requestStop()
{
    {
        std::lock_guard const lock(_mutex);
        _stopRequested = true;
        _interrupt(true);
    }
    _wake.notify_all();
}

bool GLMovieRequests::isStopRequested() const
{
    std::lock_guard const lock(_mutex);
    return _stopRequested;
}

bool GLMovieRequests::requestSeek(double seconds)
{
    {
        std::lock_guard const lock(_mutex);
        if (!_reading || _stopRequested)
            return false;
        _seek = seconds;
        _interrupt(true);
    }
    _wake.notify_all();
    return true;
}

std::optional<double> GLMovieRequests::takeSeek()
{
    std::lock_guard const lock(_mutex);
    if (!_seek || _stopRequested)
        return {};
    _interrupt(false);
    _going = std::exchange(_seek, {});
    return _going;
}

std::optional<double> GLMovieRequests::pendingSeek() const
{
    std::lock_guard const lock(_mutex);
    return _seek ? _seek : _going;
}

void GLMovieRequests::seekHasGone()
{
    std::lock_guard const lock(_mutex);
    _going.reset();
}

void GLMovieRequests::setRestarting(bool restarting)
{
    {
        std::lock_guard const lock(_mutex);
        _restarting = restarting;
    }
    _wake.notify_all();
}

bool GLMovieRequests::watchersMustEnd() const
{
    std::lock_guard const lock(_mutex);
    return watchersEnd();
}

bool GLMovieRequests::readerMustTurn() const
{
    std::lock_guard const lock(_mutex);
    return readerTurns();
}

void GLMovieRequests::setPaused(bool paused)
{
    {
        std::lock_guard const lock(_mutex);
        _paused = paused;
    }
    _wake.notify_all();
}

bool GLMovieRequests::isPaused() const
{
    std::lock_guard const lock(_mutex);
    return _paused;
}

void GLMovieRequests::setLoop(bool loop)
{
    std::lock_guard const lock(_mutex);
    _loop = loop;
}

bool GLMovieRequests::loop() const
{
    std::lock_guard const lock(_mutex);
    return _loop;
}

void GLMovieRequests::setPlaying(bool playing)
{
    std::lock_guard const lock(_mutex);
    _playing = playing;
}

bool GLMovieRequests::isPlaying() const
{
    std::lock_guard const lock(_mutex);
    return _playing;
}

void GLMovieRequests::endReader(bool lost)
{
    std::lock_guard const lock(_mutex);
    _reading = false;
    _playing = false;
    _lost = lost;
    _seek.reset();
    _going.reset();
}

bool GLMovieRequests::isLost() const
{
    std::lock_guard const lock(_mutex);
    return _lost;
}

void GLMovieRequests::pauseWatcher(qint64 microseconds)
{
    std::unique_lock lock(_mutex);
    if (!watchersEnd())
        _wake.wait_for(lock, std::chrono::microseconds(microseconds));
}

void GLMovieRequests::pauseReader(qint64 microseconds)
{
    std::unique_lock lock(_mutex);
    if (!readerTurns())
        _wake.wait_for(lock, std::chrono::microseconds(microseconds));
}
