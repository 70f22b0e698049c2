#include "TestPicture.h"

#include "GLMovieTexture.h"

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavutil/imgutils.h>
#include <libavutil/pixdesc.h>
#include <libswscale/swscale.h>
}

#include <QProcess>

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
    QProcess ffmpeg;
    ffmpeg.start("ffmpeg", {"-v", "error", "-f", "lavfi", "-i", QString::asprintf("testsrc2=s=%dx%d", width, height),
                            "-frames:v", "1", "-pix_fmt", av_get_pix_fmt_name(format), "-f", "rawvideo", "-"});
    EXPECT_TRUE(ffmpeg.waitForFinished());
    QByteArray const bytes = ffmpeg.readAllStandardOutput();
    Frame frame = emptyPicture(width, height, format);
    uint8_t* planes[4] = {};
    int rows[4] = {};
    int const size = av_image_fill_arrays(planes, rows, reinterpret_cast<uint8_t const*>(bytes.constData()), format,
                                          width, height, 1);
    EXPECT_EQ(size, bytes.size());
    if (size == bytes.size())
        av_image_copy(frame->data, frame->linesize, const_cast<uint8_t const**>(planes), rows, format, width, height);
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
