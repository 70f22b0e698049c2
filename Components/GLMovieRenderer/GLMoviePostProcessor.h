#pragma once

#include <QElapsedTimer>
#include <QList>
#include <QOpenGLContext>
#include <QPointF>
#include <QPointer>
#include <QSize>

#include <array>

class Logger;
struct GLMovieQuad;

/// Runs a picture through a chain of shader programs, each drawing from one frame-buffer object into the other.
///
/// The owner draws the picture between beginRenderToTexture(0) and endRenderToTexture(), calls postProcess(), and
/// draws what texture() then holds. GL thread with a current context; the destructor finds its own.
class GLMoviePostProcessor
{
public:
    GLMoviePostProcessor();
    ~GLMoviePostProcessor();
    GLMoviePostProcessor(GLMoviePostProcessor const&) = delete;
    GLMoviePostProcessor& operator=(GLMoviePostProcessor const&) = delete;

    bool isEnabled() const { return _enabled; }
    void setEnabled(bool enabled);

    /// The programs, by OpenGL's name, in the order in which they run. They belong to the caller.
    void addProgram(unsigned int program);
    void removeProgram(unsigned int program);
    void clearPrograms() { _programs.clear(); }

    /// Whether a picture is to go through here at all.
    bool isActive() const { return _enabled && !_programs.isEmpty() && !_failed; }

    /// Makes the two frame-buffer objects for pictures of this size, unless they exist. On failure logs once, returns
    /// false and is inactive until it is disabled and enabled again.
    bool createFrameBufferObjects(QSize const& size);
    void destroyFrameBufferObjects();

    /// Directs drawing into a buffer, cleared to opaque black, in pixels of the picture: y = 0 is its first row.
    void beginRenderToTexture(int buffer);
    void endRenderToTexture();

    /// Runs all programs on buffer 0. The result is in texture().
    void postProcess();

    unsigned int texture() const { return _buffers[static_cast<size_t>(_result)].texture; }
    /// The texture coordinates of the picture's far corner.
    QPointF farCorner() const;

private:
    struct Buffer {
        unsigned int framebuffer = 0;
        unsigned int texture = 0;
    };
    struct Program {
        unsigned int handle = 0;
        bool prepared = false; ///< The places of the uniforms are known.
        int tex0 = -1;
        int dimensions = -1;
        int texelDimensions = -1;
        int time = -1;
        int random = -1;
    };

    void prepare(Program& program) const;
    void setUniforms(Program const& program) const;
    unsigned int createBuffer(Buffer& buffer) const;

    static Logger* log;

    QList<Program> _programs;
    std::array<Buffer, 2> _buffers;
    QPointer<QOpenGLContext> _context; ///< Where the buffers live.
    QSize _pictureSize;
    QSize _textureSize;
    QElapsedTimer _time;
    int _result = 0;
    int _outerFramebuffer = 0; ///< What was bound before beginRenderToTexture().
    bool _enabled = false;
    bool _failed = false;
};
