#pragma once

extern "C" {
#include <libavutil/pixfmt.h>
}

struct AVFrame;
struct SwsContext;

/// What the numbers of a YUV picture stand for: the matrix between them and RGB, and their range (ITU-T H.273). A
/// value; the default is BT.601 in limited range, which is also taken for streams that tell nothing.
struct GLMovieColourSpace {
    enum class Matrix { BT601, BT709, FCC, SMPTE240M, BT2020 };

    Matrix matrix = Matrix::BT601;
    bool fullRange = false; ///< 0 to 255; otherwise luma is 16 to 235 and chroma 16 to 240.

    friend bool operator==(GLMovieColourSpace const&, GLMovieColourSpace const&) = default;

    /// What a frame says of itself. A matrix that is not listed counts as none told. The default for RGB.
    static GLMovieColourSpace fromFrame(AVFrame const* frame);

    /// The numbers of the conversion, for samples from 0.0 to 1.0:
    /// red = luma * y + redV * v, green = luma * y + greenU * u + greenV * v, blue = luma * y + blueU * u,
    /// after the offsets have been taken from y, and from u and v.
    struct Coefficients {
        double luma, redV, greenU, greenV, blueU, lumaOffset, chromaOffset;
    };
    Coefficients coefficients() const;

    /// The format without the range that some old names imply: YUVJ420P is YUV420P in full range. All others as they
    /// are. sws_getCachedContext() makes a new context for each picture unless it is given this.
    static AVPixelFormat plainFormat(AVPixelFormat format);

    /// Has a conversion by swscale read its source and write its target so; the default for what is RGB. To be called
    /// before sws_scale(), as often as one likes: nothing happens when the context is set so already.
    static void apply(SwsContext* context, GLMovieColourSpace const& source, GLMovieColourSpace const& target);

    /// The same for a conversion that keeps the colours of `source`, and writes into `target` what it holds then
    /// (`colorspace`, `color_range`), so that fromFrame() of the target is right.
    static void apply(SwsContext* context, AVFrame const* source, AVFrame* target);
};
