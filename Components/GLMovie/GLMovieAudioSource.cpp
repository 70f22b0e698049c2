#include "GLMovieAudioSource.h"

#include "AudioDevice.h"
#include "Logger.h"
#include "LoggerManager.h"

#include <AL/al.h>

extern "C" {
#include <libavutil/time.h>
}

#include <algorithm>
#include <shared_mutex>
#include <utility>

Logger* GLMovieAudioSource::log = LoggerManager::logger();

namespace
{
constexpr qint64 shortestRest = 1000; // µs
constexpr qint64 longestRest = 20000; // µs

/// While one lives, the OpenAL context stays.
using ContextLock = std::shared_lock<std::shared_mutex>;

ContextLock lockContext()
{
    return ContextLock(AudioDevice::contextMutex());
}
} // namespace

GLMovieAudioSource::~GLMovieAudioSource()
{
    close();
}

bool GLMovieAudioSource::isDeviceExpected(bool isSoundAlone)
{
    ContextLock const context = lockContext();
    return AudioDevice::isPresent() || (AudioDevice::isAwaited() && !(isSoundAlone && AudioDevice::isAbsent()));
}

GLMovieAudioSource::OpenResult GLMovieAudioSource::open()
{
    ContextLock const context = lockContext();
    std::lock_guard const lock(_audioHashMutex);
    // The device may be on its way back.
    OpenResult const result = AudioDevice::isPresent() ? create() : OpenResult::Opened;
    _isOpen = result == OpenResult::Opened;
    return result;
}

GLMovieAudioSource::OpenResult GLMovieAudioSource::create()
{
    forgetBuffers();
    alGetError();
    alGenBuffers(ringSize, _buffers.data());
    if (!checkForALError("alGenBuffers"))
        return OpenResult::NoBuffers;
    alGenSources(1, &_source);
    if (!checkForALError("alGenSources")) {
        alDeleteBuffers(ringSize, _buffers.data());
        return OpenResult::NoSource;
    }
    alSourcei(_source, AL_LOOPING, AL_FALSE);
    if (!checkForALError("alSourcei AL_LOOPING"))
        LOG_ERROR("Failed setting no loop on audio sources.");
    // The film's own stereo, not a place in a room.
    alSourcei(_source, AL_SOURCE_RELATIVE, AL_TRUE);
    alSourcef(_source, AL_GAIN, static_cast<ALfloat>(_gain));
    alSourcef(_source, AL_PITCH, static_cast<ALfloat>(_pitch));
    checkForALError("alSource");
    _generation = AudioDevice::generation();
    return OpenResult::Opened;
}

void GLMovieAudioSource::forgetBuffers()
{
    _bufferIndex = 0;
    _audioBufferStart.clear();
    _audioBufferDuration.clear();
    _queued.clear();
}

void GLMovieAudioSource::close()
{
    stop();
    ContextLock const context = lockContext();
    std::lock_guard const lock(_audioHashMutex);
    if (std::exchange(_isOpen, false) && isUsable())
        destroy();
}

void GLMovieAudioSource::destroy()
{
    alDeleteSources(1, &_source);
    checkForALError("alDeleteSources");
    alDeleteBuffers(ringSize, _buffers.data());
    checkForALError("alDeleteBuffers");
}

bool GLMovieAudioSource::isUsable()
{
    return AudioDevice::isPresent() && _generation == AudioDevice::generation();
}

bool GLMovieAudioSource::waitForAudioQueue(GLMovieSound::Format format, Pause const& pause)
{
    while (true) {
        qint64 wait = 0;
        {
            ContextLock const context = lockContext();
            std::lock_guard const lock(_audioHashMutex);
            if (!_isOpen || !AudioDevice::isPresent())
                return false;
            // What was queued on another device went with it.
            if (_generation != AudioDevice::generation() && create() != OpenResult::Opened)
                return false;
            unqueueProcessed();
            int const queued = queuedBuffers();
            if (queued == 0 || (queued < ringSize && format == _format))
                return true;
            // A buffer later is soon enough to notice, with a whole ring still to be heard.
            wait = std::clamp(static_cast<qint64>(_lastBufferTime * 1000000.0), shortestRest, longestRest);
        }
        if (!pause(wait))
            return false;
    }
}

bool GLMovieAudioSource::bufferAudioData(GLMovieSound const& sound, double startTime)
{
    ContextLock const context = lockContext();
    std::lock_guard const lock(_audioHashMutex);
    if (!_isOpen || !isUsable() || queuedBuffers() >= ringSize)
        return false;
    if (_queued.isEmpty() && sound.format != _format) {
        alSourceStop(_source); // A queue that was heard to its end keeps its format until it is given up.
        alSourcei(_source, AL_BUFFER, 0);
    }
    unsigned int const buffer = _buffers.at(_bufferIndex);
    ALenum const format = sound.format.channels == 1 ? AL_FORMAT_MONO16 : AL_FORMAT_STEREO16;
    alBufferData(buffer, format, sound.samples.constData(), static_cast<ALsizei>(sound.samples.size()),
                 sound.format.sampleRate);
    if (!checkForALError("alBufferData"))
        return false;
    alSourceQueueBuffers(_source, 1, &buffer);
    if (!checkForALError("alSourceQueueBuffers"))
        return false;
    _format = sound.format;
    _lastBufferTime = sound.duration();
    updateAudioBufferHashes(buffer, startTime, _lastBufferTime);
    _bufferIndex = (_bufferIndex + 1) % ringSize;
    return true;
}

