#pragma once

#include "GLFrameBufferObject.h"

/// GL_ARB_framebuffer_object: the frame-buffer calls of the ARB extension.
class GLARBFrameBufferObject : public GLFrameBufferObject
{
public:
    static GLARBFrameBufferObject* instance();

    /// Resolves the extension in a context, which is current.
    void init(QOpenGLContext const* context);

private:
    GLARBFrameBufferObject() = default;
};
