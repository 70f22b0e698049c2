#pragma once

#include <QByteArray>
#include <QHash>
#include <QList>

#include <array>
#include <atomic>
#include <functional>
#include <mutex>

class Logger;

/// One OpenAL source with a ring of buffers: the sound of a movie, and the clock that the picture follows.
///
/// Opened and closed by the movie's owner while no other thread uses it. After that the audio watcher queues, and
/// any thread may ask for the time or set gain and pitch. OpenAL errors are logged and never end playback.
class GLMovieAudioSource
{
public:
    static constexpr int ringSize = 32;

    /// What one buffer holds: signed 16 bit samples, interleaved.
    struct Format {
        int channels = 0; ///< 1 or 2.
        int sampleRate = 0;
    };

    enum class OpenResult { Opened, NoBuffers, NoSource };

    GLMovieAudioSource() = default;
    ~GLMovieAudioSource();
    GLMovieAudioSource(GLMovieAudioSource const&) = delete;
    GLMovieAudioSource& operator=(GLMovieAudioSource const&) = delete;

    /// Whether there is a sound device, with a current OpenAL context.
    static bool isDevicePresent();

    /// Makes the source and its buffers on the current OpenAL context.
    OpenResult open();
    void close();
    bool isOpen() const { return _isOpen; }

    /// Waits until the ring has room for a buffer or `stopped` says so. Buffers that have been heard are freed.
    void waitForAudioQueue(std::function<bool()> const& stopped);

    /// Queues samples that begin at a time in seconds. The ring must have room.
    void bufferAudioData(QByteArray const& samples, Format format, double startTime);

    /// Starts a source that has not begun or has run dry. Returns whether it had to.
    bool ensureAudioPlaying();

    /// The moment that is being heard, in the seconds that bufferAudioData() was given: how far the mixer was in the
    /// buffer now playing, and the time since it was first seen there, at most the buffer's length.
    double audioTime();

    /// Seconds into what is queued, as OpenAL counts them.
    double simpleAudioTime() const;

    bool isPlaying() const;

    /// Whether everything queued has been heard; frees heard buffers.
    bool isDrained();

    /// Silences the source and empties its ring.
    void stop();
    void setPaused(bool paused);

    void setGain(double gain);
    void setPitch(double pitch);
    /// 1.0 without a source.
    double pitch() const;

private:
    int queuedBuffers() const;
    int processedBuffers() const;
    void unqueueProcessed(int count);
    void updateAudioBufferHashes(unsigned int buffer, double startTime, double duration);
    double mixedTime(unsigned int& buffer) const;
    bool checkForALError(char const* operation) const;

    static Logger* log;

    std::atomic<bool> _isOpen{false};
    unsigned int _source = 0;
    std::array<unsigned int, ringSize> _buffers{};
    std::atomic<bool> _paused{false};
    size_t _bufferIndex = 0;       ///< Next to fill; the audio watcher's.
    double _lastBufferTime = 0.02; ///< Seconds in the last buffer filled; the audio watcher's.

    std::mutex _audioHashMutex; ///< Guards everything below, and that it fits what OpenAL has queued.
    QHash<unsigned int, double> _audioBufferStart;
    QHash<unsigned int, double> _audioBufferDuration;
    QList<unsigned int> _queued; ///< The buffers in OpenAL's queue, oldest first.
    double _lastMixedTime = 0.0;
    qint64 _lastBufferChange = 0; ///< When the mixer was first seen there; microseconds, av_gettime_relative().
};
