#pragma once

#include "GLMovieAudioSource.h"
#include "GLMoviePacketDump.h"
#include "GLMoviePacketStatistics.h"

extern "C" {
#include <libavutil/pixfmt.h>
}

#include <QByteArray>
#include <QString>
#include <QThread>

#include <atomic>
#include <condition_variable>
#include <memory>
#include <mutex>

class GLMovieDataSource;
class GLMoviePacketQueue;
class GLMoviePacketQueueWatcher;
class GLMovieTexture;
class Logger;
struct AVCodecContext;
struct AVFrame;
struct AVPacket;
struct AVStream;
struct SwrContext;
struct SwsContext;

/// Plays one stream: reads packets from a data source on a thread of its own, and has one watcher thread per kind of
/// packet decode them. Sound goes to an OpenAL source, pictures into a GLMovieTexture, each at its time: by the sound
/// that is really heard, or by the wall clock when there is none.
///
/// Public operations belong to the thread that made the movie, the GUI thread. Threads and who writes what:
/// docs/architecture.md. Errors are the numbers of GLMovie::Error, with their words from errorText().
class GLMovie : public QThread
{
    Q_OBJECT

public:
    /// Why a movie could not be played.
    enum Error {
        NoError = 0,
        NoVideoDecoder = 1,
        VideoCodecFailed = 2,
        NoFrame = 3,
        NoAudioDevice = 4,
        NoAudioDecoder = 5,
        AudioCodecFailed = 6,
        NoAudioBuffers = 7,
        NoAudioSource = 8,
        NoStreams = 9,
        UnsupportedAudioFormat = 10,
        NoPictureSize = 12,
        NoPictureBuffer = 13,
        NoTexture = 14,
        TextureFailed = 15
    };
    Q_ENUM(Error)

    /// A movie on a source that outlives it. With useHardwareColourConversion, pictures stay YUV when the card can
    /// convert them; otherwise they become RGB24.
    GLMovie(GLMovieDataSource* dataSource, bool useHardwareColourConversion, QObject* parent = nullptr);
    ~GLMovie() override;

    /// Opens the decoders for the streams of the opened data source. Returns 0 or a GLMovie::Error, after close().
    int open();

    /// Starts all threads. Returns 0 (also when it plays already).
    int play();

    /// Ends all threads, within a few milliseconds; with `notify`, emits stopped().
    void stop(bool notify);

    /// Stops and frees everything that open() made; with `notify`, listeners hear of the stop. May be opened again.
    void close(bool notify);

    bool isOpened() const { return _opened; }
    bool isClosing() const { return _closing; }
    bool isPlaying() const { return _playing; }
    bool hasVideo() const { return _videoStream != nullptr; }
    bool hasAudio() const { return _audioStream != nullptr; }

    /// Whether a first key frame has been shown since the last open().
    bool hasPicture() const { return _textureAllocated; }

    /// The picture to draw, or null before the first key frame. Valid until stop().
    GLMovieTexture* texture() const { return _textureAllocated ? _texture.get() : nullptr; }

    /// Pixels; 0 before the first key frame.
    int width() const { return _width; }
    int height() const { return _height; }

    /// Width over height as it is to be shown, sample aspect ratio counted in; 0 when it is not known.
    double aspectRatio() const;

    /// Seconds since the beginning.
    double movieTime() const;
    /// Seeks to a time in seconds. Returns whether every stream followed.
    bool setMovieTime(double seconds);
    /// Seconds, 0 when it is not known.
    double movieDuration() const;

    /// 0.0 to 1.0.
    void setVolume(double volume);
    double volume() const { return _volume; }
    void setMuted(bool muted);
    bool isMuted() const { return _muted; }

    /// 1.0 is normal; the pitch of the sound follows.
    void setSpeed(double speed);
    double speed() const;

    void setLoop(bool loop) { _loop = loop; }
    void setPaused(bool paused);
    bool isPaused() const { return _paused; }
    void setRenderAudio(bool renderAudio) { _renderAudio = renderAudio; }
    void setIgnoreVideo(bool ignore) { _ignoreVideo = ignore; }
    void setIgnoreAudio(bool ignore) { _ignoreAudio = ignore; }
    void setEmitKeyframes(bool emitThem) { _emitKeyframes = emitThem; }
    /// Seconds that pictures are shown early (positive) or late against the clock.
    void setPresentationOffset(double seconds) { _presentationOffset = seconds; }
    /// Writes every packet, from the next open() on, to "<directory>/<time>_PacketDump.txt".
    void setPacketDump(bool video, bool audio, QString const& directory);

