#include "GLSurface.h"

#include "Logger.h"
#include "LoggerManager.h"

#include <QCoreApplication>
#include <QEvent>
#include <QOpenGLContext>
#include <QWidget>
#include <QWindow>

#include <xcb/xcb.h>

Logger* GLSurface::log = LoggerManager::logger();

namespace
{

constexpr int antialiasingSamples = 4;
constexpr int sentEventFlag = 0x80;

QSurfaceFormat surfaceFormat(bool antialiasing)
{
    QSurfaceFormat format;
    format.setRenderableType(QSurfaceFormat::OpenGL);
    format.setVersion(2, 1);
    format.setProfile(QSurfaceFormat::CompatibilityProfile);
    format.setDepthBufferSize(0);
    format.setStencilBufferSize(0);
    format.setSwapInterval(0); // Pictures are timed by their clock; waiting here would hold up every other stream.
    if (antialiasing)
        format.setSamples(antialiasingSamples);
    return format;
}

} // namespace

GLSurface::GLSurface(QWidget& widget) : _widget(widget)
{
    QCoreApplication::instance()->installNativeEventFilter(this);
}

GLSurface::~GLSurface()
{
    QCoreApplication::instance()->removeNativeEventFilter(this);
}

bool GLSurface::nativeEventFilter(QByteArray const& eventType, void* message, qintptr*)
{
    if (eventType != "xcb_generic_event_t" ||
        (static_cast<xcb_generic_event_t const*>(message)->response_type & ~sentEventFlag) != XCB_DESTROY_NOTIFY)
        return false;
    quintptr const destroyed = static_cast<xcb_destroy_notify_event_t const*>(message)->window;
    if (destroyed == _windowId)
        QMetaObject::invokeMethod(
            this, [this, destroyed] { renewWindow(destroyed); }, Qt::QueuedConnection);
    return false;
}

void GLSurface::renewWindow(quintptr destroyed)
{
    QWindow* const window = _widget.windowHandle();
    if (!window || !window->handle() || window->winId() != destroyed)
        return; // Qt knows.
    if (_context && QOpenGLContext::currentContext() == _context.get())
        _context->doneCurrent();
    bool const wasShown = !_widget.isHidden();
    bool const hadFocus = _widget.hasFocus();
    _widget.setVisible(false); // As the window becomes, which the widget would not be told.
    window->destroy();
    window->create();
    _widget.setVisible(wasShown);
    if (hadFocus)
        _widget.setFocus();
}

bool GLSurface::isAvailable()
{
    QWindow window;
    window.create(); // First, as a widget's is: where OpenGL comes by EGL that does not do, and is found out here.
    window.setSurfaceType(QSurface::OpenGLSurface);
    window.setFormat(surfaceFormat(false));
    QOpenGLContext context;
    context.setFormat(window.requestedFormat());
    return context.create() && context.makeCurrent(&window);
}

bool GLSurface::create(bool antialiasing)
{
    if (_context || _hasFailed)
        return _context != nullptr;
    _format = surfaceFormat(antialiasing);
    auto context = std::make_unique<QOpenGLContext>();
    context->setFormat(_format);
    if (context->create())
        _context = std::move(context);
    if (makeCurrent())
        return true;
    LOG_ERROR("Could not create an OpenGL context");
    _context.reset();
    _hasFailed = true;
    return false;
}

void GLSurface::renew(bool antialiasing)
{
    if (_context && QOpenGLContext::currentContext() == _context.get())
        _context->doneCurrent();
    _context.reset();
    _hasFailed = false;
    _window = nullptr;
    QWindow* const window = _widget.windowHandle();
    if (!window || !window->handle())
        return;
    window->setSurfaceType(QSurface::OpenGLSurface);
    window->setFormat(surfaceFormat(antialiasing)); // Which counts when the window is made.
    renewWindow(window->winId());
}

bool GLSurface::adoptWindow()
{
    if (!_context)
        return false;
    if (!_widget.windowHandle())
        _widget.winId(); // Makes it.
    QWindow* const window = _widget.windowHandle();
    if (!window)
        return false;
    quintptr const id = window->winId();
    if (window == _window && id == _windowId)
        return true;
    window->setSurfaceType(QSurface::OpenGLSurface);
    window->setFormat(_format);
    window->installEventFilter(this);
    _window = window;
    _windowId = id;
    emit windowChanged(window);
    return true;
}

bool GLSurface::makeCurrent()
{
    return adoptWindow() && _context->makeCurrent(_window);
}

void GLSurface::swapBuffers()
{
    _context->swapBuffers(_window);
}

bool GLSurface::isExposed()
{
    if (!_widget.isVisible() || _widget.window()->isMinimized())
        return false;
    // A window is not told that the one around it has been taken off the screen, and may be there before it.
    for (QWindow* window = _widget.windowHandle(); window; window = window->parent())
        if (!window->isExposed()) {
            window->installEventFilter(this);
            return false;
        }
    return _widget.windowHandle() != nullptr;
}

bool GLSurface::eventFilter(QObject* watched, QEvent* event)
{
    auto* const window = qobject_cast<QWindow*>(watched);
    if (event->type() == QEvent::Expose && window && window->isExposed()) {
        if (window != _widget.windowHandle())
            window->removeEventFilter(this);
        emit exposed();
    }
    return false;
}
