#pragma once

#include "GLMovieSoundDecoder.h"

#include <QHash>
#include <QList>

#include <array>
#include <functional>
#include <mutex>
#include <optional>

class Logger;

/// One OpenAL source with a ring of buffers: the sound of a movie, and the clock that the picture follows.
///
/// Opened and closed by the movie's owner while no other thread uses it. After that the audio watcher queues, and
/// any thread may ask for the time or set gain and pitch. When the sound device goes away nothing can be queued, and
/// the source begins anew on the next one. OpenAL errors are logged and never end playback.
class GLMovieAudioSource
{
public:
    static constexpr int ringSize = 32;

    enum class OpenResult { Opened, NoBuffers, NoSource };

    /// Sleeps for so many microseconds, or shorter; returns whether to go on.
    using Pause = std::function<bool(qint64 microseconds)>;

    GLMovieAudioSource() = default;
    ~GLMovieAudioSource();
    GLMovieAudioSource(GLMovieAudioSource const&) = delete;
    GLMovieAudioSource& operator=(GLMovieAudioSource const&) = delete;

    /// Whether there is a sound device that works, with a current OpenAL context, or one may come. Where
    /// there never was one, sound alone does not wait for that: the viewer is to know.
    static bool isDeviceExpected(bool isSoundAlone);

    /// Makes the source and its buffers on the current OpenAL context; where there is none, when one comes.
    OpenResult open();
    void close();

    /// Waits until the ring has room for a buffer of this format: what is queued in another is heard first. Buffers
    /// that have been heard are freed. Returns false when told not to go on, or when there is no device to wait for.
    bool waitForAudioQueue(GLMovieSound::Format format, Pause const& pause);

    /// Queues samples that begin at a time in seconds. The ring must have room. Returns false when OpenAL refuses.
    bool bufferAudioData(GLMovieSound const& sound, double startTime);

    /// Starts a source that has not begun or has run dry. Returns whether it had to.
    bool ensureAudioPlaying();

    /// The moment that is being heard, in the seconds that bufferAudioData() was given: how far the mixer was in the
    /// buffer now playing, and the time since it was first seen there, at most the buffer's length. Nothing while
    /// nothing is heard.
    std::optional<double> audioTime();

    /// Whether everything queued has been heard, or never will be; frees heard buffers.
    bool isDrained();

    /// Silences the source and empties its ring.
    void stop();
    void setPaused(bool paused);

    void setGain(double gain);
    void setPitch(double pitch);

private:
    // All with the mutex locked.
    OpenResult create();
    void destroy();
    bool isUsable();
    bool isPlaying() const;
    double simpleAudioTime() const;
    double mixedTime(unsigned int& buffer) const;
    int queuedBuffers() const;
    void unqueueProcessed();
    void updateAudioBufferHashes(unsigned int buffer, double startTime, double duration);
    void forgetBuffers();
    bool checkForALError(char const* operation) const;

    static Logger* log;

    std::mutex _audioHashMutex; ///< Guards everything below, and that it fits what OpenAL has queued.
    bool _isOpen = false;
    unsigned int _generation = 0; ///< Of the device that the names below belong to.
    unsigned int _source = 0;
    std::array<unsigned int, ringSize> _buffers{};
    size_t _bufferIndex = 0; ///< Next to fill.
    GLMovieSound::Format _format;
    double _lastBufferTime = 0.02; ///< Seconds in the last buffer filled.
    double _gain = 1.0;
    double _pitch = 1.0;
    bool _paused = false;
    QHash<unsigned int, double> _audioBufferStart;
    QHash<unsigned int, double> _audioBufferDuration;
    QList<unsigned int> _queued; ///< The buffers in OpenAL's queue, oldest first.
    double _lastMixedTime = 0.0;
    qint64 _lastBufferChange = 0; ///< When the mixer was first seen there; microseconds, av_gettime_relative().
};
