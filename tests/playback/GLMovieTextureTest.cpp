#include "GLMovieTexture.h"

#include "LogCapture.h"

extern "C" {
#include <libavcodec/avcodec.h>
}

#include <QSignalSpy>

#include <atomic>
#include <gmock/gmock.h>
#include <memory>
#include <mutex>
#include <thread>

namespace
{

struct FrameDeleter {
    void operator()(AVFrame* frame) const { av_frame_free(&frame); }
};
using Frame = std::unique_ptr<AVFrame, FrameDeleter>;

int create(GLMovieTexture& texture, int width, int height, AVPixelFormat format)
{
    AVCodecContext* context = avcodec_alloc_context3(nullptr);
    context->width = width;
    context->height = height;
    int const result = texture.create(context, format);
    avcodec_free_context(&context);
    return result;
}

/// A frame whose rows are longer than its picture, all bytes of which are 0xEE.
Frame makeFrame(int width, int height, AVPixelFormat format)
{
    Frame frame(av_frame_alloc());
    frame->width = width;
    frame->height = height;
    frame->format = format;
    EXPECT_EQ(av_frame_get_buffer(frame.get(), 64), 0);
    for (AVBufferRef* buffer : frame->buf)
        if (buffer)
            std::fill_n(buffer->data, buffer->size, uint8_t{0xEE});
    return frame;
}

/// A value that tells plane and place.
uint8_t sample(int plane, int x, int y)
{
    return static_cast<uint8_t>(plane * 71 + x * 3 + y * 13);
}

void fill(AVFrame* frame, int plane, int width, int height)
{
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            frame->data[plane][y * frame->linesize[plane] + x] = sample(plane, x, y);
}

void fillYUV(AVFrame* frame, uint8_t y, uint8_t u, uint8_t v)
{
    uint8_t const values[] = {y, u, v};
    for (int plane = 0; plane < 3; ++plane) {
        int const rows = plane > 0 ? (frame->height + 1) / 2 : frame->height;
        std::fill_n(frame->data[plane], rows * frame->linesize[plane], values[plane]);
    }
}

struct Shape {
    AVPixelFormat format;
    int width;
    int height;
    int chromaWidth;
    int chromaHeight;
    int textureWidth;
    int textureHeight;
};

} // namespace

TEST(GLMovieTexture, KeepsEveryRowInItsPlaceAndRepeatsTheEdge)
{
    // Without a card that takes other sizes, every texture has sides that are powers of two.
    for (Shape const& shape :
         {Shape{AV_PIX_FMT_YUV420P, 33, 17, 17, 9, 64, 32}, Shape{AV_PIX_FMT_YUV420P, 720, 576, 360, 288, 1024, 1024},
          Shape{AV_PIX_FMT_YUV444P, 128, 64, 128, 64, 128, 64}}) {
        GLMovieTexture texture;
        ASSERT_EQ(create(texture, shape.width, shape.height, shape.format), 0);
        ASSERT_EQ(texture.planeCount(), 3);
        Frame const frame = makeFrame(shape.width, shape.height, shape.format);
        fill(frame.get(), 0, shape.width, shape.height);
        fill(frame.get(), 1, shape.chromaWidth, shape.chromaHeight);
        fill(frame.get(), 2, shape.chromaWidth, shape.chromaHeight);
        texture.update(frame.get(), false);

        std::lock_guard const lock(texture);
        EXPECT_EQ(texture.textureWidth(0), shape.textureWidth);
        EXPECT_EQ(texture.textureHeight(0), shape.textureHeight);
        EXPECT_EQ(texture.planeWidth(1), shape.chromaWidth);
        EXPECT_EQ(texture.planeHeight(2), shape.chromaHeight);
        int wrong = 0;
        for (int plane = 0; plane < 3; ++plane)
            for (int y = 0; y < texture.usedHeight(plane); ++y)
                for (int x = 0; x < texture.usedWidth(plane); ++x)
                    wrong += texture.plane(plane)[y * texture.textureWidth(plane) + x] !=
                             sample(plane, std::min(x, texture.planeWidth(plane) - 1),
                                    std::min(y, texture.planeHeight(plane) - 1));
        EXPECT_EQ(wrong, 0) << shape.width;
    }
}

TEST(GLMovieTexture, ConvertsAndGivesAnImage)
{
    struct {
        uint8_t y, u, v;
        int red, green, blue;
    } const cases[] = {{16, 128, 128, 0, 0, 0},
                       {235, 128, 128, 255, 255, 255},
                       {81, 90, 240, 254, 0, 0},
                       {145, 54, 34, 0, 255, 1},
                       {41, 240, 110, 0, 0, 255}};
    for (AVPixelFormat const target : {AV_PIX_FMT_RGB24, AV_PIX_FMT_RGBA})
        for (auto const& one : cases) {
            GLMovieTexture texture;
            ASSERT_EQ(create(texture, 7, 5, target), 0);
            Frame const frame = makeFrame(7, 5, AV_PIX_FMT_YUV420P);
            fillYUV(frame.get(), one.y, one.u, one.v);
            texture.update(frame.get(), true);
            QByteArray const image = texture.image();
            ASSERT_EQ(image.size(), 7 * 5 * 4);
            for (int i = 0; i < image.size(); i += 4) {
                EXPECT_NEAR(static_cast<uint8_t>(image[i + 2]), one.red, 2);
                EXPECT_NEAR(static_cast<uint8_t>(image[i + 1]), one.green, 2);
                EXPECT_NEAR(static_cast<uint8_t>(image[i]), one.blue, 2);
                EXPECT_EQ(static_cast<uint8_t>(image[i + 3]), 255);
            }
        }
}

