#pragma once

#include "GLMovieRenderer.h"

#include <QImage>
#include <QRect>
#include <QStringList>
#include <QTimer>
#include <QWidget>

#include <memory>

class AppData;
class Logger;
class QOpenGLContext;

/// The OpenGL surface in which video plays.
///
/// A native window with a context of its own, drawn to without a detour: in software OpenGL, composing the picture
/// through the widget's backing store would double the cost of every picture. Paints when a picture or a text has
/// changed, never otherwise. Main thread only, which is the GL thread.
class GLWidget : public QWidget
{
    Q_OBJECT

public:
    explicit GLWidget(AppData& appData, QWidget* parent = nullptr);
    ~GLWidget() override;

    /// Whether the system has OpenGL at all.
    static bool hasOpenGL();

    /// What is painted now, in pixels of the surface. Null without a context.
    QImage takeScreenshot();

    /// Saves a screenshot under the screenshot directory; screenshotCompleted() tells where, empty on failure.
    void saveScreenshot(QImage const& image, QString const& path);

    /// Lays the named effects over all pictures, in place of those of before.
    void setEffects(QStringList const& names);

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
    void onRenderTimer();
    void onMouseHideTimer();
    void onShowFullScreenChanged();
    void onTakeScreenshot();

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void createContext();
    void initializeGL();
    void render();
    void renderVideoOrtho();
    void createViewport(int width, int height);
    void logVideoRectangle();
    QRect surfaceRect() const;

    static Logger* log;

    AppData& _appData;
    std::unique_ptr<QOpenGLContext> _context; ///< Null until the first paint, or when none could be made.
    bool _failed = false;
    QTimer _renderTimer; ///< Single-shot: joins the updates of several streams into one paint.
    QTimer _mouseHideTimer;
    QRect _loggedVideoRectangle;
};
