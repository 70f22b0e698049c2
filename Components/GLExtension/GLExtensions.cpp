#include "GLExtensions.h"

#include "GLARBFragmentProgram.h"
#include "GLARBFragmentShader.h"
#include "GLARBFrameBufferObject.h"
#include "GLARBMultiTexture.h"
#include "GLARBShaderObjects.h"
#include "GLARBTextureNonPowerOfTwo.h"
#include "GLARBVertexShader.h"
#include "GLEXTFrameBufferObject.h"

void initGLExtensions(QOpenGLContext const* context)
{
    GLARBMultiTexture::instance()->init(context);
    GLARBFragmentProgram::instance()->init(context);
    GLARBTextureNonPowerOfTwo::instance()->init(context);
    GLARBShaderObjects::instance()->init(context);
    GLARBVertexShader::instance()->init(context);
    GLARBFragmentShader::instance()->init(context);
    GLEXTFrameBufferObject::instance()->init(context);
    GLARBFrameBufferObject::instance()->init(context);
}
