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
        bool const halved = plane > 0 && frame->format == AV_PIX_FMT_YUV420P;
        int const rows = halved ? (frame->height + 1) / 2 : frame->height;
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

std::ostream& operator<<(std::ostream& out, Shape const& shape)
{
    return out << shape.width << " x " << shape.height << " format " << shape.format;
}

class GLMovieTextureYUV : public testing::TestWithParam<Shape>
{
};

} // namespace

// Without a card that takes other sizes, every texture has sides that are powers of two.
INSTANTIATE_TEST_SUITE_P(Shapes, GLMovieTextureYUV,
                         testing::Values(Shape{AV_PIX_FMT_YUV420P, 64, 32, 32, 16, 64, 32},
                                         Shape{AV_PIX_FMT_YUV420P, 33, 17, 17, 9, 64, 32},
                                         Shape{AV_PIX_FMT_YUV420P, 1, 1, 1, 1, 1, 1},
                                         Shape{AV_PIX_FMT_YUV420P, 720, 576, 360, 288, 1024, 1024},
                                         Shape{AV_PIX_FMT_YUV444P, 33, 17, 33, 17, 64, 32},
                                         Shape{AV_PIX_FMT_YUV444P, 128, 64, 128, 64, 128, 64}));

TEST_P(GLMovieTextureYUV, KeepsEveryRowInItsPlaceAndRepeatsTheEdge)
{
    Shape const& shape = GetParam();
    GLMovieTexture texture;
    ASSERT_EQ(create(texture, shape.width, shape.height, shape.format), 0);
    ASSERT_EQ(texture.planeCount(), 3);
    Frame const frame = makeFrame(shape.width, shape.height, shape.format);
    for (int plane = 0; plane < 3; ++plane)
        fill(frame.get(), plane, plane == 0 ? shape.width : shape.chromaWidth,
             plane == 0 ? shape.height : shape.chromaHeight);
    texture.update(frame.get(), false);

    std::lock_guard const lock(texture);
    EXPECT_EQ(texture.textureWidth(0), shape.textureWidth);
    EXPECT_EQ(texture.textureHeight(0), shape.textureHeight);
    EXPECT_EQ(texture.planeWidth(1), shape.chromaWidth);
    EXPECT_EQ(texture.planeHeight(2), shape.chromaHeight);
    for (int plane = 0; plane < 3; ++plane) {
        int wrong = 0;
        for (int y = 0; y < texture.usedHeight(plane); ++y)
            for (int x = 0; x < texture.usedWidth(plane); ++x)
                wrong += texture.plane(plane)[y * texture.textureWidth(plane) + x] !=
                         sample(plane, std::min(x, texture.planeWidth(plane) - 1),
                                std::min(y, texture.planeHeight(plane) - 1));
        EXPECT_EQ(wrong, 0) << "plane " << plane;
    }
}

TEST(GLMovieTexture, TakesPicturesThatRunUpward)
{
    GLMovieTexture texture;
    ASSERT_EQ(create(texture, 64, 32, AV_PIX_FMT_YUV444P), 0);
    Frame const frame = makeFrame(64, 32, AV_PIX_FMT_YUV444P);
    for (int plane = 0; plane < 3; ++plane) {
        fill(frame.get(), plane, 64, 32);
        frame->data[plane] += frame->linesize[plane] * 31;
        frame->linesize[plane] = -frame->linesize[plane];
    }
    texture.update(frame.get(), false);
    std::lock_guard const lock(texture);
    EXPECT_EQ(texture.plane(1)[5], sample(1, 5, 31));
    EXPECT_EQ(texture.plane(2)[31 * 64 + 5], sample(2, 5, 0));
}

TEST(GLMovieTexture, KeepsRGBAndGivesItAsAnImage)
{
    for (AVPixelFormat const format : {AV_PIX_FMT_RGB24, AV_PIX_FMT_RGBA}) {
        GLMovieTexture texture;
        ASSERT_EQ(create(texture, 5, 3, format), 0);
        Frame const frame = makeFrame(5, 3, AV_PIX_FMT_RGB24);
        fill(frame.get(), 0, 15, 3);
        texture.update(frame.get(), true);
        QByteArray const image = texture.image();
        ASSERT_EQ(image.size(), 5 * 3 * 4);
        for (int y = 0; y < 3; ++y)
            for (int x = 0; x < 5; ++x) {
                auto const* const pixel = reinterpret_cast<unsigned char const*>(image.constData()) + (y * 5 + x) * 4;
                EXPECT_EQ(pixel[0], sample(0, 3 * x + 2, y));
                EXPECT_EQ(pixel[1], sample(0, 3 * x + 1, y));
                EXPECT_EQ(pixel[2], sample(0, 3 * x, y));
                EXPECT_EQ(pixel[3], 255);
            }
    }
}

