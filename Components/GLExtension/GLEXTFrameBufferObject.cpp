#include "GLEXTFrameBufferObject.h"

GLEXTFrameBufferObject* GLEXTFrameBufferObject::instance()
{
    static GLEXTFrameBufferObject extension;
    return &extension;
}

void GLEXTFrameBufferObject::init(QOpenGLContext const* context)
{
    initFunctions(context, "GL_EXT_framebuffer_object", "EXT");
}
