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
#include <memory>

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
};
