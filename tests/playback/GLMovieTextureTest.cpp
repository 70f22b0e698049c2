#include "GLMovieTexture.h"

#include "LogCapture.h"
#include "TestPicture.h"

extern "C" {
#include <libavcodec/avcodec.h>
}

#include <QSignalSpy>

#include <atomic>
#include <gmock/gmock.h>
#include <mutex>
#include <thread>

namespace
{

int create(GLMovieTexture& texture, int width, int height, AVPixelFormat format)
{
    AVCodecContext* context = avcodec_alloc_context3(nullptr);
    context->width = width;
    context->height = height;
    int const result = texture.create(context, format);
    avcodec_free_context(&context);
    return result;
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

} // namespace

TEST(GLMovieTexture, KeepsEveryRowInItsPlaceAndRepeatsTheEdge)
{
    // Without a card that takes other sizes, every texture has sides that are powers of two.
    struct {
        AVPixelFormat format;
        QSize size;
        QSize chromaSize;
        QSize textureSize;
    } const shapes[] = {{AV_PIX_FMT_YUV420P, {33, 17}, {17, 9}, {64, 32}},
                        {AV_PIX_FMT_YUV444P, {128, 64}, {128, 64}, {128, 64}}};
    for (auto const& shape : shapes) {
        Frame const frame = emptyPicture(shape.size.width(), shape.size.height(), shape.format);
        fill(frame.get(), 0, shape.size.width(), shape.size.height());
        fill(frame.get(), 1, shape.chromaSize.width(), shape.chromaSize.height());
        fill(frame.get(), 2, shape.chromaSize.width(), shape.chromaSize.height());
        auto const held = textureOf(frame.get(), shape.format);
        GLMovieTexture& texture = *held;
        ASSERT_EQ(texture.planeCount(), 3);

        std::lock_guard const lock(texture);
        EXPECT_EQ(QSize(texture.textureWidth(0), texture.textureHeight(0)), shape.textureSize);
        EXPECT_EQ(QSize(texture.planeWidth(1), texture.planeHeight(2)), shape.chromaSize);
        int wrong = 0;
        for (int plane = 0; plane < 3; ++plane)
            for (int y = 0; y < texture.usedHeight(plane); ++y)
                for (int x = 0; x < texture.usedWidth(plane); ++x)
                    wrong += texture.plane(plane)[y * texture.textureWidth(plane) + x] !=
                             sample(plane, std::min(x, texture.planeWidth(plane) - 1),
                                    std::min(y, texture.planeHeight(plane) - 1));
        EXPECT_EQ(wrong, 0) << shape.size.width();
    }
}

TEST(GLMovieTexture, ConvertsAndGivesAnImage)
{
    Frame const frame = emptyPicture(7, 5, AV_PIX_FMT_YUV420P);
    fillYUV(frame.get(), 81, 90, 240);
    for (AVPixelFormat const target : {AV_PIX_FMT_RGB24, AV_PIX_FMT_RGBA}) {
        QByteArray const image = textureOf(frame.get(), target)->image();
        ASSERT_EQ(image.size(), 7 * 5 * 4);
        for (int i = 0; i < image.size(); i += 4) {
            EXPECT_NEAR(static_cast<uint8_t>(image[i + 2]), 254, 2);
            EXPECT_NEAR(static_cast<uint8_t>(image[i + 1]), 0, 2);
            EXPECT_NEAR(static_cast<uint8_t>(image[i]), 0, 2);
            EXPECT_EQ(static_cast<uint8_t>(image[i + 3]), 255);
        }
    }
}

TEST(GLMovieTexture, RefusesWhatItCannotHoldAndSaysSoOnce)
{
    LogCapture log;
    GLMovieTexture texture;
    EXPECT_EQ(create(texture, 64, 64, AV_PIX_FMT_NV12), 1);
    for (auto const& [width, height] : {std::pair{0, 64}, {64, -1}, {0x7fffffff, 0x7fffffff}})
        EXPECT_EQ(create(texture, width, height, AV_PIX_FMT_YUV420P), 1);
    QSignalSpy updates(&texture, &GLMovieTexture::updated);
    texture.update(emptyPicture(64, 32, AV_PIX_FMT_YUV420P).get(), true);
    ASSERT_EQ(create(texture, 64, 32, AV_PIX_FMT_YUV420P), 0);
    texture.update(emptyPicture(32, 32, AV_PIX_FMT_YUV420P).get(), true);
    texture.update(emptyPicture(64, 16, AV_PIX_FMT_YUV420P).get(), true);
    texture.update(emptyPicture(64, 32, AV_PIX_FMT_RGB24).get(), true);
    EXPECT_TRUE(updates.isEmpty());
    EXPECT_EQ(log.count("does not fit the texture"), 2); // Before create(), and once after it.
    texture.update(emptyPicture(64, 32, AV_PIX_FMT_YUV420P).get(), true);
    ASSERT_EQ(updates.count(), 1);
    EXPECT_TRUE(updates.constFirst().constFirst().toBool());
}

TEST(GLMovieTexture, APainterNeverSeesTwoPicturesMixed)
{
    GLMovieTexture texture;
    ASSERT_EQ(create(texture, 130, 70, AV_PIX_FMT_YUV420P), 0);
    std::atomic<bool> stop{false};
    std::thread watcher([&] {
        Frame const frame = emptyPicture(130, 70, AV_PIX_FMT_YUV420P);
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
