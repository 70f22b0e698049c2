#pragma once

#include "GLAnimation.h"
#include "GLCarousel.h"
#include "GLControlLayout.h"
#include "GLMoviePresenter.h"
#include "GLMovieRenderer.h"
#include "GLOverlay.h"
#include "GLSurface.h"
#include "ImageSaver.h"
#include "PaintPacer.h"

#include <QImage>
#include <QPointer>
#include <QRect>
#include <QStringList>
#include <QTimer>
#include <QWidget>

#include <memory>
#include <optional>

class AppData;
class Logger;

/// The OpenGL surface in which video plays, with the overlay of controls and the carousel of channels.
///
/// A native window with a context of its own, drawn to without a detour: in software OpenGL, composing the picture
/// through the widget's backing store would double the cost of every picture. Where OpenGL is in software, and
/// nothing but opaque pictures is to be seen, they go to the window without it, with what the overlay shows laid over
/// them. Paints when a picture, a text or a control has changed and can be seen, at most once for each frame of the
/// screen. Main thread only, which is the GL thread.
class GLWidget : public QWidget
{
    Q_OBJECT

public:
    explicit GLWidget(AppData& appData, QWidget* parent = nullptr);
    ~GLWidget() override;

    /// Whether the system can draw with OpenGL at all.
    static bool hasOpenGL();

    /// What is painted now, in pixels of the surface, with or without the overlay where that can be seen. Null
    /// without a context.
    QImage takeScreenshot(bool withOverlay = true);

    /// Saves a screenshot under the screenshot directory, without waiting for it; screenshotCompleted() tells where,
    /// empty on failure.
    void saveScreenshot(QImage const& image, QString const& path);

    /// Makes the surface's OpenGL context current. False where there is none.
    bool makeCurrent() { return _surface.makeCurrent(); }

    /// The nearest of the zoom factors to what is shown now, 0 without a picture.
    double calculateZoom() const;

    GLOverlay& overlay() { return _overlay; }
    GLControlLayout& controls() { return _layout; }

    QPaintEngine* paintEngine() const override { return nullptr; }

signals:
    /// The context and all that is shared stand; streams may be opened.
    void initialized();
    void screenshotCompleted(QString path);
    void contextMenuRequested(QPoint globalPosition);
    void filesDropped(QStringList names);
    /// A page that is to lie over the picture is there.
    void webOverlayLoaded();

public slots:
    /// Paints, if anything of the surface can be seen.
    void onRenderTimer();
    /// Begins anew with the antialiasing of the settings.
    void onSurfaceOutdated();
    void onCursorChanged(QCursor const& cursor);
    void onMouseHideTimer();
    void onShowFullScreenChanged();
    void onTakeScreenshot();
    void onFocusChanged(QWidget* from, QWidget* to);

    // The overlay. Points are device-independent pixels.
    void onOverlayVisibilityChanged(bool visible);
    void onVideoMousePress(QPointF point, Qt::KeyboardModifiers modifiers);
    void onVideoMouseMove(QPointF point, QMouseEvent* event);
    void onVideoMouseRelease(QPointF point, Qt::KeyboardModifiers modifiers);
    void onVideoKeyPress(QKeyEvent* event);
    void onVideoKeyRelease(QKeyEvent* event);
    /// A page that is to lie over the picture loads, with so many per cent there, or has loaded.
    void onWebOverlayLoadStarted();
    void onWebOverlayLoadProgress(int percent);
    void onWebOverlayLoadFinished(bool ok);

    // The carousel.
    void onCarouselModeChanged();
    void onCarouselActiveChannelChanged(QString const& rootId);
    void onCarouselBarButtonPressed(QString const& name, int steps);
    void onCarouselMouseEnteredSlide(GLCarouselSlide* slide);
    void onCarouselMouseLeftSlide(GLCarouselSlide* slide);
    void onZoomAnimationValueChanged(GLAnimation* animation);
    void onZoomAnimationCompleted(GLAnimation* animation);

protected:
    bool event(QEvent* event) override;
    bool focusNextPrevChild(bool next) override;
    void focusInEvent(QFocusEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void connectHub();
    void connectOverlay();
    void initializeGL();
    void destroyPrograms();
    void onWindowChanged(QWindow* window);
    void onExposed();
    void choosePresentation();
    void render();
    bool presentPictures();
    void drawPictures();
    void renderVideo();
    void renderControls();
    void followPictures();
    GLMovieRenderer::DrawMode drawMode() const;
    void createViewport(int width, int height);
    void logVideoRectangle();
    QRect surfaceRect() const;
    bool isCarouselShown() const { return _carousel.isEntered(); }
    bool wantsKey(QKeyEvent const* event) const;
    bool isControlFocused() const;
    void placeControls();
    void onHoverChanged(GLControl* control);
    void endDrag(QPointF point);
    void cancelPress();
    bool hasPointerMoved(QPointF place);

    static Logger* log;

    AppData& _appData;
    GLSurface _surface;
    PaintPacer _pacer;
    std::unique_ptr<GLMoviePresenter> _presenter; ///< Null where OpenGL draws everything.
    ImageSaver _screenshots;
    GLControlLayout _layout;
    GLOverlay _overlay; ///< In the layout.
    GLCarousel _carousel;
    QPointer<QWidget> _focusBeforeCarousel; ///< Null where the surface had it.
    GLAnimation _zoomAnimation;             ///< From the picture, 0.0, to the whole carousel, 1.0.
    bool _isInitialized = false;
    QTimer _mouseHideTimer;
    QRect _loggedVideoRectangle;
    QCursor _videoCursor;    ///< Where the pointer is over the picture.
    QString _pressedChannel; ///< By its root id, while it may be dragged to another's place.
    QPointF _pressPoint;
    std::optional<QPoint> _pointer; ///< Where on the screen it was last.
    bool _isDragging = false;
    bool _hasTakenEscape = false; ///< When it went down; its way up means nothing then.
};
