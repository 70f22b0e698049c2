#include "GLMovieColourSpace.h"

extern "C" {
#include <libavutil/frame.h>
#include <libavutil/opt.h>
#include <libavutil/pixdesc.h>
#include <libswscale/swscale.h>
}

#include <algorithm>
#include <array>

namespace
{
using Matrix = GLMovieColourSpace::Matrix;

struct MatrixNumbers {
    AVColorSpace name; ///< FFmpeg's, which swscale's numbers agree with.
    double red;        ///< The part of red in luma.
    double blue;
};

/// In the order of Matrix.
constexpr std::array<MatrixNumbers, 5> matrices{{{AVCOL_SPC_SMPTE170M, 0.299, 0.114},
                                                 {AVCOL_SPC_BT709, 0.2126, 0.0722},
                                                 {AVCOL_SPC_FCC, 0.30, 0.11},
                                                 {AVCOL_SPC_SMPTE240M, 0.212, 0.087},
                                                 {AVCOL_SPC_BT2020_NCL, 0.2627, 0.0593}}};

MatrixNumbers const& numbersOf(Matrix matrix)
{
    return matrices.at(static_cast<size_t>(matrix));
}

Matrix matrixOf(AVColorSpace name)
{
    // Of constant luminance nothing is known here; its matrix is the nearest there is.
    auto const* const found =
        std::ranges::find(matrices, name == AVCOL_SPC_BT2020_CL ? AVCOL_SPC_BT2020_NCL : name, &MatrixNumbers::name);
    return found == matrices.end() ? Matrix::BT601 : static_cast<Matrix>(found - matrices.begin());
}

bool isRGB(AVPixFmtDescriptor const* description)
{
    return description && (description->flags & AV_PIX_FMT_FLAG_RGB) != 0;
}

/// Grey alone is 0 to 255 unless told otherwise, as FFmpeg takes it.
bool isGrey(AVPixFmtDescriptor const* description)
{
    return description->nb_components <= 2 && description->comp[0].depth >= 8;
}
/// What swscale says of a context.
struct SwscaleColours {
    int* source = nullptr;
    int* target = nullptr;
    int sourceRange = 0;
    int targetRange = 0;
    int brightness = 0;
    int contrast = 0;
    int saturation = 0;
};

/// Of a step of 1 in 255, in swscale's units. See cutsOff().
constexpr int threeQuartersBrighter = 65536 / 256 * 3 / 4;

/// Whether a conversion takes swscale's fast way to RGB, which cuts off where it should round: limited range comes
/// out up to 3 too dark. Three quarters of a step more brightness bring that within 2, and leave black black. The
/// exact way costs twenty times as much.
bool cutsOff(SwsContext* context)
{
    AVPixelFormat source = AV_PIX_FMT_NONE;
    AVPixelFormat target = AV_PIX_FMT_NONE;
    int64_t flags = 0;
    av_opt_get_pixel_fmt(context, "src_format", 0, &source);
    av_opt_get_pixel_fmt(context, "dst_format", 0, &target);
    av_opt_get_int(context, "sws_flags", 0, &flags);
    return (source == AV_PIX_FMT_YUV420P || source == AV_PIX_FMT_YUV422P) &&
           (flags & (SWS_ACCURATE_RND | SWS_FULL_CHR_H_INT)) == 0 && isRGB(av_pix_fmt_desc_get(target));
}
} // namespace

GLMovieColourSpace GLMovieColourSpace::fromFrame(AVFrame const* frame)
{
    auto const format = static_cast<AVPixelFormat>(frame->format);
    AVPixFmtDescriptor const* const description = av_pix_fmt_desc_get(format);
    if (!description || isRGB(description))
        return {};
    GLMovieColourSpace space{.matrix = matrixOf(frame->colorspace)};
    space.fullRange = frame->color_range == AVCOL_RANGE_JPEG || plainFormat(format) != format ||
                      (frame->color_range == AVCOL_RANGE_UNSPECIFIED && isGrey(description));
    return space;
}

GLMovieColourSpace::Coefficients GLMovieColourSpace::coefficients() const
{
    if (*this == GLMovieColourSpace())
        return {1.164, 1.596, -0.391, -0.813, 2.018, 0.0625, 0.5};
    MatrixNumbers const& weights = numbersOf(matrix);
    double const green = 1.0 - weights.red - weights.blue;
    double const chroma = fullRange ? 2.0 : 2.0 * 255.0 / 224.0;
    double const redV = chroma * (1.0 - weights.red);
    double const blueU = chroma * (1.0 - weights.blue);
    return {fullRange ? 1.0 : 255.0 / 219.0,
            redV,
            -blueU * weights.blue / green,
            -redV * weights.red / green,
            blueU,
            fullRange ? 0.0 : 16.0 / 255.0,
            128.0 / 255.0};
}

AVPixelFormat GLMovieColourSpace::plainFormat(AVPixelFormat format)
{
    switch (format) {
    case AV_PIX_FMT_YUVJ411P:
        return AV_PIX_FMT_YUV411P;
    case AV_PIX_FMT_YUVJ420P:
        return AV_PIX_FMT_YUV420P;
    case AV_PIX_FMT_YUVJ422P:
        return AV_PIX_FMT_YUV422P;
    case AV_PIX_FMT_YUVJ440P:
        return AV_PIX_FMT_YUV440P;
    case AV_PIX_FMT_YUVJ444P:
        return AV_PIX_FMT_YUV444P;
    default:
        return format;
    }
}

void GLMovieColourSpace::apply(SwsContext* context, GLMovieColourSpace const& source,
                               GLMovieColourSpace const& target)
{
    SwscaleColours old;
    if (sws_getColorspaceDetails(context, &old.source, &old.sourceRange, &old.target, &old.targetRange,
                                 &old.brightness, &old.contrast, &old.saturation) < 0)
        return;
    int const* const sourceTable = sws_getCoefficients(numbersOf(source.matrix).name);
    int const* const targetTable = sws_getCoefficients(numbersOf(target.matrix).name);
    int const brightness = cutsOff(context) && !source.fullRange ? threeQuartersBrighter : 0;
    // Setting the same anew would compute all tables again.
    if (std::equal(sourceTable, sourceTable + 4, old.source) &&
        std::equal(targetTable, targetTable + 4, old.target) && old.sourceRange == source.fullRange &&
        old.targetRange == target.fullRange && old.brightness == brightness)
        return;
    sws_setColorspaceDetails(context, sourceTable, source.fullRange, targetTable, target.fullRange, brightness,
                             old.contrast, old.saturation);
}

void GLMovieColourSpace::apply(SwsContext* context, AVFrame const* source, AVFrame* target)
{
    GLMovieColourSpace const colours = fromFrame(source);
    bool const toRGB = isRGB(av_pix_fmt_desc_get(static_cast<AVPixelFormat>(target->format)));
    apply(context, colours, toRGB ? GLMovieColourSpace() : colours);
    target->colorspace = toRGB ? AVCOL_SPC_RGB : numbersOf(colours.matrix).name;
    target->color_range = toRGB || colours.fullRange ? AVCOL_RANGE_JPEG : AVCOL_RANGE_MPEG;
}
