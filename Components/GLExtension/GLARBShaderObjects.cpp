#include "GLARBShaderObjects.h"

GLARBShaderObjects* GLARBShaderObjects::instance()
{
    static GLARBShaderObjects extension;
    return &extension;
}

void GLARBShaderObjects::init(QOpenGLContext const* context)
{
    bool found = true;
    found = resolve(_createShaderObject, context, "glCreateShaderObjectARB") && found;
    found = resolve(_createProgramObject, context, "glCreateProgramObjectARB") && found;
    found = resolve(_deleteObject, context, "glDeleteObjectARB") && found;
    found = resolve(_attachObject, context, "glAttachObjectARB") && found;
    found = resolve(_shaderSource, context, "glShaderSourceARB") && found;
    found = resolve(_compileShader, context, "glCompileShaderARB") && found;
    found = resolve(_linkProgram, context, "glLinkProgramARB") && found;
    found = resolve(_useProgramObject, context, "glUseProgramObjectARB") && found;
    found = resolve(_getObjectParameteriv, context, "glGetObjectParameterivARB") && found;
    found = resolve(_getInfoLog, context, "glGetInfoLogARB") && found;
    found = resolve(_getUniformLocation, context, "glGetUniformLocationARB") && found;
    found = resolve(_uniform1i, context, "glUniform1iARB") && found;
    found = resolve(_uniform1f, context, "glUniform1fARB") && found;
    found = resolve(_uniform2f, context, "glUniform2fARB") && found;
    setResolved("GL_ARB_shader_objects", found);
}
