#pragma once

#include "GLExtension.h"

#include <qopengl.h>

/// GL_ARB_vertex_shader: vertex attributes for GLARBShaderObjects.
class GLARBVertexShader : public GLExtension
{
public:
    static GLARBVertexShader* instance();

    /// Resolves the extension in a context, which is current.
    void init(QOpenGLContext const* context);

    /// Takes effect when the program is linked next.
    void bindAttribLocation(unsigned int program, unsigned int index, char const* name) const
    {
        _bindAttribLocation(program, index, name);
    }
    /// -1 for an attribute that the linked program does not use.
    int getAttribLocation(unsigned int program, char const* name) const { return _getAttribLocation(program, name); }
    void vertexAttrib1f(unsigned int index, float x) const { _vertexAttrib1f(index, x); }
    void vertexAttrib2f(unsigned int index, float x, float y) const { _vertexAttrib2f(index, x, y); }

private:
    GLARBVertexShader() = default;

    void(QOPENGLF_APIENTRYP _bindAttribLocation)(unsigned int, unsigned int, char const*) = nullptr;
    int(QOPENGLF_APIENTRYP _getAttribLocation)(unsigned int, char const*) = nullptr;
    void(QOPENGLF_APIENTRYP _vertexAttrib1f)(unsigned int, float) = nullptr;
    void(QOPENGLF_APIENTRYP _vertexAttrib2f)(unsigned int, float, float) = nullptr;
};
