#pragma once

#include "GLAnimation.h"
#include "GLMoviePainter.h"
#include "GLMoviePicture.h"

#include <QObject>
#include <QPointF>
#include <QPolygonF>
#include <QRectF>
#include <QSize>
#include <QString>

#include <atomic>
#include <memory>
#include <optional>

class GLMovie;
class GLMovieDataSource;
class GLMovieOverlay;
class GLMovieShader;
class Logger;
struct GLMovieQuad;

/// Owns the movie of one stream and draws it: uploads its newest picture, converts colours on the graphics card where
/// it can, fades picture and sound, and writes name and message over the picture.
///
/// Lives on the GUI thread, which is the GL thread. The update, draw and dump functions need a current context.
/// Drawing in ortho mode is in a projection in pixels, y downward.
class GLMovieRenderer : public QObject
{
    Q_OBJECT

public:
    /// How a picture is fitted into the rectangle that it may take.
    enum DrawMode {
        HalfSize = 0,    ///< Half its own size; like the next two, centred and cut to the rectangle.
        NormalSize = 1,  ///< Its own size.
        DoubleSize = 2,  ///< Twice its own size.
        Stretch = 3,     ///< Fills the rectangle, whatever the aspect ratio.
        TouchInside = 4, ///< As large as fits.
        TouchOutside = 5 ///< As small as covers; what is outside is cut off.
    };
    Q_ENUM(DrawMode)

    explicit GLMovieRenderer(QObject* parent = nullptr);
    ~GLMovieRenderer() override;

    /// Opens the source, which outlives the movie, and plays it as soon as it is opened. Nothing if a movie is open.
    void open(GLMovieDataSource* source);
    /// Stops, frees the movie and closes the source. What was set stays for the next open().
    void close();

    /// The open movie, null without one.
    GLMovie* movie() const { return _movie.get(); }
    bool isOpen() const { return _movie != nullptr; }
    /// A movie is open and has not shown or sounded anything yet.
    bool isBuffering() const;

    /// Whether somebody looks at the pictures. Starts true.
    void setWatched(bool watched);
    void setLoop(bool loop);
    void setMuted(bool muted);
    /// 0.0 to 1.0; a fade of the sound goes on below it.
    void setVolume(double volume);
    void setSpeed(double speed);
    /// 0.0 to 1.0; a fade of the picture goes on below it.
    void setOpacity(double opacity);
    double opacity() const { return _opacity; }
    /// Counts from the next open() on, and only with one of the two programs.
    void setUseHardwareColourConversion(bool use) { _useHardwareColourConversion = use; }
    /// Whether pictures made of two fields are made whole, from the next open() on. Starts true.
    void setDeinterlacing(bool deinterlace) { _deinterlace = deinterlace; }
    void setColourConversionFragmentProgram(unsigned int program);
    void setColourConversionShaderProgram(unsigned int program);

    /// Whether chroma is smoothed where the picture is drawn pixel by pixel; where OpenGL runs in software, that
    /// doubles the cost of a picture. Starts true.
    void setSmoothChroma(bool smooth) { _painter.setSmoothChroma(smooth); }

    bool postProcessingEnabled() const;
    void setPostProcessingEnabled(bool enabled);
    /// Handles of GLMovieShader, run in the order in which they were added.
    void addPostProcessingShaderProgram(unsigned int program);
    void removePostProcessingShaderProgram(unsigned int program);
    void clearPostProcessingShaderPrograms();

    /// Pixels, empty before the first key frame.
    QSize movieSize() const;
    /// Width over height as shown, 0 when it is not known.
    double aspectRatio() const;
    /// Seconds; 0 without a movie.
    double movieDuration() const;
    double movieTime() const;
    bool setMovieTime(double seconds);

    /// Fades in to a volume within so many milliseconds, from the first picture and the first sound on. What is not
    /// to fade is there at once, unless an earlier call has it fade in still. fadeInCompleted() tells when all that
    /// the movie has is there.
    void fadeIn(int milliseconds, double volume, bool fadeVideo, bool fadeAudio);
    /// Fades out; fadeOutCompleted() tells the end.
    void fadeOut(int milliseconds, bool fadeVideo, bool fadeAudio);
    bool isFading() const { return _videoFade.isRunning() || _audioFade.isRunning(); }

    /// Shown until the first picture, and along with a message.
    void setVideoName(QString const& name);
    /// Shown over the picture; empty for none.
    void setVideoMessage(QString const& message);

    /// Uploads the newest picture if it is not there yet. Called on each paint.
    void updateVideoTexture();
    /// Draws picture and texts into a rectangle.
    void drawVideoOrthoMode(int x, int y, int width, int height, GLMovieRenderer::DrawMode mode = TouchInside);
    /// Whether drawVideoOrthoMode() would draw no more than an opaque picture as it is, or nothing: whether it can do
    /// without OpenGL.
    bool isPlain() const;
    /// The picture that drawVideoOrthoMode() would draw into the area, where that isPlain(); none when it would draw
    /// none. Counts as drawn there.
    std::optional<GLMoviePicture> plainPicture(QRect const& area, GLMovieRenderer::DrawMode mode);
    /// Draws the picture in the plane z of the current space, y upward, from the lower left corner (x, y); with
    /// keepAspect, as large as fits.
    void drawVideoPerspectiveMode(double x, double y, double width, double height, bool keepAspect, double z = 0.0);
    /// Whether the newest picture is too large for a texture of this card.
    bool exceedsTextures() const;
    /// Draws the picture without textures, fitted by its aspect ratio: the last resort.
    void drawVideoWithDrawPixels(int x, int y, int width, int height);

