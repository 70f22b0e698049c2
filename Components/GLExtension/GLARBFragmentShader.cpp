#include "GLARBFragmentShader.h"

GLARBFragmentShader* GLARBFragmentShader::instance()
{
    static GLARBFragmentShader extension;
    return &extension;
}

void GLARBFragmentShader::init(QOpenGLContext const*)
{
    setResolved("GL_ARB_fragment_shader", true);
}
