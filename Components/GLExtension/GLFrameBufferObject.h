#pragma once

#include "GLExtension.h"

#include <qopengl.h>

/// What the two frame-buffer extensions have in common: drawing into textures, by functions and constants that
/// differ in nothing but the ending of their names.
class GLFrameBufferObject : public GLExtension
{
public:
    /// The ARB extension, or the EXT extension where it is the only one, or null.
    static GLFrameBufferObject* supported();

    void genFramebuffers(int count, unsigned int* framebuffers) const { _genFramebuffers(count, framebuffers); }
    void deleteFramebuffers(int count, unsigned int const* framebuffers) const
    {
        _deleteFramebuffers(count, framebuffers);
    }
    void bindFramebuffer(unsigned int target, unsigned int framebuffer) const
    {
        _bindFramebuffer(target, framebuffer);
    }
    void framebufferTexture2D(unsigned int target, unsigned int attachment, unsigned int textureTarget,
                              unsigned int texture, int level) const
    {
        _framebufferTexture2D(target, attachment, textureTarget, texture, level);
    }
    /// GL_FRAMEBUFFER_COMPLETE, or what the bound frame-buffer lacks.
    unsigned int checkFramebufferStatus(unsigned int target) const { return _checkFramebufferStatus(target); }

protected:
    GLFrameBufferObject() = default;

    /// Resolves the extension of this name, whose functions end in `ending`.
    void initFunctions(QOpenGLContext const* context, QString const& extension, QString const& ending);

private:
    void(QOPENGLF_APIENTRYP _genFramebuffers)(int, unsigned int*) = nullptr;
    void(QOPENGLF_APIENTRYP _deleteFramebuffers)(int, unsigned int const*) = nullptr;
    void(QOPENGLF_APIENTRYP _bindFramebuffer)(unsigned int, unsigned int) = nullptr;
    void(QOPENGLF_APIENTRYP _framebufferTexture2D)(unsigned int, unsigned int, unsigned int, unsigned int,
                                                   int) = nullptr;
    unsigned int(QOPENGLF_APIENTRYP _checkFramebufferStatus)(unsigned int) = nullptr;
};
