#include "GLMovieColourPrograms.h"

#include "GLARBFragmentProgram.h"
#include "GLARBShaderObjects.h"
#include "GLContextScope.h"
#include "GLMovieColourConversion.h"

#include <algorithm>
#include <qopengl.h>

GLMovieColourPrograms::~GLMovieColourPrograms()
{
    destroy();
}

void GLMovieColourPrograms::setFragmentProgram(unsigned int program)
{
    _fragmentProgram = program;
    destroy();
}

void GLMovieColourPrograms::setShaderProgram(unsigned int program)
{
    _shaderProgram = program;
    destroy(); // Those for other colours are shaders only if this is one.
}

void GLMovieColourPrograms::begin(GLMovieColourSpace const& space)
{
    if (_shaderProgram != 0) {
        GLARBShaderObjects::instance()->useProgramObject(shaderFor(space));
        return;
    }
    unsigned int const program = fragmentProgramFor(space);
    glEnable(GL_FRAGMENT_PROGRAM_ARB);
    GLARBFragmentProgram::instance()->bindProgram(GL_FRAGMENT_PROGRAM_ARB, program);
}

void GLMovieColourPrograms::end()
{
    if (_shaderProgram != 0)
        GLARBShaderObjects::instance()->useProgramObject(0);
    else
        glDisable(GL_FRAGMENT_PROGRAM_ARB);
}

unsigned int GLMovieColourPrograms::shaderFor(GLMovieColourSpace const& space)
{
    if (space == GLMovieColourSpace())
        return _shaderProgram;
    Made const& made = madeFor(space);
    return made.shader.isCompiled() ? made.shader.handle() : _shaderProgram;
}

unsigned int GLMovieColourPrograms::fragmentProgramFor(GLMovieColourSpace const& space)
{
    if (space == GLMovieColourSpace())
        return _fragmentProgram;
    Made const& made = madeFor(space);
    return made.fragmentProgram != 0 ? made.fragmentProgram : _fragmentProgram;
}

GLMovieColourPrograms::Made& GLMovieColourPrograms::madeFor(GLMovieColourSpace const& space)
{
    if (!_context || !QOpenGLContext::areSharing(_context, QOpenGLContext::currentContext()))
        destroy();
    auto const found = std::ranges::find(_made, space, [](auto const& made) { return made->space; });
    if (found != _made.end())
        return **found;
    _context = QOpenGLContext::currentContext();
    // Kept when it fails, too: the card would refuse it, and the log say so, at each picture.
    Made& made = *_made.emplace_back(std::make_unique<Made>());
    made.space = space;
    if (_shaderProgram != 0)
        GLMovieColourConversion::createShaderProgram(&made.shader, space);
    else
        GLMovieColourConversion::createFragmentProgram(made.fragmentProgram, space);
    return made;
}

void GLMovieColourPrograms::destroy()
{
    if (_made.empty())
        return;
    GLContextScope const scope(_context);
    if (scope.isCurrent())
        for (auto const& made : _made)
            if (made->fragmentProgram != 0)
                GLARBFragmentProgram::instance()->deletePrograms(1, &made->fragmentProgram);
    _made.clear();
}