void GLMovieAudioSource::updateAudioBufferHashes(unsigned int buffer, double startTime, double duration)
{
    _audioBufferStart.insert(buffer, startTime);
    _audioBufferDuration.insert(buffer, duration);
    _queued.append(buffer);
}

bool GLMovieAudioSource::ensureAudioPlaying()
{
    ContextLock const context = lockContext();
    std::lock_guard const lock(_audioHashMutex);
    if (!_isOpen || _paused || !isUsable() || isPlaying() || queuedBuffers() == 0)
        return false;
    alSourcePlay(_source);
    checkForALError("alSourcePlay");
    return true;
}

std::optional<double> GLMovieAudioSource::audioTime()
{
    ContextLock const context = lockContext();
    std::lock_guard const lock(_audioHashMutex);
    if (!_isOpen || !isUsable() || !isPlaying())
        return {};
    unsigned int buffer = 0;
    double const mixed = mixedTime(buffer);
    qint64 const now = av_gettime_relative();
    if (mixed != _lastMixedTime) {
        _lastMixedTime = mixed;
        _lastBufferChange = now;
    }
    double const sinceChange = static_cast<double>(now - _lastBufferChange) / 1000000.0 * _pitch;
    return mixed + std::min(sinceChange, _audioBufferDuration.value(buffer));
}

double GLMovieAudioSource::mixedTime(unsigned int& buffer) const
{
    // OpenAL does not name the buffer that plays, but tells how far it is in all that is queued.
    double offset = simpleAudioTime();
    for (unsigned int const queued : _queued) {
        buffer = queued;
        double const duration = _audioBufferDuration.value(queued);
        if (offset < duration || queued == _queued.constLast())
            break;
        offset -= duration;
    }
    return _audioBufferStart.value(buffer) + offset;
}

double GLMovieAudioSource::simpleAudioTime() const
{
    ALfloat seconds = 0.0F;
    alGetSourcef(_source, AL_SEC_OFFSET, &seconds);
    return static_cast<double>(seconds);
}

bool GLMovieAudioSource::isPlaying() const
{
    ALint state = AL_STOPPED;
    alGetSourcei(_source, AL_SOURCE_STATE, &state);
    return state == AL_PLAYING;
}

bool GLMovieAudioSource::isDrained()
{
    ContextLock const context = lockContext();
    std::lock_guard const lock(_audioHashMutex);
    if (!_isOpen || !isUsable())
        return true;
    unqueueProcessed();
    return queuedBuffers() == 0 || (!_paused && !isPlaying());
}

void GLMovieAudioSource::stop()
{
    ContextLock const context = lockContext();
    std::lock_guard const lock(_audioHashMutex);
    if (_isOpen && isUsable()) {
        alSourceStop(_source);
        checkForALError("alSourceStop");
        alSourcei(_source, AL_BUFFER, 0);
        checkForALError("alSourcei AL_BUFFER");
    }
    _audioBufferStart.clear();
    _audioBufferDuration.clear();
    _queued.clear();
}

void GLMovieAudioSource::setPaused(bool paused)
{
    {
        ContextLock const context = lockContext();
        std::lock_guard const lock(_audioHashMutex);
        _paused = paused;
        if (!_isOpen || !isUsable())
            return;
        if (paused && isPlaying())
            alSourcePause(_source);
        checkForALError("alSourcePause");
    }
    if (!paused)
        ensureAudioPlaying();
}

void GLMovieAudioSource::setGain(double gain)
{
    ContextLock const context = lockContext();
    std::lock_guard const lock(_audioHashMutex);
    _gain = gain;
    if (!_isOpen || !isUsable())
        return;
    alSourcef(_source, AL_GAIN, static_cast<ALfloat>(gain));
    checkForALError("alSourcef AL_GAIN");
}

void GLMovieAudioSource::setPitch(double pitch)
{
    ContextLock const context = lockContext();
    std::lock_guard const lock(_audioHashMutex);
    _pitch = pitch;
    if (!_isOpen || !isUsable())
        return;
    alSourcef(_source, AL_PITCH, static_cast<ALfloat>(pitch));
    checkForALError("alSourcef AL_PITCH");
}

int GLMovieAudioSource::queuedBuffers() const
{
    ALint queued = 0;
    alGetSourcei(_source, AL_BUFFERS_QUEUED, &queued);
    return queued;
}

void GLMovieAudioSource::unqueueProcessed()
{
    ALint processed = 0;
    alGetSourcei(_source, AL_BUFFERS_PROCESSED, &processed);
    for (ALint i = 0; i < processed; ++i) {
        ALuint buffer = 0;
        alSourceUnqueueBuffers(_source, 1, &buffer);
        if (!checkForALError("alSourceUnqueueBuffers"))
            return;
        _queued.removeOne(buffer);
    }
}

bool GLMovieAudioSource::checkForALError(char const* operation) const
{
    ALenum const error = alGetError();
    if (error == AL_NO_ERROR)
        return true;
    LOG_ERROR("%s failed with OpenAL error 0x%x", operation, static_cast<unsigned int>(error));
    return false;
}
