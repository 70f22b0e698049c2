#include "GLARBMultiTexture.h"

GLARBMultiTexture* GLARBMultiTexture::instance()
{
    static GLARBMultiTexture extension;
    return &extension;
}

void GLARBMultiTexture::init(QOpenGLContext const* context)
{
    bool found = true;
    found = resolve(_activeTexture, context, "glActiveTextureARB") && found;
    found = resolve(_multiTexCoord2f, context, "glMultiTexCoord2fARB") && found;
    setResolved("GL_ARB_multitexture", found);
}
