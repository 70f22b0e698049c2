#include "GLMovieColourSpace.h"

extern "C" {
#include <libavutil/frame.h>
#include <libavutil/pixdesc.h>
#include <libswscale/swscale.h>
}

#include <algorithm>

namespace
{
using Matrix = GLMovieColourSpace::Matrix;

/// The parts of red and blue in luma.
struct Weights {
    double red;
    double blue;
};

Weights weightsOf(Matrix matrix)
{
    switch (matrix) {
    case Matrix::BT709:
        return {0.2126, 0.0722};
    case Matrix::FCC:
        return {0.30, 0.11};
    case Matrix::SMPTE240M:
        return {0.212, 0.087};
    case Matrix::BT2020:
        return {0.2627, 0.0593};
    case Matrix::BT601:
        break;
    }
    return {0.299, 0.114};
}

int swscaleNumber(Matrix matrix)
{
    switch (matrix) {
    case Matrix::BT709:
        return SWS_CS_ITU709;
    case Matrix::FCC:
        return SWS_CS_FCC;
    case Matrix::SMPTE240M:
        return SWS_CS_SMPTE240M;
    case Matrix::BT2020:
        return SWS_CS_BT2020;
    case Matrix::BT601:
        break;
    }
    return SWS_CS_ITU601;
}

AVColorSpace ffmpegNumber(Matrix matrix)
{
    switch (matrix) {
    case Matrix::BT709:
        return AVCOL_SPC_BT709;
    case Matrix::FCC:
        return AVCOL_SPC_FCC;
    case Matrix::SMPTE240M:
        return AVCOL_SPC_SMPTE240M;
    case Matrix::BT2020:
        return AVCOL_SPC_BT2020_NCL;
    case Matrix::BT601:
        break;
    }
    return AVCOL_SPC_SMPTE170M;
}

Matrix matrixOf(AVColorSpace number)
{
    switch (number) {
    case AVCOL_SPC_BT709:
        return Matrix::BT709;
    case AVCOL_SPC_FCC:
        return Matrix::FCC;
    case AVCOL_SPC_SMPTE240M:
        return Matrix::SMPTE240M;
    case AVCOL_SPC_BT2020_NCL:
    case AVCOL_SPC_BT2020_CL:
        return Matrix::BT2020;
    default:
        return Matrix::BT601;
    }
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
    Weights const weights = weightsOf(matrix);
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
    int const* const sourceTable = sws_getCoefficients(swscaleNumber(source.matrix));
    int const* const targetTable = sws_getCoefficients(swscaleNumber(target.matrix));
    int* oldSource = nullptr;
    int* oldTarget = nullptr;
    int oldSourceRange = 0;
    int oldTargetRange = 0;
    int brightness = 0;
    int contrast = 0;
    int saturation = 0;
    if (sws_getColorspaceDetails(context, &oldSource, &oldSourceRange, &oldTarget, &oldTargetRange, &brightness,
                                 &contrast, &saturation) < 0)
        return;
    // Setting the same anew would compute all tables again.
    if (std::equal(sourceTable, sourceTable + 4, oldSource) && std::equal(targetTable, targetTable + 4, oldTarget) &&
        oldSourceRange == source.fullRange && oldTargetRange == target.fullRange)
        return;
    sws_setColorspaceDetails(context, sourceTable, source.fullRange, targetTable, target.fullRange, brightness,
                             contrast, saturation);
}

void GLMovieColourSpace::apply(SwsContext* context, AVFrame const* source, AVFrame* target)
{
    GLMovieColourSpace const colours = fromFrame(source);
    bool const toRGB = isRGB(av_pix_fmt_desc_get(static_cast<AVPixelFormat>(target->format)));
    apply(context, colours, toRGB ? GLMovieColourSpace() : colours);
    target->colorspace = toRGB ? AVCOL_SPC_RGB : ffmpegNumber(colours.matrix);
    target->color_range = toRGB || colours.fullRange ? AVCOL_RANGE_JPEG : AVCOL_RANGE_MPEG;
}
