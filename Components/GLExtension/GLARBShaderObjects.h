#pragma once

#include "GLExtension.h"

#include <qopengl.h>

/// GL_ARB_shader_objects: programs in the shading language.
class GLARBShaderObjects : public GLExtension
{
public:
    static GLARBShaderObjects* instance();

    /// Resolves the extension in a context, which is current.
    void init(QOpenGLContext const* context);

    unsigned int createShaderObject(unsigned int type) const { return _createShaderObject(type); }
    unsigned int createProgramObject() const { return _createProgramObject(); }
    /// Deletes a shader or a program.
    void deleteObject(unsigned int object) const { _deleteObject(object); }
    void attachObject(unsigned int program, unsigned int shader) const { _attachObject(program, shader); }
    void shaderSource(unsigned int shader, int count, char const** texts, int const* lengths) const
    {
        _shaderSource(shader, count, texts, lengths);
    }
    void compileShader(unsigned int shader) const { _compileShader(shader); }
    void linkProgram(unsigned int program) const { _linkProgram(program); }
    /// 0 goes back to the fixed functions.
    void useProgramObject(unsigned int program) const { _useProgramObject(program); }
    void getObjectParameteriv(unsigned int object, unsigned int name, int* value) const
    {
        _getObjectParameteriv(object, name, value);
    }
    void getInfoLog(unsigned int object, int size, int* length, char* text) const
    {
        _getInfoLog(object, size, length, text);
    }
    /// -1 for a uniform that the linked program does not use.
    int getUniformLocation(unsigned int program, char const* name) const
    {
        return _getUniformLocation(program, name);
    }
    /// The uniform calls set the program in use.
    void uniform1i(int location, int value) const { _uniform1i(location, value); }
    void uniform1f(int location, float value) const { _uniform1f(location, value); }
    void uniform2f(int location, float x, float y) const { _uniform2f(location, x, y); }

private:
    GLARBShaderObjects() = default;

    unsigned int(QOPENGLF_APIENTRYP _createShaderObject)(unsigned int) = nullptr;
    unsigned int(QOPENGLF_APIENTRYP _createProgramObject)() = nullptr;
    void(QOPENGLF_APIENTRYP _deleteObject)(unsigned int) = nullptr;
    void(QOPENGLF_APIENTRYP _attachObject)(unsigned int, unsigned int) = nullptr;
    void(QOPENGLF_APIENTRYP _shaderSource)(unsigned int, int, char const**, int const*) = nullptr;
    void(QOPENGLF_APIENTRYP _compileShader)(unsigned int) = nullptr;
    void(QOPENGLF_APIENTRYP _linkProgram)(unsigned int) = nullptr;
    void(QOPENGLF_APIENTRYP _useProgramObject)(unsigned int) = nullptr;
    void(QOPENGLF_APIENTRYP _getObjectParameteriv)(unsigned int, unsigned int, int*) = nullptr;
    void(QOPENGLF_APIENTRYP _getInfoLog)(unsigned int, int, int*, char*) = nullptr;
    int(QOPENGLF_APIENTRYP _getUniformLocation)(unsigned int, char const*) = nullptr;
    void(QOPENGLF_APIENTRYP _uniform1i)(int, int) = nullptr;
    void(QOPENGLF_APIENTRYP _uniform1f)(int, float) = nullptr;
    void(QOPENGLF_APIENTRYP _uniform2f)(int, float, float) = nullptr;
};
