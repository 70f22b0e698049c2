#pragma once

#include "GLMovieColourSpace.h"

class GLMovieShader;
class Logger;

/// Makes the two programs that turn three luminance textures, on units 0 to 2, into RGB on the graphics card. Both
/// compute the same, and take alpha from the vertex colour. GL thread with a current context.
class GLMovieColourConversion
{
public:
    /// Makes an ARB fragment program. Returns false, with a line in the log, when the card refuses it.
    static bool createFragmentProgram(unsigned int& id, GLMovieColourSpace const& space = {});

    /// Makes `shader` the conversion in the shading language. Returns false when it does not compile.
    static bool createShaderProgram(GLMovieShader* shader, GLMovieColourSpace const& space = {});

private:
    static Logger* log;
};
