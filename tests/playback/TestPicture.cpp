#include "TestPicture.h"

#include "GLMovieTexture.h"

extern "C" {
#include <libavcodec/avcodec.h>
#include <libswscale/swscale.h>
}

#include <cmath>
#include <gmock/gmock.h>

Frame emptyPicture(int width, int height, AVPixelFormat format)
{
    Frame frame(av_frame_alloc());
    frame->width = width;
    frame->height = height;
    frame->format = format;
    EXPECT_EQ(av_frame_get_buffer(frame.get(), 0), 0);
    return frame;
}

Frame testPicture(int width, int height, AVPixelFormat format)
{
    Frame frame = emptyPicture(width, height, format);
    for (int plane = 0; plane < 3; ++plane) {
        int const half = plane > 0 && format == AV_PIX_FMT_YUV420P ? 2 : 1;
        for (int y = 0; y < height / half; ++y)
            for (int x = 0; x < width / half; ++x)
                frame->data[plane][y * frame->linesize[plane] + x] = static_cast<uint8_t>(
                    128.0 + 90.0 * std::sin((plane + 1) * x * half / 23.0) * std::cos((3 - plane) * y * half / 31.0));
    }
    return frame;
}

namespace
{
/// Converts with every precision that FFmpeg has, by the frame's matrix and range.
void convert(AVFrame const* frame, AVPixelFormat format, uint8_t* const* target, int const* rows)
{
    SwsContext* const context = sws_getContext(
        frame->width, frame->height, static_cast<AVPixelFormat>(frame->format), frame->width, frame->height, format,
        SWS_BILINEAR | SWS_ACCURATE_RND | SWS_FULL_CHR_H_INT | SWS_FULL_CHR_H_INP, nullptr, nullptr, nullptr);
    int const* const table = sws_getCoefficients(frame->colorspace);
    int const full = frame->color_range == AVCOL_RANGE_JPEG;
    sws_setColorspaceDetails(context, table, full, table, format == AV_PIX_FMT_RGB24 ? 0 : full, 0, 1 << 16, 1 << 16);
    sws_scale(context, frame->data, frame->linesize, 0, frame->height, target, rows);
    sws_freeContext(context);
}
} // namespace

QImage convertedByFFmpeg(AVFrame const* frame)
{
    // In one step FFmpeg would not smooth the chroma from row to row.
    Frame const full = emptyPicture(frame->width, frame->height, AV_PIX_FMT_YUV444P);
    av_frame_copy_props(full.get(), frame);
    convert(frame, AV_PIX_FMT_YUV444P, full->data, full->linesize);
    QImage image(frame->width, frame->height, QImage::Format_RGB888);
    uint8_t* const target[4] = {image.bits()};
    int const rows[4] = {static_cast<int>(image.bytesPerLine())};
    convert(full.get(), AV_PIX_FMT_RGB24, target, rows);
    return image;
}

std::unique_ptr<GLMovieTexture> textureOf(AVFrame const* frame, AVPixelFormat format)
{
    AVCodecContext* context = avcodec_alloc_context3(nullptr);
    context->width = frame->width;
    context->height = frame->height;
    auto texture = std::make_unique<GLMovieTexture>();
    EXPECT_EQ(texture->create(context, format), 0);
    avcodec_free_context(&context);
    texture->update(frame, true);
    return texture;
}
