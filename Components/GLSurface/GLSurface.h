#pragma once

#include <QAbstractNativeEventFilter>
#include <QObject>
#include <QPointer>
#include <QSurfaceFormat>

#include <memory>

class Logger;
class QOpenGLContext;
class QWidget;
class QWindow;

/// An OpenGL context that draws on the native window of a widget, whichever that is: Qt makes windows anew when they
/// get other flags or another parent. The context, and with it textures and programs, stays.
///
/// Where Qt makes the top-level window anew, the X server destroys the windows in it too, which Qt does not notice:
/// the surface makes the widget's own anew then. GUI thread only.
class GLSurface : public QObject, private QAbstractNativeEventFilter
{
    Q_OBJECT

public:
    /// The widget, which has to be a native one, outlives the surface.
    explicit GLSurface(QWidget& widget);
    ~GLSurface() override;

    /// Whether the system can draw on a window with OpenGL: makes a context current on one that nobody sees.
    static bool isAvailable();

    /// Makes a context, if there is none. False, and an error in the log, when that fails: it is tried once.
    bool create(bool antialiasing);
    /// Gives up the context, with all that is in it, and makes the window anew: the next create() begins afresh.
    void renew(bool antialiasing);
    /// Takes the widget's window of now. False without a context or a window.
    bool adoptWindow();
    /// Makes the context current on the widget's window of now. False without a context or a window.
    bool makeCurrent();
    void swapBuffers();
    QOpenGLContext* context() const { return _context.get(); }

    /// Whether any of the window can be on the screen: a minimised one is not, even where the desktop keeps it
    /// mapped.
    bool isExposed();

signals:
    /// The widget has a new window, on which nothing has been drawn.
    void windowChanged(QWindow* window);
    /// A part of the window has to be painted anew: it was not on the screen. Qt's paint events do not tell of all.
    void exposed();

private:
    bool eventFilter(QObject* watched, QEvent* event) override;
    bool nativeEventFilter(QByteArray const& eventType, void* message, qintptr* result) override;
    void renewWindow(quintptr destroyed);

    static Logger* log;

    QWidget& _widget;
    QSurfaceFormat _format; ///< Asked for, by context and window alike, so that they go together.
    std::unique_ptr<QOpenGLContext> _context;
    QPointer<QWindow> _window; ///< The one that was drawn on last.
    quintptr _windowId = 0;    ///< Its native window: Qt may change that too.
    bool _hasFailed = false;
};
