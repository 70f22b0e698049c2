#include "GLSurface.h"

#include "Logger.h"
#include "LoggerManager.h"

#include <QOpenGLContext>
#include <QSurfaceFormat>
#include <QWidget>
#include <QWindow>

Logger* GLSurface::log = LoggerManager::logger();

namespace
{

constexpr int antialiasingSamples = 4;

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

GLSurface::GLSurface(QWidget& widget) : _widget(widget) {}

GLSurface::~GLSurface() = default;

bool GLSurface::isAvailable()
{
    QWindow window;
    window.setSurfaceType(QSurface::OpenGLSurface);
    window.setFormat(surfaceFormat(false));
    window.create();
    QOpenGLContext context;
    context.setFormat(window.requestedFormat());
    return context.create() && context.makeCurrent(&window);
}

bool GLSurface::create(bool antialiasing)
{
    if (_context || _hasFailed)
        return _context != nullptr;
    auto context = std::make_unique<QOpenGLContext>();
    context->setFormat(surfaceFormat(antialiasing));
    if (context->create())
        _context = std::move(context);
    if (makeCurrent())
        return true;
    LOG_ERROR("Could not create an OpenGL context");
    _context.reset();
    _hasFailed = true;
    return false;
}

bool GLSurface::adoptWindow()
{
    if (!_context)
        return false;
    quintptr const id = _widget.winId();
    QWindow* const window = _widget.windowHandle();
    if (!window || id == 0)
        return false;
    if (window == _window && id == _windowId)
        return true;
    window->setSurfaceType(QSurface::OpenGLSurface);
    window->setFormat(_context->format());
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

bool GLSurface::isExposed() const
{
    if (!_widget.isVisible() || _widget.window()->isMinimized())
        return false;
    // A window is not told that the one around it has been taken off the screen.
    QWindow const* window = _widget.windowHandle();
    bool isExposed = window != nullptr;
    for (; window && isExposed; window = window->parent())
        isExposed = window->isExposed();
    return isExposed;
}
