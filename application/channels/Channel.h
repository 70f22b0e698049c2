#pragma once

#include "ChannelDescription.h"
#include "ChannelStream.h"
#include "GLTexture.h"

#include <QByteArray>
#include <QHash>
#include <QList>
#include <QObject>
#include <QPointF>
#include <QRect>
#include <QRectF>

#include <memory>
#include <vector>

class AppData;
class GLControl;
class GLControlLayout;
class GLTextArea;
class LatteClient;
class Logger;

/// The live counterpart of a ChannelDescription: opens all its streams together and shows them side by side, with its
/// errors and states over the picture. The first stream has the sound.
///
/// There is no fail-over: a failed stream puts the channel in error until it is opened anew. Main thread only;
/// drawing with the surface's context current.
class Channel : public QObject
{
    Q_OBJECT

public:
    explicit Channel(AppData& appData) : Channel(appData, ChannelDescription()) {}
    Channel(AppData& appData, ChannelDescription const& description);
    ~Channel() override;

    /// The title for a line of the log; of null "None".
    static QByteArray logTitle(Channel const* channel);

    /// ChannelManager's to change.
    ChannelDescription desc;

    void open();
    void close();
    void reconnect();
    void fadeAndClose(int ms);
    void fadeIn(int ms, double volume, bool fadeVideo, bool fadeAudio);
    void fadeOut(int ms, bool fadeVideo, bool fadeAudio);

    bool isOpen() const;
    bool isPlaying() const;
    bool isBuffering() const;
    bool isFading() const;
    bool hasError() const { return !_errors.isEmpty(); }
    /// What the first stream that failed has told; empty without an error.
    QString errorText() const;
    bool hasVideo() const;
    bool hasAudio() const;
    /// Whether some stream can seek, and so play at another speed than its own; known once it is open.
    bool isSeekable() const;

    /// Seconds since the epoch; 0 while closed.
    qint64 openTime() const { return _openTime; }
    /// How often it has been opened so far: tells one opening from another.
    int openings() const { return _openings; }

    void setMuted(bool muted);
    void setVolume(double volume);
    void setOpacity(double opacity);
    /// Whether somebody looks at the pictures.
    void setWatched(bool watched);
    /// Whether it plays for itself, until it is shown: nothing of that is recorded.
    void setUnseen(bool unseen);
    void setSpeed(double speed);
    void seekForwards(double seconds);
    void seekBackwards(double seconds);
    /// Of the first stream that can seek, in seconds; 0 while they are not known, or when there is none.
    double movieTime() const;
    double movieDuration() const;
    /// Has all that can seek go to a time.
    void setMovieTime(double seconds);
    /// Holds all that can seek.
    void setPaused(bool paused);
    bool isPaused() const;

    void addStream(StreamDescription const& description);
    void removeStream(StreamDescription const& description);
    /// Makes the streams those of the description; what has not changed plays on.
    void resetStreams();
    /// Copies the description; with rebuild, closes the channel and makes its streams anew.
    void setDesc(ChannelDescription const& description, bool rebuild);

    /// Uploads new pictures; before any drawing.
    void updateVideoTexture();
    /// Draws what stands in for a picture: the logo of a channel of the directory, while it has none to show. Areas
    /// are in pixels, y downward, unless said otherwise.
    void drawBackground(QRect const& area);
    /// Draws the channel's pictures inside the area, those of several streams as an array.
    void drawVideoOrthoMode(QRect const& area, GLMovieRenderer::DrawMode mode);
    void drawOrthoVideoArray(QRect const& area, int columns, GLMovieRenderer::DrawMode mode);
    /// The same in the plane z of the current space, y upward from the area's top.
    void drawVideoPerspectiveMode(QRectF const& area, bool keepAspect, double z = 0.0);
    void drawPerspectiveVideoArray(QRectF const& area, int columns, bool keepAspect, double z = 0.0);
    /// Draws the channel's texts over the area.
    void drawOverlay(QRect const& area);

