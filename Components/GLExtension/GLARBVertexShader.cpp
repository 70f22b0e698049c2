#include "GLARBVertexShader.h"

GLARBVertexShader* GLARBVertexShader::instance()
{
    static GLARBVertexShader extension;
    return &extension;
}

void GLARBVertexShader::init(QOpenGLContext const* context)
{
    bool found = true;
    found = resolve(_bindAttribLocation, context, "glBindAttribLocationARB") && found;
    found = resolve(_getAttribLocation, context, "glGetAttribLocationARB") && found;
    found = resolve(_vertexAttrib1f, context, "glVertexAttrib1fARB") && found;
    found = resolve(_vertexAttrib2f, context, "glVertexAttrib2fARB") && found;
    setResolved("GL_ARB_vertex_shader", found);
}