    int codecWidth() const;
    int codecHeight() const;
    /// Bits per second.
    int videoBitrate() const;
    /// Pictures per second.
    double videoFramerate() const;
    int audioBitrate() const;
    int audioSampleRate() const;
    /// Bits per sample as decoded.
    int audioSampleSize() const;
    int audioChannels() const;
    QString audioCodecName() const;
    QString videoCodecName() const;
    GLMoviePacketStatistics packetStatistics() const;

    /// What a viewer reads of an error.
    static QString errorText(int error);

signals:
    void opened(GLMovie* movie);
    void stopped(GLMovie* movie);
    void error(GLMovie* movie, int code);
    void looped(GLMovie* movie);
    void completed(GLMovie* movie);
    /// Blue, green, red, 255 per pixel; width, height and the format number of the receiver's image, 5.
    void keyframeReceived(QByteArray image, int width, int height, int format);
    /// 16 bit samples as they are heard.
    void audioDataReceived(QByteArray data);
    void firstKeyFrameReceived(int width, int height);
    void firstVideoPacketReceived();
    void firstAudioPacketReceived();
    void movieTimeUpdated(double seconds);
    void audioPacketReceived(int bytes);
    void videoPacketReceived(int bytes);
    /// A new picture is in the texture.
    void pictureUpdated();

public slots:
    void onDataSourceOpened(GLMovieDataSource* source);
    void onDataSourceClosed(GLMovieDataSource* source);

protected:
    /// The reader: from the data source to the queues, until the end or a stop.
    void run() override;

private:
    friend class GLMoviePacketQueueWatcher;
    friend class GLMovieVideoPacketQueueWatcher;
    friend class GLMovieAudioPacketQueueWatcher;

    struct CodecContextDeleter {
        void operator()(AVCodecContext* context) const;
    };
    struct FrameDeleter {
        void operator()(AVFrame* frame) const;
    };
    struct SwsDeleter {
        void operator()(SwsContext* context) const;
    };
    struct SwrDeleter {
        void operator()(SwrContext* context) const;
    };
    using CodecContext = std::unique_ptr<AVCodecContext, CodecContextDeleter>;
    using Frame = std::unique_ptr<AVFrame, FrameDeleter>;

    /// What the reader remembers of one kind of packet to notice gaps.
    struct LossDetector {
        qint64 lastTimestamp = 0;
        bool hasLast = false;
    };

    // Opening and closing, on the owner's thread (GLMovie.cpp).
    int openVideoStream();
    void chooseColourConversion();
    int openAudioStream();
    void logAudioFormat() const;
    static QString missingAudioDecoderText(int codecId);
    static CodecContext openCodec(AVStream const* stream, int& averror);
    void freeResources();
    void joinThreads();

    // The reader thread (GLMovieReader.cpp).
    bool isStopRequested() const { return _stopRequested || _restarting; }
    bool readerMustWait() const;
    bool readOnePacket(AVPacket* packet);
    void takeVideoPacket(AVPacket* packet);
    void takeAudioPacket(AVPacket* packet);
    int packetsLost(AVPacket const& packet, AVStream const* stream, LossDetector& detector) const;
    void drain();
    bool restart();
    bool resetMovie();
    bool seekStream(AVStream* stream, double seconds);
    void startWatchers();
    void stopWatchers();

    // The clocks (GLMovieClock.cpp).
    double masterClockTime() const;
    double clockTime();
    double computeVideoPacketPTS(qint64 timestamp);
    double computeAudioPacketPTS(qint64 timestamp) const;
    bool checkIfPacketNeedsDropping(AVPacket const* packet);
    double waitForPresentationTime(double pts);
    void resetStartTime();
    void pauseFor(qint64 microseconds);
    void wakeAll();

    // The video watcher's thread (GLMovieVideo.cpp).
    void handleVideoPacket(AVPacket* packet);
    void presentPicture();
    bool beginVideo();
    bool showKeyFrame(double pts);
    void updateTexture(bool isKeyFrame);
    AVFrame const* pictureInOutputFormat();
    int allocateTexture();

    // The audio watcher's thread (GLMovieAudio.cpp).
    void handleAudioPacket(AVPacket* packet);
    void beginAudio(AVPacket const* packet);
    void waitForLateAudio();
    bool isAudioFormatRefused() const;
    QByteArray decodeAudioPacket(AVPacket const* packet);
    QByteArray convertSamples(AVFrame* frame);
    void queueAudioPacket(AVPacket const* packet, QByteArray const& data);
    void bufferAudioData(AVPacket const* packet, QByteArray const& data);

    static Logger* log;

