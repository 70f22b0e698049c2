#pragma once

#include "GLMoviePresenter.h"
#include "GLMovieRenderer.h"
#include "GLSurface.h"
#include "ImageSaver.h"
#include "PaintPacer.h"

#include <QImage>
#include <QRect>
#include <QStringList>
#include <QTimer>
#include <QWidget>

#include <memory>

class AppData;
class Logger;

/// The OpenGL surface in which video plays.
///
/// A native window with a context of its own, drawn to without a detour: in software OpenGL, composing the picture
/// through the widget's backing store would double the cost of every picture. Where OpenGL is in software, and
/// nothing but opaque pictures is to be seen, they go to the window without it. Paints when a picture or a text has
/// changed and can be seen, at most once for each frame of the screen. Main thread only, which is the GL thread.
class GLWidget : public QWidget
{
    Q_OBJECT

public:
    explicit GLWidget(AppData& appData, QWidget* parent = nullptr);
    ~GLWidget() override;

    /// Whether the system can draw with OpenGL at all.
    static bool hasOpenGL();

    /// What is painted now, in pixels of the surface. Null without a context.
    QImage takeScreenshot();

    /// Saves a screenshot under the screenshot directory, without waiting for it; screenshotCompleted() tells where,
    /// empty on failure.
    void saveScreenshot(QImage const& image, QString const& path);

    /// Makes the surface's OpenGL context current. False where there is none.
    bool makeCurrent() { return _surface.makeCurrent(); }

    /// The nearest of the zoom factors to what is shown now, 0 without a picture.
    double calculateZoom() const;

    QPaintEngine* paintEngine() const override { return nullptr; }

signals:
    /// The context and all that is shared stand; streams may be opened.
    void initialized();
    void screenshotCompleted(QString path);
    void contextMenuRequested(QPoint globalPosition);
    void filesDropped(QStringList names);

public slots:
    /// Paints, if anything of the surface can be seen.
    void onRenderTimer();
    /// Begins anew with the antialiasing of the settings.
    void onSurfaceOutdated();
    void onCursorChanged(QCursor const& cursor);
    void onMouseHideTimer();
    void onShowFullScreenChanged();
    void onTakeScreenshot();

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void initializeGL();
    void destroyPrograms();
    void onWindowChanged(QWindow* window);
    void onExposed();
    void choosePresentation();
    void render();
    bool presentPictures();
    void drawPictures();
    void renderVideo();
    GLMovieRenderer::DrawMode drawMode() const;
    void createViewport(int width, int height);
    void logVideoRectangle();
    QRect surfaceRect() const;

    static Logger* log;

    AppData& _appData;
    GLSurface _surface;
    PaintPacer _pacer;
    std::unique_ptr<GLMoviePresenter> _presenter; ///< Null where OpenGL draws everything.
    ImageSaver _screenshots;
    bool _isInitialized = false;
    QTimer _mouseHideTimer;
    QRect _loggedVideoRectangle;
};
