#pragma once

extern "C" {
#include <libavutil/pixfmt.h>
}

#include <QSize>

#include <memory>

class GLMovieTexture;
class Logger;
struct AVFrame;
struct GLMovieCut;
struct SwsContext;

/// Converts and scales pictures to blue, green, red, 255 in one pass, on the processor, to look as OpenGL draws them:
/// at one to one pixel by pixel, else smoothed between pixels. Not for several threads at once.
class GLMovieScaler
{
public:
    /// Whether pictures of that format are faster scaled here than drawn by an OpenGL that runs on the processor too.
    static bool isFast(AVPixelFormat format);

    /// Scales the cut of the texture's picture, which is locked by the caller, into rows of `stride` bytes: a
    /// multiple of 64, with room for as many pixels more than are scaled as make a multiple of 16, and for one row
    /// more. Returns false, with a line in the log, when it cannot.
    bool scale(GLMovieTexture const& texture, GLMovieCut const& cut, unsigned char* target, int stride);

private:
    struct Deleter {
        void operator()(SwsContext* context) const;
        void operator()(AVFrame* frame) const;
    };
    struct Kind {
        AVPixelFormat format = AV_PIX_FMT_NONE;
        QSize from;
        QSize to;
        bool operator==(Kind const&) const = default;
    };

    using Frame = std::unique_ptr<AVFrame, Deleter>;

    static bool isWithin(GLMovieTexture const& texture, GLMovieCut const& cut);
    bool prepare(Kind const& kind);
    bool convertPixels(AVFrame const& picture, unsigned char* target, int stride);
    bool scaleFrame(AVFrame& picture, QSize const& size, unsigned char* target, int stride);

    static Logger* log;

    Kind _kind; ///< What _context is for.
    std::unique_ptr<SwsContext, Deleter> _context;
};
