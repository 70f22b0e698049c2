#pragma once

#include "GLExtension.h"

#include <qopengl.h>

/// GL_ARB_fragment_shader: fragment shaders for GLARBShaderObjects.
class GLARBFragmentShader : public GLExtension
{
public:
    static GLARBFragmentShader* instance();

    /// Resolves the extension in a context, which is current.
    void init(QOpenGLContext const* context);

private:
    GLARBFragmentShader() = default;
};
