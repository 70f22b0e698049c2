#include "GLMovieAudioSource.h"

#include "Logger.h"
#include "LoggerManager.h"

#include <AL/al.h>
#include <AL/alc.h>

extern "C" {
#include <libavutil/time.h>
}

#include <algorithm>
#include <chrono>
#include <thread>

Logger* GLMovieAudioSource::log = LoggerManager::logger();

GLMovieAudioSource::~GLMovieAudioSource()
{
    close();
}

bool GLMovieAudioSource::isDevicePresent()
{
    return alcGetCurrentContext() != nullptr;
}

GLMovieAudioSource::OpenResult GLMovieAudioSource::open()
{
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
    checkForALError("alSourcei AL_SOURCE_RELATIVE");
    _bufferIndex = 0;
    _isOpen = true;
    return OpenResult::Opened;
}

void GLMovieAudioSource::close()
{
    if (!_isOpen)
        return;
    stop();
    _isOpen = false;
    if (!isDevicePresent())
        return; // The device went first and took both with it.
    alDeleteSources(1, &_source);
    checkForALError("alDeleteSources");
    alDeleteBuffers(ringSize, _buffers.data());
    checkForALError("alDeleteBuffers");
}

void GLMovieAudioSource::waitForAudioQueue(std::function<bool()> const& stopped)
{
    if (!_isOpen)
        return;
    int const queued = queuedBuffers();
    // A quarter of a buffer is soon enough to notice, with a whole ring still to be heard.
    auto const pause =
        std::chrono::microseconds(std::clamp(static_cast<int>(_lastBufferTime * 1000000.0 / 4.0), 1000, 20000));
    while (true) {
        if (int const processed = processedBuffers(); processed > 0) {
            unqueueProcessed(processed);
            return;
        }
        if (queued < ringSize || stopped())
            return;
        std::this_thread::sleep_for(pause);
    }
}

void GLMovieAudioSource::bufferAudioData(QByteArray const& samples, Format format, double startTime)
{
    if (!_isOpen || queuedBuffers() >= ringSize)
        return;
    unsigned int const buffer = _buffers.at(_bufferIndex);
    ALenum const alFormat = format.channels == 1 ? AL_FORMAT_MONO16 : AL_FORMAT_STEREO16;
    alBufferData(buffer, alFormat, samples.constData(), static_cast<ALsizei>(samples.size()), format.sampleRate);
    if (!checkForALError("alBufferData"))
        return;
    double const bytesPerSecond = static_cast<double>(format.sampleRate) * format.channels * 2;
    _lastBufferTime = static_cast<double>(samples.size()) / bytesPerSecond;
    std::lock_guard const lock(_audioHashMutex);
    alSourceQueueBuffers(_source, 1, &buffer);
    if (checkForALError("alSourceQueueBuffers"))
        updateAudioBufferHashes(buffer, startTime, _lastBufferTime);
    _bufferIndex = (_bufferIndex + 1) % ringSize;
}

void GLMovieAudioSource::updateAudioBufferHashes(unsigned int buffer, double startTime, double duration)
{
    _audioBufferStart.insert(buffer, startTime);
    _audioBufferDuration.insert(buffer, duration);
    _queued.append(buffer);
}

bool GLMovieAudioSource::ensureAudioPlaying()
{
    if (!_isOpen || _paused || isPlaying() || queuedBuffers() == 0)
        return false;
    alSourcePlay(_source);
    checkForALError("alSourcePlay");
    return true;
}

double GLMovieAudioSource::audioTime()
{
    if (!_isOpen)
        return 0.0;
    std::lock_guard const lock(_audioHashMutex);
    unsigned int buffer = 0;
    double const mixed = mixedTime(buffer);
    qint64 const now = av_gettime_relative();
    if (mixed != _lastMixedTime) {
        _lastMixedTime = mixed;
        _lastBufferChange = now;
    }
    double const sinceChange = static_cast<double>(now - _lastBufferChange) / 1000000.0;
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
    if (_isOpen)
        alGetSourcef(_source, AL_SEC_OFFSET, &seconds);
    return static_cast<double>(seconds);
}

bool GLMovieAudioSource::isPlaying() const
{
    ALint state = AL_STOPPED;
    if (_isOpen)
        alGetSourcei(_source, AL_SOURCE_STATE, &state);
    return state == AL_PLAYING;
}

bool GLMovieAudioSource::isDrained()
{
    if (!_isOpen)
        return true;
    if (int const processed = processedBuffers(); processed > 0)
        unqueueProcessed(processed);
    return queuedBuffers() == 0 || !isDevicePresent();
}

void GLMovieAudioSource::stop()
{
    if (!_isOpen || !isDevicePresent())
        return;
    std::lock_guard const lock(_audioHashMutex);
    alSourceStop(_source);
    checkForALError("alSourceStop");
    alSourcei(_source, AL_BUFFER, 0);
    checkForALError("alSourcei AL_BUFFER");
    _audioBufferStart.clear();
    _audioBufferDuration.clear();
    _queued.clear();
}

void GLMovieAudioSource::setPaused(bool paused)
{
    _paused = paused;
    if (!_isOpen)
        return;
    if (paused && isPlaying())
        alSourcePause(_source);
    else if (!paused)
        ensureAudioPlaying();
    checkForALError("setPaused");
}

void GLMovieAudioSource::setGain(double gain)
{
    if (!_isOpen)
        return;
    alSourcef(_source, AL_GAIN, static_cast<ALfloat>(gain));
    checkForALError("alSourcef AL_GAIN");
}

void GLMovieAudioSource::setPitch(double pitch)
{
    if (!_isOpen)
        return;
    alSourcef(_source, AL_PITCH, static_cast<ALfloat>(pitch));
    checkForALError("alSourcef AL_PITCH");
}

double GLMovieAudioSource::pitch() const
{
    ALfloat pitch = 1.0F;
    if (_isOpen)
        alGetSourcef(_source, AL_PITCH, &pitch);
    return static_cast<double>(pitch);
}

int GLMovieAudioSource::queuedBuffers() const
{
    ALint queued = 0;
    alGetSourcei(_source, AL_BUFFERS_QUEUED, &queued);
    return queued;
}

int GLMovieAudioSource::processedBuffers() const
{
    ALint processed = 0;
    alGetSourcei(_source, AL_BUFFERS_PROCESSED, &processed);
    return processed;
}

void GLMovieAudioSource::unqueueProcessed(int count)
{
    std::lock_guard const lock(_audioHashMutex);
    for (int i = 0; i < count; ++i) {
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