TEST(GLMovieTexture, EachPictureBringsItsColours)
{
    using Matrix = GLMovieColourSpace::Matrix;
    Frame const frame = makeFrame(16, 16, AV_PIX_FMT_YUV420P);
    auto const colours = [&](AVPixelFormat format, AVColorSpace matrix,
                             AVColorRange range = AVCOL_RANGE_UNSPECIFIED) {
        frame->format = format;
        frame->colorspace = matrix;
        frame->color_range = range;
        return GLMovieColourSpace::fromFrame(frame.get());
    };
    EXPECT_EQ(colours(AV_PIX_FMT_YUV420P, AVCOL_SPC_UNSPECIFIED), GLMovieColourSpace());
    EXPECT_EQ(colours(AV_PIX_FMT_YUVJ420P, AVCOL_SPC_BT709), (GLMovieColourSpace{Matrix::BT709, true}));
    EXPECT_EQ(colours(AV_PIX_FMT_YUV420P, AVCOL_SPC_YCGCO), (GLMovieColourSpace{Matrix::BT601, false}));
    EXPECT_TRUE(colours(AV_PIX_FMT_GRAY8, AVCOL_SPC_UNSPECIFIED).fullRange);
    EXPECT_EQ(colours(AV_PIX_FMT_GBRP, AVCOL_SPC_UNSPECIFIED, AVCOL_RANGE_JPEG), GLMovieColourSpace());
    GLMovieTexture texture;
    ASSERT_EQ(create(texture, 16, 16, AV_PIX_FMT_YUV420P), 0);
    colours(AV_PIX_FMT_YUV420P, AVCOL_SPC_BT709);
    texture.update(frame.get(), false);
    std::lock_guard const lock(texture);
    EXPECT_EQ(texture.colourSpace(), (GLMovieColourSpace{Matrix::BT709, false}));
}

TEST(GLMovieTexture, RefusesWhatItCannotHoldAndSaysSoOnce)
{
    LogCapture log;
    GLMovieTexture texture;
    EXPECT_EQ(create(texture, 64, 64, AV_PIX_FMT_NV12), 1);
    for (auto const& [width, height] : {std::pair{0, 64}, {64, -1}, {0x7fffffff, 0x7fffffff}})
        EXPECT_EQ(create(texture, width, height, AV_PIX_FMT_YUV420P), 1);
    QSignalSpy updates(&texture, &GLMovieTexture::updated);
    texture.update(makeFrame(64, 32, AV_PIX_FMT_YUV420P).get(), true);
    ASSERT_EQ(create(texture, 64, 32, AV_PIX_FMT_YUV420P), 0);
    texture.update(makeFrame(32, 32, AV_PIX_FMT_YUV420P).get(), true);
    texture.update(makeFrame(64, 16, AV_PIX_FMT_YUV420P).get(), true);
    texture.update(makeFrame(64, 32, AV_PIX_FMT_RGB24).get(), true);
    EXPECT_TRUE(updates.isEmpty());
    EXPECT_EQ(log.count("does not fit the texture"), 2); // Before create(), and once after it.
    texture.update(makeFrame(64, 32, AV_PIX_FMT_YUV420P).get(), true);
    ASSERT_EQ(updates.count(), 1);
    EXPECT_TRUE(updates.constFirst().constFirst().toBool());
}

TEST(GLMovieTexture, APainterNeverSeesTwoPicturesMixed)
{
    GLMovieTexture texture;
    ASSERT_EQ(create(texture, 130, 70, AV_PIX_FMT_YUV420P), 0);
    std::atomic<bool> stop{false};
    std::thread watcher([&] {
        Frame const frame = makeFrame(130, 70, AV_PIX_FMT_YUV420P);
        for (uint8_t value = 1; !stop; ++value) {
            fillYUV(frame.get(), value, value, value);
            texture.update(frame.get(), false);
        }
    });
    int mixed = 0;
    quint64 last = 0;
    for (int pictures = 0; pictures < 60;) {
        std::lock_guard const lock(texture);
        if (texture.generation() == last)
            continue;
        last = texture.generation();
        ++pictures;
        for (int plane = 0; plane < 3; ++plane)
            for (int y = 0; y < texture.usedHeight(plane); ++y)
                for (int x = 0; x < texture.usedWidth(plane); ++x)
                    mixed += texture.plane(plane)[y * texture.textureWidth(plane) + x] != texture.plane(0)[0];
    }
    stop = true;
    watcher.join();
    EXPECT_EQ(mixed, 0);
}
