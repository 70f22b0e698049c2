#pragma once

#include "GLMovieRenderer.h"
#include "StreamDescription.h"
#include "StreamInformation.h"

#include <QObject>
#include <QPointF>
#include <QRect>

#include <memory>

class AppData;
class Channel;
class GLMovieDataSource;
class LatteClient;
class Logger;

/// One stream of a channel: while it is open, a renderer and the data source it plays from.
///
/// A stream that fails stays failed until it is closed and opened again. Main thread only.
class ChannelStream : public QObject
{
    Q_OBJECT

public:
    ChannelStream(AppData& appData, Channel* channel, StreamDescription const& description);
    ~ChannelStream() override;

    StreamDescription const& description() const { return _description; }
    /// An equal one, for the next opening.
    void setDescription(StreamDescription const& description) { _description = description; }
    /// Takes how another one plays, but the sound.
    void playBeside(ChannelStream const& other);

    /// Opens the stream and plays it as soon as it can; with forceFile, by FFmpeg's own access whatever the scheme.
    /// Does nothing if it is open.
    void open(bool forceFile);
    void close();

    /// Fades over ms milliseconds, picture and sound as asked; in to the given volume.
    void fadeIn(int ms, double volume, bool fadeVideo, bool fadeAudio);
    void fadeOut(int ms, bool fadeVideo, bool fadeAudio);

    bool isOpen() const;
    bool isPlaying() const;
    bool isBuffering() const;
    bool isFading() const;
    bool hasVideo() const;
    bool hasAudio() const;
    /// Whether it is open and not live.
    bool isSeekable() const;
    double aspectRatio() const;
    /// Whether there is a picture to be drawn.
    bool hasPicture() const;

    /// What delivers the stream's bytes while it is open; null when that is no client.
    LatteClient const* latteClient() const;

    /// What it is and how it plays.
    StreamInformation information() const;

    /// The speed to play at while the stream can seek; one that cannot, such as live television, plays at 1.0.
    double speed() const { return _speed; }
    void setSpeed(double speed);
    double volume() const { return _volume; }
    void setVolume(double volume);
    bool muted() const { return _muted; }
    void setMuted(bool muted);
    bool loop() const { return _loop; }
    void setLoop(bool loop);
    /// Whether somebody looks at the picture.
    void setWatched(bool watched);
    /// Whether it plays for nobody yet; one that is closed does not.
    void setUnseen(bool unseen);
    double opacity() const { return _opacity; }
    void setOpacity(double opacity);

    void seekForwards(double seconds);
    void seekBackwards(double seconds);

    /// Seconds; 0 while they are not known.
    double movieTime() const;
    double movieDuration() const;
    /// Goes to a time of what can seek; false of what cannot.
    bool setMovieTime(double seconds);
    /// Holds still what can seek, and nothing else.
    void setPaused(bool paused);
    bool isPaused() const;

    /// The following run on the GL thread with the surface's context current.
    void updateVideoTexture();
    bool hitTest(QPointF point) const;
    void drawVideoOrthoMode(QRect const& area, GLMovieRenderer::DrawMode mode);
    /// In the plane z of the current space, y upward from the area's top.
    void drawVideoPerspectiveMode(QRectF const& area, bool keepAspect, double z = 0.0);
    /// Without textures, for pictures that are too large for those of the card.
    void drawVideoWithDrawPixels(QRect const& area);

    /// Whether drawVideoOrthoMode() would draw no more than an opaque picture as it is, and that picture.
    bool isPlain() const { return !_renderer || _renderer->isPlain(); }
    std::optional<GLMoviePicture> plainPicture(QRect const& area, GLMovieRenderer::DrawMode mode);

    /// Where the picture was last drawn, in pixels of the surface.
    QRect videoWindow() const;
    /// The size of the picture at its right aspect ratio, in pixels, known once the stream is open.
    QSize movieSize() const;

signals:
    void error(ChannelStream* stream, QString text);
    void opened(ChannelStream* stream);
    void timeUpdated(ChannelStream* stream, double seconds);
    void completed(ChannelStream* stream);
    void needsLoop(ChannelStream* stream);
    void looped(ChannelStream* stream);
    void closing(ChannelStream* stream);
    void closed(ChannelStream* stream);
    void stateChanged(ChannelStream* stream, QString text);
    /// What stateChanged() told of is over.
    void playing(ChannelStream* stream);
    /// A text for the viewer that is to stand for a few seconds; the picture goes on.
    void notice(ChannelStream* stream, QString text);
    void fadeInComplete(ChannelStream* stream);
    void fadeOutComplete(ChannelStream* stream);
    void mutedChanged(ChannelStream* stream, bool muted);
    void volumeChanged(ChannelStream* stream, double volume);
    /// A new picture waits to be painted.
    void pictureUpdated();

public slots:
    void onOpened(GLMovieRenderer* renderer);
    void onTimeUpdated(GLMovieRenderer* renderer, double seconds);
    void onCompleted(GLMovieRenderer* renderer);
    void onLooped(GLMovieRenderer* renderer);
    void onError(GLMovieDataSource* source, QString text);
    void onStateChanged(GLMovieDataSource* source, QString text);
    void onRecordChanged();
    /// Recording has ended by itself: the action says so, too.
    void onRecordingFailed(GLMovieDataSource* source, QString reason);
    void onEnableVideoPostProcessingChanged();
    void onVideoPostProcessingChanged();
    /// Plays by FFmpeg's own access what the source of its address leaves to that.
    void onPlainFileFound();

private:
    void applySpeed();
    void giveColourConversion();
    void givePostProcessing();
    std::unique_ptr<GLMovieDataSource> createSource(bool forceFile);
    void onDownloadProgress(qint64 received, qint64 total);

    static Logger* log;

    AppData& _appData;
    Channel* const _channel;
    StreamDescription _description;
    std::unique_ptr<GLMovieDataSource> _dataSource; ///< Outlives the renderer.
    std::unique_ptr<GLMovieRenderer> _renderer;
    bool _muted = false;
    bool _loop = false;
    double _volume = 1.0;
    double _speed = 1.0;
    double _opacity = 1.0;
    bool _isFadingOut = false;
    bool _watched = true;
    bool _unseen = false;
    bool _opened = false;
    int _openings = 0; ///< For what is on its way from a source that is gone.
};
