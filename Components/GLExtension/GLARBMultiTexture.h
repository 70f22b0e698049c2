#pragma once

#include "GLExtension.h"

#include <qopengl.h>

/// GL_ARB_multitexture: several textures at once.
class GLARBMultiTexture : public GLExtension
{
public:
    static GLARBMultiTexture* instance();

    /// Resolves the extension in a context, which is current.
    void init(QOpenGLContext const* context);

    /// Selects GL_TEXTURE0 and following for the texture calls that come.
    void activeTexture(unsigned int unit) const { _activeTexture(unit); }
    void multiTexCoord2f(unsigned int unit, float s, float t) const { _multiTexCoord2f(unit, s, t); }

private:
    GLARBMultiTexture() = default;

    void(QOPENGLF_APIENTRYP _activeTexture)(unsigned int) = nullptr;
    void(QOPENGLF_APIENTRYP _multiTexCoord2f)(unsigned int, float, float) = nullptr;
};
