#include "GLARBFrameBufferObject.h"

GLARBFrameBufferObject* GLARBFrameBufferObject::instance()
{
    static GLARBFrameBufferObject extension;
    return &extension;
}

void GLARBFrameBufferObject::init(QOpenGLContext const* context)
{
    initFunctions(context, "GL_ARB_framebuffer_object", {});
}
