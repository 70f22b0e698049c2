#pragma once

#include "GLMovieColourPrograms.h"
#include "GLMoviePostProcessor.h"
#include "GLMovieVideoTexture.h"

#include <QPolygonF>

class GLMovieTexture;
class Logger;
struct GLMovieQuad;

/// Draws the newest picture of a film by the best way there is: three planes converted by a shader or a fragment
/// program, one RGB texture, or plain pixels; through the post-processing chain if that is on.
///
/// Drawing uses the current matrices and leaves the state as it was. GL thread with a current context.
class GLMoviePainter
{
public:
    /// The programs that turn YUV into RGB; 0 for none. The shader is preferred. Others are made from the same texts
    /// for pictures of other colours.
    void setColourConversionFragmentProgram(unsigned int program) { _programs.setFragmentProgram(program); }
    void setColourConversionShaderProgram(unsigned int program) { _programs.setShaderProgram(program); }
    void setSmoothChroma(bool smooth) { _texture.setSmoothChroma(smooth); }
    bool hasColourConversion() const { return !_programs.isEmpty(); }

    GLMoviePostProcessor& postProcessor() { return _postProcessor; }
    GLMoviePostProcessor const& postProcessor() const { return _postProcessor; }

    /// Brings the picture onto the card if it is new.
    void updateVideoTexture(GLMovieTexture& texture);
    void forgetPicture() { _texture.forgetPicture(); }
    bool hasPicture() const { return _texture.hasPicture(); }

    /// Draws the uploaded picture; nothing without one. Opacity is 0.0 to 1.0. Returns where its corners are in the
    /// window, for hit tests; empty when nothing was drawn.
    QPolygonF draw(GLMovieQuad const& quad, double opacity);

    /// The last resort, without any texture: copies pixels, enlarged by the card, into an upright rectangle in a
    /// projection in pixels, y downward. YUV shows in shades of grey.
    static void drawWithDrawPixels(GLMovieTexture& texture, double x, double y, double scaleX, double scaleY);

private:
    void drawPicture(GLMovieQuad const& quad, double opacity, bool pixelExact);
    void drawYUV(GLMovieQuad const& quad);
    void drawRGB(GLMovieQuad const& quad) const;
    void drawPostProcessed(GLMovieQuad const& quad, double opacity, bool pixelExact);
    static void beginOpacity(double opacity);

    static Logger* log;

    GLMovieVideoTexture _texture;
    GLMoviePostProcessor _postProcessor;
    GLMovieColourPrograms _programs;
    bool _missingProgramReported = false;
};
