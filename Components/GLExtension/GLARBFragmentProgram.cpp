#include "GLARBFragmentProgram.h"

GLARBFragmentProgram* GLARBFragmentProgram::instance()
{
    static GLARBFragmentProgram extension;
    return &extension;
}

void GLARBFragmentProgram::init(QOpenGLContext const* context)
{
    bool found = true;
    found = resolve(_genPrograms, context, "glGenProgramsARB") && found;
    found = resolve(_deletePrograms, context, "glDeleteProgramsARB") && found;
    found = resolve(_bindProgram, context, "glBindProgramARB") && found;
    found = resolve(_programString, context, "glProgramStringARB") && found;
    setResolved("GL_ARB_fragment_program", found);
}