    GLMovieDataSource* const _dataSource;
    bool const _useHardwareColourConversion;

    // Fixed between open() and close(), while threads run.
    AVStream* _videoStream = nullptr;
    AVStream* _audioStream = nullptr;
    CodecContext _videoCodec; ///< Decodes on the video watcher's thread only.
    CodecContext _audioCodec; ///< Decodes on the audio watcher's thread only.
    std::unique_ptr<GLMoviePacketQueue> _videoQueue;
    std::unique_ptr<GLMoviePacketQueue> _audioQueue;
    std::unique_ptr<GLMoviePacketQueueWatcher> _videoWatcher;
    std::unique_ptr<GLMoviePacketQueueWatcher> _audioWatcher;
    AVPixelFormat _outputPixelFormat = AV_PIX_FMT_NONE;
    QString _url;
    QString _dumpDirectory;
    bool _dumpVideo = false;
    bool _dumpAudio = false;
    GLMoviePacketDump _dump;

    // The video watcher's own; made and freed while it does not run.
    Frame _frame;
    Frame _outputFrame; ///< The picture in the output pixel format.
    std::unique_ptr<SwsContext, SwsDeleter> _swsContext;
    double _frameDelay = 0.0; ///< Seconds that the last picture took to process.
    double _soundsZero = 0.0; ///< The _firstAudioPts that pictures are counted from, once they share it.
    bool _sharesSoundsZero = false;

    // The audio watcher's own; made and freed while it does not run.
    Frame _audioFrame;
    std::unique_ptr<SwrContext, SwrDeleter> _swrContext;
    bool _audioRefusalReported = false;

    // The reader's own.
    LossDetector _videoLoss;
    LossDetector _audioLoss;

    GLMovieAudioSource _audio; ///< Locks by itself.

    /// Made by the video watcher, which then sets _textureAllocated; freed on the owner's thread after the join.
    std::unique_ptr<GLMovieTexture> _texture;
    std::atomic<bool> _textureAllocated{false};
    std::atomic<int> _width{0};
    std::atomic<int> _height{0};

    std::atomic<bool> _readerEnded{true}; ///< As in the watchers: orders what the reader did before a join.

    // Flags and numbers that several threads read; each is independent of the others.
    std::atomic<bool> _stopRequested{false}; ///< Set by the owner, ends all threads.
    std::atomic<bool> _restarting{false};    ///< Set by the reader, ends the watchers for a while.
    std::atomic<bool> _lost{false};          ///< Set by the reader: the source failed before its end.
    std::atomic<bool> _opened{false};
    std::atomic<bool> _closing{false};
    std::atomic<bool> _playing{false};
    std::atomic<bool> _paused{false};
    std::atomic<bool> _loop{false};
    std::atomic<bool> _renderAudio{true};
    std::atomic<bool> _ignoreVideo{false};
    std::atomic<bool> _ignoreAudio{false};
    std::atomic<bool> _emitKeyframes{false};
    std::atomic<bool> _syncToAudio{false};
    std::atomic<bool> _waitingForFirstVideo{true};
    std::atomic<bool> _waitingForFirstAudio{true};
    std::atomic<bool> _seenKeyframe{false};
    std::atomic<bool> _dropUntilKeyframe{false};
    std::atomic<bool> _videoWatcherIdle{false}; ///< The video decoder has given its last picture.
    std::atomic<bool> _audioWatcherIdle{false}; ///< The audio decoder likewise.
    std::atomic<double> _firstVideoPts{0.0};    ///< Seconds in the stream's own time.
    std::atomic<double> _firstAudioPts{0.0};
    std::atomic<double> _lastVideoPts{0.0}; ///< Seconds of movie time.
    std::atomic<double> _lastAudioPts{0.0};
    std::atomic<double> _presentationOffset{0.0};
    std::atomic<qint64> _startTime{0}; ///< Microseconds, av_gettime_relative().
    std::atomic<qint64> _pauseBegan{0};
    std::atomic<double> _lastAudioClock{0.0};   ///< Movie time when the sound was last heard,
    std::atomic<qint64> _lastAudioClockTime{0}; ///< and when that was, in microseconds.

    double _volume = 1.0; ///< The owner's, as are the next three.
    bool _muted = false;
    double _speed = 1.0;
    bool _sourceGoesOn = false; ///< A close that the source asked for, to open anew.

    std::mutex _wakeMutex; ///< With _wake, ends pauses early; guards nothing else.
    std::condition_variable _wake;

    mutable std::mutex _statisticsMutex; ///< Guards the statistics.
    GLMoviePacketStatistics _statistics;
};
