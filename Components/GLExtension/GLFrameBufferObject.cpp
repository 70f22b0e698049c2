#include "GLFrameBufferObject.h"

#include "GLARBFrameBufferObject.h"
#include "GLEXTFrameBufferObject.h"

GLFrameBufferObject* GLFrameBufferObject::supported()
{
    if (GLARBFrameBufferObject::instance()->isSupported())
        return GLARBFrameBufferObject::instance();
    if (GLEXTFrameBufferObject::instance()->isSupported())
        return GLEXTFrameBufferObject::instance();
    return nullptr;
}

void GLFrameBufferObject::initFunctions(QOpenGLContext const* context, QString const& extension,
                                        QString const& ending)
{
    bool found = resolve(_genFramebuffers, context, "glGenFramebuffers" % ending);
    found = resolve(_deleteFramebuffers, context, "glDeleteFramebuffers" % ending) && found;
    found = resolve(_bindFramebuffer, context, "glBindFramebuffer" % ending) && found;
    found = resolve(_framebufferTexture2D, context, "glFramebufferTexture2D" % ending) && found;
    found = resolve(_checkFramebufferStatus, context, "glCheckFramebufferStatus" % ending) && found;
    setResolved(extension, found);
}
