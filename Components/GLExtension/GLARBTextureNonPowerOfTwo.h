#pragma once

#include "GLExtension.h"

#include <qopengl.h>

/// GL_ARB_texture_non_power_of_two: textures of any size.
class GLARBTextureNonPowerOfTwo : public GLExtension
{
public:
    static GLARBTextureNonPowerOfTwo* instance();

    /// Resolves the extension in a context, which is current.
    void init(QOpenGLContext const* context);

private:
    GLARBTextureNonPowerOfTwo() = default;
};
