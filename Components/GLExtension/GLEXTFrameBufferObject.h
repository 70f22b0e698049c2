#pragma once

#include "GLFrameBufferObject.h"

/// GL_EXT_framebuffer_object: the frame-buffer calls of the EXT extension.
class GLEXTFrameBufferObject : public GLFrameBufferObject
{
public:
    static GLEXTFrameBufferObject* instance();

    /// Resolves the extension in a context, which is current.
    void init(QOpenGLContext const* context);

private:
    GLEXTFrameBufferObject() = default;
};
