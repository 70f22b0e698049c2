#include "GLMoviePostProcessor.h"

#include "GLARBShaderObjects.h"
#include "GLARBTextureNonPowerOfTwo.h"
#include "GLContextScope.h"
#include "GLFrameBufferObject.h"
#include "GLMovieQuad.h"
#include "GLTexture.h"
#include "Logger.h"
#include "LoggerManager.h"

#include <QRandomGenerator>

#include <qopengl.h>

Logger* GLMoviePostProcessor::log = LoggerManager::logger();

namespace
{
char const* statusText(unsigned int status)
{
    switch (status) {
    case GL_FRAMEBUFFER_INCOMPLETE_ATTACHMENT:
        return ": FRAMEBUFFER_INCOMPLETE_ATTACHMENT";
    case GL_FRAMEBUFFER_INCOMPLETE_MISSING_ATTACHMENT:
        return ": FRAMEBUFFER_INCOMPLETE_MISSING_ATTACHMENT";
    case GL_FRAMEBUFFER_INCOMPLETE_DIMENSIONS_EXT:
        return ": FRAMEBUFFER_INCOMPLETE_DIMENSIONS";
    case GL_FRAMEBUFFER_INCOMPLETE_FORMATS_EXT:
        return ": FRAMEBUFFER_INCOMPLETE_FORMATS";
    case GL_FRAMEBUFFER_INCOMPLETE_DRAW_BUFFER:
        return ": FRAMEBUFFER_INCOMPLETE_DRAW_BUFFER";
    case GL_FRAMEBUFFER_INCOMPLETE_READ_BUFFER:
        return ": FRAMEBUFFER_INCOMPLETE_READ_BUFFER";
    case GL_FRAMEBUFFER_UNSUPPORTED:
        return ": FRAMEBUFFER_UNSUPPORTED";
    default:
        return "";
    }
}
} // namespace

GLMoviePostProcessor::GLMoviePostProcessor()
{
    _time.start();
}

GLMoviePostProcessor::~GLMoviePostProcessor()
{
    destroyFrameBufferObjects();
}

void GLMoviePostProcessor::setEnabled(bool enabled)
{
    _enabled = enabled;
    _failed = _failed && enabled;
}

void GLMoviePostProcessor::addProgram(unsigned int program)
{
    if (program != 0)
        _programs.append(Program{.handle = program});
}

void GLMoviePostProcessor::removeProgram(unsigned int program)
{
    _programs.removeIf([program](Program const& one) { return one.handle == program; });
}

bool GLMoviePostProcessor::createFrameBufferObjects(QSize const& size)
{
    if (_context && size == _pictureSize && QOpenGLContext::areSharing(_context, QOpenGLContext::currentContext()))
        return true;
    destroyFrameBufferObjects();
    GLFrameBufferObject const* const gl = GLFrameBufferObject::supported();
    if (!gl || !GLARBShaderObjects::instance()->isSupported()) {
        LOG_ERROR("Failed to create Framebuffer object");
        _failed = true;
        return false;
    }
    _context = QOpenGLContext::currentContext();
    _pictureSize = size;
    _textureSize =
        GLARBTextureNonPowerOfTwo::instance()->isSupported()
            ? size
            : QSize(GLTexture::nearestPowerOfTwo(size.width()), GLTexture::nearestPowerOfTwo(size.height()));
    for (Buffer& buffer : _buffers) {
        unsigned int const status = createBuffer(buffer);
        if (status == GL_FRAMEBUFFER_COMPLETE)
            continue;
        LOG_ERROR("Failed to create Framebuffer object%s", statusText(status));
        destroyFrameBufferObjects();
        _failed = true;
        return false;
    }
    return true;
}

unsigned int GLMoviePostProcessor::createBuffer(Buffer& buffer) const
{
    GLFrameBufferObject const& gl = *GLFrameBufferObject::supported();
    int outer = 0;
    glGetIntegerv(GL_FRAMEBUFFER_BINDING, &outer);
    glGenTextures(1, &buffer.texture);
    glBindTexture(GL_TEXTURE_2D, buffer.texture);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_LINEAR);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_LINEAR);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_S, GL_CLAMP_TO_EDGE);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_T, GL_CLAMP_TO_EDGE);
    glTexImage2D(GL_TEXTURE_2D, 0, GL_RGBA, _textureSize.width(), _textureSize.height(), 0, GL_RGBA, GL_UNSIGNED_BYTE,
                 nullptr);
    gl.genFramebuffers(1, &buffer.framebuffer);
    gl.bindFramebuffer(GL_FRAMEBUFFER, buffer.framebuffer);
    gl.framebufferTexture2D(GL_FRAMEBUFFER, GL_COLOR_ATTACHMENT0, GL_TEXTURE_2D, buffer.texture, 0);
    unsigned int const status = gl.checkFramebufferStatus(GL_FRAMEBUFFER);
    gl.bindFramebuffer(GL_FRAMEBUFFER, static_cast<unsigned int>(outer));
    return status;
}