TEST(GLMovieTexture, ConvertsKnownColours)
{
    struct {
        uint8_t y, u, v;
        int red, green, blue;
    } const cases[] = {{16, 128, 128, 0, 0, 0},  {235, 128, 128, 255, 255, 255}, {126, 128, 128, 128, 128, 128},
                       {81, 90, 240, 254, 0, 0}, {145, 54, 34, 0, 255, 1},       {41, 240, 110, 0, 0, 255},
                       {0, 0, 0, 0, 135, 0},     {255, 255, 255, 255, 125, 255}};
    for (AVPixelFormat const source : {AV_PIX_FMT_YUV420P, AV_PIX_FMT_YUV444P})
        for (AVPixelFormat const target : {AV_PIX_FMT_RGB24, AV_PIX_FMT_RGBA})
            for (auto const& one : cases) {
                GLMovieTexture texture;
                ASSERT_EQ(create(texture, 7, 5, target), 0);
                Frame const frame = makeFrame(7, 5, source);
                fillYUV(frame.get(), one.y, one.u, one.v);
                texture.update(frame.get(), true);
                QByteArray const image = texture.image();
                for (int i = 0; i < image.size(); i += 4) {
                    EXPECT_NEAR(static_cast<uint8_t>(image[i + 2]), one.red, 2);
                    EXPECT_NEAR(static_cast<uint8_t>(image[i + 1]), one.green, 2);
                    EXPECT_NEAR(static_cast<uint8_t>(image[i]), one.blue, 2);
                }
            }
}

TEST(GLMovieTexture, EachPictureBringsItsColours)
{
    using Matrix = GLMovieColourSpace::Matrix;
    GLMovieTexture texture;
    ASSERT_EQ(create(texture, 16, 16, AV_PIX_FMT_YUV420P), 0);
    Frame const frame = makeFrame(16, 16, AV_PIX_FMT_YUV420P);
    auto const coloursAfterUpdate = [&] {
        texture.update(frame.get(), false);
        std::lock_guard const lock(texture);
        return texture.colourSpace();
    };
    EXPECT_EQ(coloursAfterUpdate(), GLMovieColourSpace());
    frame->colorspace = AVCOL_SPC_BT709;
    EXPECT_EQ(coloursAfterUpdate(), (GLMovieColourSpace{Matrix::BT709, false}));
    frame->format = AV_PIX_FMT_YUVJ420P;
    EXPECT_EQ(coloursAfterUpdate(), (GLMovieColourSpace{Matrix::BT709, true}));
    frame->colorspace = AVCOL_SPC_YCGCO;
    EXPECT_EQ(coloursAfterUpdate(), (GLMovieColourSpace{Matrix::BT601, true}));
    frame->format = AV_PIX_FMT_GRAY8;
    EXPECT_TRUE(GLMovieColourSpace::fromFrame(frame.get()).fullRange);
    frame->format = AV_PIX_FMT_GBRP;
    frame->color_range = AVCOL_RANGE_JPEG;
    EXPECT_EQ(GLMovieColourSpace::fromFrame(frame.get()), GLMovieColourSpace());
}

TEST(GLMovieTexture, RefusesWhatItCannotHold)
{
    GLMovieTexture texture;
    for (AVPixelFormat const format : {AV_PIX_FMT_NONE, AV_PIX_FMT_YUV422P, AV_PIX_FMT_NV12, AV_PIX_FMT_BGR24})
        EXPECT_EQ(create(texture, 64, 64, format), 1) << format;
    for (auto const& [width, height] : {std::pair{0, 64}, {64, -1}, {0x7fffffff, 0x7fffffff}})
        EXPECT_EQ(create(texture, width, height, AV_PIX_FMT_YUV420P), 1);
    EXPECT_EQ(texture.planeCount(), 0);
}

TEST(GLMovieTexture, RefusesPicturesThatAreNotItsOwnAndSaysSoOnce)
{
    LogCapture log;
    GLMovieTexture texture;
    QSignalSpy updates(&texture, &GLMovieTexture::updated);
    texture.update(makeFrame(64, 32, AV_PIX_FMT_YUV420P).get(), true);
    ASSERT_EQ(create(texture, 64, 32, AV_PIX_FMT_YUV420P), 0);
    texture.update(makeFrame(32, 32, AV_PIX_FMT_YUV420P).get(), true);
    texture.update(makeFrame(64, 16, AV_PIX_FMT_YUV420P).get(), true);
    texture.update(makeFrame(64, 32, AV_PIX_FMT_RGB24).get(), true);
    EXPECT_TRUE(updates.isEmpty());
    EXPECT_EQ(log.count("does not fit the texture"), 2); // Before create(), and once after it.
    texture.update(makeFrame(64, 32, AV_PIX_FMT_YUV420P).get(), true);
    EXPECT_EQ(updates.count(), 1);
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
