#pragma once

#include "GLMovieAudioSource.h"
#include "GLMovieClock.h"
#include "GLMoviePacketDump.h"
#include "GLMoviePacketStatistics.h"
#include "GLMoviePictureStatistics.h"
#include "GLMovieRepetition.h"
#include "GLMovieRequests.h"

#include <QByteArray>
#include <QString>
#include <QThread>

#include <memory>

class GLMovieAudioOutput;
class GLMovieDataSource;
class GLMoviePacketQueue;
class GLMoviePacketQueueWatcher;
class GLMovieTexture;
class GLMovieVideoOutput;
class Logger;
struct AVPacket;
struct AVStream;

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
    bool isPlaying() const { return _opened && _requests.isPlaying(); }
    QString url() const { return _url; }

    /// What is played, fixed between open() and close(); null when absent or failed.
    AVStream const* videoStream() const { return _videoStream; }
    AVStream const* audioStream() const { return _audioStream; }
    bool hasVideo() const { return _videoStream != nullptr; }
    bool hasAudio() const { return _audioStream != nullptr; }

    /// The picture to draw, or null before the first key frame. Valid until stop().
    GLMovieTexture* texture() const;

    /// Whether somebody looks at the pictures; else hardly any get as far as the texture. Starts true.
    void setWatched(bool watched);

    /// Pixels; 0 before the first key frame.
    int width() const;
    int height() const;

    /// Width over height as it is to be shown, sample aspect ratio counted in; 0 when it is not known.
    double aspectRatio() const;

    /// Seconds since the beginning; on the way to a time that was set, that time.
    double movieTime() const;
    /// Has the reader go to a time in seconds, within the film: from the key frame before it everything is decoded,
    /// and shown and heard from that time on. Returns false, with nothing done, where the source cannot seek.
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
    double speed() const { return _clock.rate(); }

    void setLoop(bool loop) { _requests.setLoop(loop); }
    void setPaused(bool paused);
    bool isPaused() const { return _requests.isPaused(); }
    /// Seconds that pictures are shown early (positive) or late against the clock.
    void setPresentationOffset(double seconds) { _clock.setPresentationOffset(seconds); }

    // From the next open() on.
    void setRenderAudio(bool renderAudio) { _options.renderAudio = renderAudio; }
    void setIgnoreVideo(bool ignore) { _options.ignoreVideo = ignore; }
    void setIgnoreAudio(bool ignore) { _options.ignoreAudio = ignore; }
    void setEmitKeyframes(bool emitThem) { _options.emitKeyframes = emitThem; }
    /// Pictures made of two fields are made whole. Starts true.
    void setDeinterlacing(bool deinterlace) { _options.deinterlace = deinterlace; }
    /// Writes every packet to "<directory>/<time>_PacketDump.txt".
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
    /// All 0 without pictures.
    GLMoviePictureStatistics pictureStatistics() const;

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

    struct Options {
        bool useHardwareColourConversion = false;
        bool watched = true;
        bool deinterlace = true;
        bool renderAudio = true;
        bool ignoreVideo = false;
        bool ignoreAudio = false;
        bool emitKeyframes = false;
        bool dumpVideo = false;
        bool dumpAudio = false;
        QString dumpDirectory;
    };

    // On the owner's thread (GLMovie.cpp).
    int openVideoStream();
    int openAudioStream();
    int openStreams();
    void freeResources();

    // The reader thread (GLMovieReader.cpp).
    bool readerMustWait() const;
    bool readOnePacket(AVPacket* packet);
    bool isRepeated(AVPacket const& packet);
    void takeVideoPacket(AVPacket* packet);
    void takeAudioPacket(AVPacket* packet);
    void drain();
    bool restart();
    bool resetMovie();
    void seekTo(double seconds);
    bool seekStream(AVStream const* stream, double seconds);
    void startWatchers();
    void stopWatchers();
    void flushOutputs(std::optional<double> from);
    void clearQueues();

    // The watchers' threads.
    void handleVideoPacket(AVPacket* packet);
    void handleAudioPacket(AVPacket* packet);

    static Logger* log;

    GLMovieDataSource* const _dataSource;
    Options _options;
    GLMovieRequests _requests;
    GLMovieClock _clock;
    GLMovieAudioSource _audio;
    GLMoviePacketCounter _counter;
    GLMoviePacketDump _dump;

    // Fixed between open() and close(), while threads run.
    QString _url;
    AVStream* _videoStream = nullptr;
    AVStream* _audioStream = nullptr;
    std::unique_ptr<GLMoviePacketQueue> _videoQueue;
    std::unique_ptr<GLMoviePacketQueue> _audioQueue;
    std::unique_ptr<GLMovieVideoOutput> _videoOutput;
    std::unique_ptr<GLMovieAudioOutput> _audioOutput;
    std::unique_ptr<GLMoviePacketQueueWatcher> _videoWatcher;
    std::unique_ptr<GLMoviePacketQueueWatcher> _audioWatcher;

    // The owner's.
    bool _opened = false;
    bool _closing = false;
    double _volume = 1.0;
    bool _muted = false;
    bool _sourceGoesOn = false; ///< A close that the source asked for, to open anew.

    bool _sourceLost = false;      ///< The reader's: the source failed before its end.
    GLMovieRepetition _repetition; ///< Likewise.
};
