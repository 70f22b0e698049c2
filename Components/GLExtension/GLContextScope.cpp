#include "GLContextScope.h"

#include <QOffscreenSurface>
#include <QOpenGLContext>

GLContextScope::GLContextScope(QOpenGLContext* context)
{
    if (!context)
        return;
    _previousContext = QOpenGLContext::currentContext();
    if (_previousContext && QOpenGLContext::areSharing(_previousContext, context)) {
        _current = true;
        return;
    }
    _previousSurface = _previousContext ? _previousContext->surface() : nullptr;
    _surface = std::make_unique<QOffscreenSurface>(context->screen());
    _surface->setFormat(context->format());
    _surface->create();
    _current = context->makeCurrent(_surface.get());
}

GLContextScope::~GLContextScope()
{
    if (!_surface)
        return;
    if (_previousContext && _previousSurface)
        _previousContext->makeCurrent(_previousSurface);
    else if (QOpenGLContext* const current = QOpenGLContext::currentContext())
        current->doneCurrent();
}