void GLMoviePostProcessor::destroyFrameBufferObjects()
{
    if (_context) {
        GLContextScope const scope(_context);
        GLFrameBufferObject const* const gl = GLFrameBufferObject::supported();
        for (Buffer const& buffer : _buffers) {
            if (!scope.isCurrent() || !gl)
                break;
            gl->deleteFramebuffers(1, &buffer.framebuffer);
            glDeleteTextures(1, &buffer.texture);
        }
    }
    _buffers = {};
    _context = nullptr;
    _failed = false;
}

void GLMoviePostProcessor::beginRenderToTexture(int buffer)
{
    glGetIntegerv(GL_FRAMEBUFFER_BINDING, &_outerFramebuffer);
    GLFrameBufferObject::supported()->bindFramebuffer(GL_FRAMEBUFFER,
                                                      _buffers[static_cast<size_t>(buffer)].framebuffer);
    glPushAttrib(GL_VIEWPORT_BIT | GL_ENABLE_BIT | GL_COLOR_BUFFER_BIT | GL_TRANSFORM_BIT | GL_CURRENT_BIT);
    glViewport(0, 0, _pictureSize.width(), _pictureSize.height());
    glMatrixMode(GL_PROJECTION);
    glPushMatrix();
    glLoadIdentity();
    glOrtho(0.0, _pictureSize.width(), 0.0, _pictureSize.height(), -1.0, 1.0);
    glMatrixMode(GL_MODELVIEW);
    glPushMatrix();
    glLoadIdentity();
    glDisable(GL_BLEND);
    glDisable(GL_DEPTH_TEST);
    glDisable(GL_SCISSOR_TEST);
    glEnable(GL_TEXTURE_2D);
    glColorMask(GL_TRUE, GL_TRUE, GL_TRUE, GL_TRUE);
    glClearColor(0.0F, 0.0F, 0.0F, 1.0F);
    glClear(GL_COLOR_BUFFER_BIT);
}

void GLMoviePostProcessor::endRenderToTexture()
{
    glMatrixMode(GL_PROJECTION);
    glPopMatrix();
    glMatrixMode(GL_MODELVIEW);
    glPopMatrix();
    glPopAttrib();
    GLFrameBufferObject::supported()->bindFramebuffer(GL_FRAMEBUFFER, static_cast<unsigned int>(_outerFramebuffer));
}

void GLMoviePostProcessor::postProcess()
{
    QPointF const far = farCorner();
    _result = 0;
    for (Program& program : _programs) {
        prepare(program);
        unsigned int const source = texture();
        int const target = 1 - _result;
        beginRenderToTexture(target);
        glBindTexture(GL_TEXTURE_2D, source);
        GLARBShaderObjects::instance()->useProgramObject(program.handle);
        setUniforms(program);
        glColor4d(1.0, 1.0, 1.0, 1.0);
        glBegin(GL_QUADS);
        glTexCoord2d(0.0, 0.0);
        glVertex2i(0, 0);
        glTexCoord2d(far.x(), 0.0);
        glVertex2i(_pictureSize.width(), 0);
        glTexCoord2d(far.x(), far.y());
        glVertex2i(_pictureSize.width(), _pictureSize.height());
        glTexCoord2d(0.0, far.y());
        glVertex2i(0, _pictureSize.height());
        glEnd();
        GLARBShaderObjects::instance()->useProgramObject(0);
        endRenderToTexture();
        _result = target;
    }
}

void GLMoviePostProcessor::prepare(Program& program) const
{
    if (program.prepared)
        return;
    GLARBShaderObjects const& gl = *GLARBShaderObjects::instance();
    program.tex0 = gl.getUniformLocation(program.handle, "tex0");
    program.dimensions = gl.getUniformLocation(program.handle, "tex0Dimensions");
    program.texelDimensions = gl.getUniformLocation(program.handle, "tex0TexelDimensions");
    program.time = gl.getUniformLocation(program.handle, "time");
    program.random = gl.getUniformLocation(program.handle, "random");
    program.prepared = true;
}

void GLMoviePostProcessor::setUniforms(Program const& program) const
{
    GLARBShaderObjects const& gl = *GLARBShaderObjects::instance();
    float const width = static_cast<float>(_textureSize.width());
    float const height = static_cast<float>(_textureSize.height());
    if (program.tex0 >= 0)
        gl.uniform1i(program.tex0, 0);
    if (program.dimensions >= 0)
        gl.uniform2f(program.dimensions, width, height);
    if (program.texelDimensions >= 0)
        gl.uniform2f(program.texelDimensions, 1.0F / width, 1.0F / height);
    if (program.time >= 0)
        gl.uniform1f(program.time, static_cast<float>(static_cast<double>(_time.elapsed()) / 1000.0));
    if (program.random >= 0)
        gl.uniform1f(program.random, static_cast<float>(QRandomGenerator::global()->generateDouble()));
}

QPointF GLMoviePostProcessor::farCorner() const
{
    return QPointF(static_cast<double>(_pictureSize.width()) / _textureSize.width(),
                   static_cast<double>(_pictureSize.height()) / _textureSize.height());
}