    /// The logo for drawing; not created() while there is none.
    GLTexture* logoTexture() { return &_logoTexture; }
    /// Makes it of the description's logo, if that has changed since.
    void createLogoTexture();
    void deleteLogoTexture();

    /// Whether the two would draw no more than opaque pictures as they are, and those pictures, to be appended.
    bool isPlain() const;
    void appendPlainPictures(QRect const& area, GLMovieRenderer::DrawMode mode,
                             std::vector<GLMoviePicture>& pictures);

    bool hitTest(QPointF point) const;

    /// What delivers the streams that are open, where that is a client.
    QList<LatteClient const*> latteClients() const;

    /// What each stream is and how it plays.
    QList<StreamInformation> streamInformation() const;

    /// Where the first stream's picture was last drawn, and its own size in pixels.
    QRect videoWindow() const;
    QSize movieSize() const;
    /// Width over height of all that the channel shows, side by side; 0 while it is not known.
    double aspectRatio() const;

signals:
    void fadeAndCloseComplete(Channel* channel);
    void streamOpened(Channel* channel, ChannelStream* stream);
    void streamTimeUpdated(Channel* channel, ChannelStream* stream, double seconds);
    void streamError(Channel* channel, ChannelStream* stream, QString text);
    void streamStateChanged(Channel* channel, ChannelStream* stream, QString text);
    void streamAdded(Channel* channel, ChannelStream* stream);
    void streamClosing(Channel* channel, ChannelStream* stream);
    void streamClosed(Channel* channel, ChannelStream* stream);
    void streamCompleted(Channel* channel, ChannelStream* stream);
    void streamLooped(Channel* channel, ChannelStream* stream);
    void streamNeedsLoop(Channel* channel, ChannelStream* stream);
    void streamMutedChanged(Channel* channel, ChannelStream* stream, bool muted);
    void streamVolumeChanged(Channel* channel, ChannelStream* stream, double volume);
    /// A new picture or text waits to be painted.
    void pictureUpdated();

public slots:
    void onStreamOpened(ChannelStream* stream);
    void onStreamTimeUpdated(ChannelStream* stream, double seconds);
    void onStreamError(ChannelStream* stream, QString text);
    void onStreamStateChanged(ChannelStream* stream, QString text);
    void onStreamAdded(ChannelStream* stream);
    void onStreamClosing(ChannelStream* stream);
    void onStreamClosed(ChannelStream* stream);
    void onStreamCompleted(ChannelStream* stream);
    void onStreamLooped(ChannelStream* stream);
    void onStreamNeedsLoop(ChannelStream* stream);
    void onStreamMutedChanged(ChannelStream* stream, bool muted);
    void onStreamVolumeChanged(ChannelStream* stream, double volume);
    void onStreamPlaying(ChannelStream* stream);
    void onStreamNotice(ChannelStream* stream, QString text);
    void onCloseTimer();

private:
    void createStream(StreamDescription const& description);
    void connectStream(ChannelStream* stream);
    void openStream(ChannelStream& stream);
    bool hasOverlay() const;
    bool showsLogo() const;
    int columns() const;
    void renewDescriptions();
    void createOverlay();
    void showErrorOr(QString const& text);
    void setOverlayText(QString const& text);

    static Logger* log;

    AppData& _appData;
    std::vector<std::unique_ptr<ChannelStream>> _streams;
    std::unique_ptr<GLControlLayout> _layout; ///< Null while closed, as are the next two.
    std::unique_ptr<GLControl> _control;
    std::unique_ptr<GLTextArea> _textArea;
    GLTexture _logoTexture;
    bool _isLogoChanged = false;                  ///< Since the texture was made.
    QHash<ChannelStream const*, QString> _errors; ///< What streams have told that have failed.
    qint64 _openTime = 0;
    int _openings = 0;
};
