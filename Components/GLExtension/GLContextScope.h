#pragma once

#include <memory>

class QOffscreenSurface;
class QOpenGLContext;
class QSurface;

/// Makes sure, for its lifetime, that a context is current in which the objects of `context` can be used: the current
/// one if it shares with it, else `context` itself on a surface of its own. Restores what was before. GUI thread.
class GLContextScope
{
public:
    /// A null context, as QPointer gives for one that is gone, is never current.
    explicit GLContextScope(QOpenGLContext* context);
    ~GLContextScope();
    GLContextScope(GLContextScope const&) = delete;
    GLContextScope& operator=(GLContextScope const&) = delete;

    /// Whether OpenGL may be called.
    bool isCurrent() const { return _current; }

private:
    std::unique_ptr<QOffscreenSurface> _surface; ///< Null unless the context had to be switched.
    QOpenGLContext* _previousContext = nullptr;
    QSurface* _previousSurface = nullptr;
    bool _current = false;
};
