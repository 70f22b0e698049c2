#include "GLARBTextureNonPowerOfTwo.h"

GLARBTextureNonPowerOfTwo* GLARBTextureNonPowerOfTwo::instance()
{
    static GLARBTextureNonPowerOfTwo extension;
    return &extension;
}

void GLARBTextureNonPowerOfTwo::init(QOpenGLContext const*)
{
    setResolved("GL_ARB_texture_non_power_of_two", true);
}
