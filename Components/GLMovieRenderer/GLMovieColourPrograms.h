#pragma once

#include "GLMovieColourSpace.h"
#include "GLMovieShader.h"

#include <QOpenGLContext>
#include <QPointer>

#include <memory>
#include <vector>

/// The programs that turn YUV into RGB for one renderer: those that it was given, which are for the default colour
/// space, and others that are made here when a stream asks for them. Shaders are preferred to fragment programs.
///
/// GL thread with a current context; the destructor finds its own.
class GLMovieColourPrograms
{
public:
    GLMovieColourPrograms() = default;
    ~GLMovieColourPrograms();
    GLMovieColourPrograms(GLMovieColourPrograms const&) = delete;
    GLMovieColourPrograms& operator=(GLMovieColourPrograms const&) = delete;

    /// The caller's own, which stay the caller's; 0 for none.
    void setFragmentProgram(unsigned int program);
    void setShaderProgram(unsigned int program);

    /// Without either no YUV can be drawn.
    bool isEmpty() const { return _fragmentProgram == 0 && _shaderProgram == 0; }

    /// Draws with the program for a colour space, until end(). One that the card refuses leaves the default.
    void begin(GLMovieColourSpace const& space);
    void end();

private:
    struct Made {
        GLMovieColourSpace space;
        GLMovieShader shader;
        unsigned int fragmentProgram = 0;
    };

    unsigned int shaderFor(GLMovieColourSpace const& space);
    unsigned int fragmentProgramFor(GLMovieColourSpace const& space);
    Made& madeFor(GLMovieColourSpace const& space);
    void destroy();

    std::vector<std::unique_ptr<Made>> _made;
    QPointer<QOpenGLContext> _context; ///< Where those made here live.
    unsigned int _fragmentProgram = 0;
    unsigned int _shaderProgram = 0;
};
