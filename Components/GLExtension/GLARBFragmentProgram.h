#pragma once

#include "GLExtension.h"

#include <qopengl.h>

/// GL_ARB_fragment_program: small programs in assembly language per pixel.
class GLARBFragmentProgram : public GLExtension
{
public:
    static GLARBFragmentProgram* instance();

    /// Resolves the extension in a context, which is current.
    void init(QOpenGLContext const* context);

    void genPrograms(int count, unsigned int* programs) const { _genPrograms(count, programs); }
    void deletePrograms(int count, unsigned int const* programs) const { _deletePrograms(count, programs); }
    void bindProgram(unsigned int target, unsigned int program) const { _bindProgram(target, program); }
    /// Compiles a text into the bound program; glGetError tells the outcome.
    void programString(unsigned int target, unsigned int format, int length, void const* text) const
    {
        _programString(target, format, length, text);
    }

private:
    GLARBFragmentProgram() = default;

    void(QOPENGLF_APIENTRYP _genPrograms)(int, unsigned int*) = nullptr;
    void(QOPENGLF_APIENTRYP _deletePrograms)(int, unsigned int const*) = nullptr;
    void(QOPENGLF_APIENTRYP _bindProgram)(unsigned int, unsigned int) = nullptr;
    void(QOPENGLF_APIENTRYP _programString)(unsigned int, unsigned int, int, void const*) = nullptr;
};