    /// Whether the picture was last drawn under a point: pixels of the window from its upper left corner.
    bool hitTest(QPointF point) const;

    /// The rectangle in which the picture was last drawn, in pixels of the window; empty before that.
    QRect videoWindow() const { return _windowCoordinates.boundingRect().toRect(); }

    /// Writes a texture into an image file, to look into problems. Returns false, and logs, when it cannot.
    bool dumpTextureToDisk(unsigned int texture, QString const& path) const;

    /// The rectangle, in whole pixels where the mode lets it, of a picture of this size and aspect ratio (0 for that
    /// of its pixels). May exceed the target.
    static QRectF computeVideoRectangle(QRectF const& target, QSize const& picture, double aspectRatio,
                                        GLMovieRenderer::DrawMode mode);

    /// Make the programs for setColourConversion...Program(). Return false when the card cannot.
    static bool createYUVtoRGBFragmentProgram(unsigned int& id);
    static bool createYUVtoRGBShaderProgram(GLMovieShader* shader);

signals:
    /// What went wrong with the movie or its source, for the viewer; empty when it is over.
    void error(GLMovieRenderer* renderer, QString text);
    void opened(GLMovieRenderer* renderer);
    void closing(GLMovieRenderer* renderer);
    void completed(GLMovieRenderer* renderer);
    void looped(GLMovieRenderer* renderer);
    void stateChanged(GLMovieRenderer* renderer, QString state);
    void firstKeyFrameReceived(GLMovieRenderer* renderer, int width, int height);
    void firstAudioPacketReceived(GLMovieRenderer* renderer);
    void firstVideoPacketReceived(GLMovieRenderer* renderer);
    void movieTimeUpdated(GLMovieRenderer* renderer, double seconds);
    void fadeInCompleted(GLMovieRenderer* renderer);
    void fadeOutCompleted(GLMovieRenderer* renderer);
    /// There is something new to paint.
    void pictureUpdated(GLMovieRenderer* renderer);

public slots:
    void onOpened(GLMovie* movie);
    void onCompleted(GLMovie* movie);
    void onLooped(GLMovie* movie);
    void onError(GLMovieDataSource* source, QString const& text);
    void onStateChanged(GLMovieDataSource* source, QString const& state);
    void onFirstKeyFrameReceived(int width, int height);
    void onFirstAudioPacketReceived();
    void onFirstVideoPacketReceived();
    void onMovieTimeUpdated(double seconds);
    void onAnimationValueChanged(GLAnimation* animation);
    void onAnimationCompleted(GLAnimation* animation);

private:
    static constexpr int notWaiting = -1;

    void connectMovie();
    void onMovieError(GLMovie* movie, int code);
    void onPictureUpdated();
    bool canDraw() const;
    void applyVolume();
    void fadeOneIn(GLAnimation& fade, int& waiting, bool wanted, bool begun, int milliseconds);
    void endFade();
    bool isFadeWaiting() const;
    double visibleOpacity() const { return _opacity * _videoFade.value(); }
    bool showsOverlay() const;
    void drawVideoOverlay(QRectF const& rectangle);
    void calculateVideoWindowCoordinates(QPolygonF const& corners);

    static Logger* log;

    std::unique_ptr<GLMovie> _movie;
    GLMovieDataSource* _dataSource = nullptr; ///< Set while _movie is.
    std::unique_ptr<GLMovieOverlay> _overlay;
    GLMoviePainter _painter;
    std::atomic<bool> _pictureAnnounced{
        false}; ///< pictureUpdated() is on its way; set on the video watcher's thread.

    GLAnimation _videoFade;             ///< 0.0 to 1.0, times _opacity.
    GLAnimation _audioFade;             ///< 0.0 to 1.0, times _volume.
    int _waitingVideoFade = notWaiting; ///< ms of a fade that begins with the first picture.
    int _waitingAudioFade = notWaiting; ///< ms of a fade that begins with the first sound.
    bool _fadingIn = false;             ///< fadeInCompleted() is to come.
    bool _fadingOut = false;

    bool _useHardwareColourConversion = false;
    bool _deinterlace = true;
    bool _watched = true;
    bool _loop = false;
    bool _muted = false;
    double _volume = 1.0;
    double _speed = 1.0;
    double _opacity = 1.0;
    bool _hasPicture = false; ///< The movie has shown its first key frame.
    bool _hasSound = false;   ///< The movie has had its first sound.
    QString _videoName;
    QString _videoMessage;
    QPolygonF _windowCoordinates; ///< Where the picture was last drawn, for hitTest().
};
