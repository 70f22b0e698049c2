#include "GLMovieColourConversion.h"
#include "GLMoviePainter.h"
#include "GLMovieQuad.h"
#include "GLMovieShader.h"
#include "GLMovieTexture.h"
#include "GLTest.h"
#include "TestPicture.h"

extern "C" {
#include <libswscale/swscale.h>
}

#include <cstdlib>

namespace
{

constexpr double likeFFmpeg = 45.0; ///< dB

enum class Path { Shader, FragmentProgram, RGB };

class ColourPathTest : public GLTest
{
protected:
    void SetUp() override
    {
        GLTest::SetUp();
        ASSERT_TRUE(GLMovieColourConversion::createShaderProgram(&_shader));
        ASSERT_TRUE(GLMovieColourConversion::createFragmentProgram(_fragmentProgram));
    }

    void choose(GLMoviePainter& painter, Path path) const
    {
        if (path == Path::Shader)
            painter.setColourConversionShaderProgram(_shader.handle());
        if (path == Path::FragmentProgram)
            painter.setColourConversionFragmentProgram(_fragmentProgram);
    }

    /// Draws a picture on a surface of a size.
    QImage drawn(Path path, AVFrame const* frame, QSize const& size, GLMovieQuad const& quad, double opacity = 1.0)
    {
        auto const format = path == Path::RGB ? AV_PIX_FMT_RGB24 : static_cast<AVPixelFormat>(frame->format);
        std::unique_ptr<GLMovieTexture> const texture = textureOf(frame, format);
        GLMoviePainter painter;
        choose(painter, path);
        beginSurface(size.width(), size.height(), QColor(0, 0, 255));
        painter.updateVideoTexture(*texture);
        EXPECT_FALSE(painter.draw(quad, opacity).isEmpty());
        EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_NO_ERROR));
        return surface();
    }

    GLMovieShader _shader;
    unsigned int _fragmentProgram = 0;
};

GLMovieQuad quadOf(double x, double y, double width, double height)
{
    return {.left = x, .top = y, .right = x + width, .bottom = y + height};
}

/// A grey picture of one-pixel columns, the hardest there is for a filter.
Frame columns(int width, int height)
{
    Frame frame = emptyPicture(width, height, AV_PIX_FMT_YUV420P);
    for (int plane = 0; plane < 3; ++plane)
        for (int y = 0; y < (plane == 0 ? height : (height + 1) / 2); ++y)
            for (int x = 0; x < (plane == 0 ? width : (width + 1) / 2); ++x)
                frame->data[plane][y * frame->linesize[plane] + x] =
                    static_cast<uint8_t>(plane > 0 ? 128 : (x % 2 ? 235 : 16));
    return frame;
}

/// Bands of one chroma each, every luma in each: flat colours from one side to the other of what there is, and ramps.
Frame bands(AVPixelFormat format)
{
    static constexpr std::array<uint8_t, 6> levels{32, 64, 100, 128, 180, 224};
    constexpr int bandHeight = 8;
    Frame frame = emptyPicture(256, bandHeight * static_cast<int>(levels.size() * levels.size()), format);
    for (int y = 0; y < frame->height; ++y)
        for (int x = 0; x < 256; ++x)
            frame->data[0][y * frame->linesize[0] + x] = static_cast<uint8_t>(x);
    int const half = format == AV_PIX_FMT_YUV420P ? 2 : 1;
    for (int y = 0; y < frame->height / half; ++y) {
        size_t const band = static_cast<size_t>(y * half / bandHeight);
        std::fill_n(frame->data[1] + y * frame->linesize[1], 256 / half, levels.at(band % levels.size()));
        std::fill_n(frame->data[2] + y * frame->linesize[2], 256 / half, levels.at(band / levels.size()));
    }
    return frame;
}

/// The largest difference of any component, where the chroma is not between two bands.
int worstDifference(QImage const& one, QImage const& other)
{
    int worst = one.size() == other.size() ? 0 : 256;
    for (int y = 0; worst < 256 && y < one.height(); ++y)
        for (int x = 0; y % 8 >= 2 && y % 8 < 6 && x < 3 * one.width(); ++x)
            worst = std::max(worst, std::abs(one.constScanLine(y)[x] - other.constScanLine(y)[x]));
    return worst;
}

/// A conversion to RGB beforehand, with the flags that films use.
QImage scaled(SwsContext*& context, AVFrame const* frame)
{
    Frame const rgb = emptyPicture(frame->width, frame->height, AV_PIX_FMT_RGB24);
    context =
        sws_getCachedContext(context, frame->width, frame->height,
                             GLMovieColourSpace::plainFormat(static_cast<AVPixelFormat>(frame->format)), frame->width,
                             frame->height, AV_PIX_FMT_RGB24, SWS_BILINEAR, nullptr, nullptr, nullptr);
    GLMovieColourSpace::apply(context, frame, rgb.get());
    sws_scale(context, frame->data, frame->linesize, 0, frame->height, rgb->data, rgb->linesize);
    EXPECT_EQ(GLMovieColourSpace::fromFrame(rgb.get()), GLMovieColourSpace());
    return QImage(rgb->data[0], rgb->width, rgb->height, rgb->linesize[0], QImage::Format_RGB888).copy();
}

} // namespace

TEST_F(ColourPathTest, EveryPathFollowsTheMatrixAndTheRangeOfEachPicture)
{
    std::array<GLMoviePainter, 3> painters;
    choose(painters[0], Path::Shader);
    choose(painters[1], Path::FragmentProgram);
    SwsContext* context = nullptr;
    for (AVColorRange const range : {AVCOL_RANGE_UNSPECIFIED, AVCOL_RANGE_JPEG})
        for (AVColorSpace const matrix : {AVCOL_SPC_UNSPECIFIED, AVCOL_SPC_SMPTE170M, AVCOL_SPC_BT709, AVCOL_SPC_FCC,
                                          AVCOL_SPC_SMPTE240M, AVCOL_SPC_BT2020_NCL, AVCOL_SPC_BT2020_CL})
            for (AVPixelFormat const format : {AV_PIX_FMT_YUV444P, AV_PIX_FMT_YUV420P}) {
                SCOPED_TRACE(testing::Message() << "matrix " << matrix << " range " << range << " " << format);
                Frame const frame = bands(format);
                frame->colorspace = matrix;
                frame->color_range = range;
                QImage const reference = convertedByFFmpeg(frame.get());
                for (GLMoviePainter& painter : painters) {
                    bool const isRGB = !painter.hasColourConversion();
                    auto const texture = textureOf(frame.get(), isRGB ? AV_PIX_FMT_RGB24 : format);
                    beginSurface(frame->width, frame->height);
                    painter.forgetPicture();
                    painter.updateVideoTexture(*texture);
                    painter.draw(quadOf(0, 0, frame->width, frame->height), 1.0);
                    EXPECT_LE(worstDifference(surface(), reference), 2);
                }
                EXPECT_LE(worstDifference(scaled(context, frame.get()), reference), 2);
            }
    sws_freeContext(context);
}

TEST_F(ColourPathTest, AllWaysGiveThePictureThatFFmpegGives)
{
    struct {
        AVPixelFormat format;
        int width, height;
    } const cases[] = {{AV_PIX_FMT_YUV420P, 1280, 720}, {AV_PIX_FMT_YUV420P, 640, 360},
                       {AV_PIX_FMT_YUV420P, 321, 243},  {AV_PIX_FMT_YUV420P, 641, 513},
                       {AV_PIX_FMT_YUV444P, 640, 512},  {AV_PIX_FMT_YUV444P, 99, 33}};
    for (auto const& one : cases) {
        SCOPED_TRACE(testing::Message() << one.width << " x " << one.height << " format " << one.format);
        // An odd side is an even one cut, as a decoder does it.
        Frame const frame = testPicture(one.width + one.width % 2, one.height + one.height % 2, one.format);
        QImage const reference = convertedByFFmpeg(frame.get()).copy(0, 0, one.width, one.height);
        frame->width = one.width;
        frame->height = one.height;
        QSize const size(one.width, one.height);
        GLMovieQuad const quad = quadOf(0, 0, one.width, one.height);
        QImage const shader = drawn(Path::Shader, frame.get(), size, quad);
        QImage const program = drawn(Path::FragmentProgram, frame.get(), size, quad);
        QImage const rgb = drawn(Path::RGB, frame.get(), size, quad);
        EXPECT_GT(psnr(shader, reference), likeFFmpeg);
        EXPECT_GT(psnr(program, reference), likeFFmpeg);
        EXPECT_GT(psnr(rgb, reference), likeFFmpeg);
        EXPECT_GT(psnr(shader, program), 55.0);
        EXPECT_GT(psnr(shader, rgb), 55.0);
    }
}

TEST_F(ColourPathTest, PixelsStayAsTheyAreAtTheirOwnSizeWhereverThePictureIs)
{
    Frame const frame = columns(98, 50);
    for (Path const path : {Path::Shader, Path::FragmentProgram, Path::RGB}) {
        GLMovieQuad quad = quadOf(7, 5, 98, 50);
        quad.part = QRectF(0.0, 0.0, 1.0, 1.0);
        QImage const image = drawn(path, frame.get(), QSize(120, 60), quad);
        int wrong = 0;
        for (int y = 0; y < 50; ++y)
            for (int x = 0; x < 98; ++x)
                wrong += x % 2 ? image.pixelColor(x + 7, y + 5).lightness() < 250
                               : image.pixelColor(x + 7, y + 5).lightness() > 3;
        EXPECT_EQ(wrong, 0);
        EXPECT_EQ(image.pixelColor(6, 20), QColor(0, 0, 255));
        EXPECT_EQ(image.pixelColor(105, 20), QColor(0, 0, 255));
        EXPECT_EQ(image.pixelColor(20, 55), QColor(0, 0, 255));
    }
}

TEST_F(ColourPathTest, AnEnlargedPictureHasNoForeignColourAtItsEdge)
{
    // 33 x 17 lies in a larger texture, whose rest is black and green.
    Frame const frame = columns(33, 17);
    for (int y = 0; y < 17; ++y)
        std::fill_n(frame->data[0] + y * frame->linesize[0], 33, uint8_t{235});
    for (Path const path : {Path::Shader, Path::FragmentProgram, Path::RGB}) {
        QImage const image = drawn(path, frame.get(), QSize(200, 100), quadOf(0, 0, 200, 100));
        int darkest = 255;
        for (int y = 0; y < 100; ++y)
            for (int x = 0; x < 600; ++x)
                darkest = std::min<int>(darkest, image.constScanLine(y)[x]);
        EXPECT_GT(darkest, 250);
    }
}

TEST_F(ColourPathTest, APartOfThePictureIsThatPart)
{
    Frame const frame = testPicture(640, 512, AV_PIX_FMT_YUV420P);
    GLMovieQuad quad = quadOf(0, 0, 320, 128);
    quad.part = QRectF(0.25, 0.5, 0.5, 0.25);
    QImage const part = drawn(Path::Shader, frame.get(), QSize(320, 128), quad);
    QImage const whole = drawn(Path::Shader, frame.get(), QSize(640, 512), quadOf(0, 0, 640, 512));
    EXPECT_GT(psnr(part, whole.copy(160, 256, 320, 128)), 55.0);
}

TEST_F(ColourPathTest, OpacityMixesWithTheBackgroundOnEveryPath)
{
    Frame const frame = columns(64, 64);
    for (int y = 0; y < 64; ++y)
        std::fill_n(frame->data[0] + y * frame->linesize[0], 64, uint8_t{235});
    for (Path const path : {Path::Shader, Path::FragmentProgram, Path::RGB})
        for (auto const& [opacity, lightness] : {std::pair{1.0, 255}, {0.5, 128}, {0.2, 51}}) {
            QImage const image = drawn(path, frame.get(), QSize(64, 64), quadOf(0, 0, 64, 64), opacity);
            QColor const colour = image.pixelColor(30, 30);
            EXPECT_NEAR(colour.red(), lightness, 3);
            EXPECT_NEAR(colour.green(), lightness, 3);
            EXPECT_NEAR(colour.blue(), 255, 3);
            EXPECT_EQ(_surface->toImage().pixelColor(30, 30).alpha(), 255);
        }
}

TEST_F(ColourPathTest, ANewPictureReplacesTheOldAndAnotherSizeTheTextures)
{
    GLMoviePainter painter;
    choose(painter, Path::Shader);
    for (auto const& [width, height] : {std::pair{640, 512}, {64, 64}, {640, 512}}) {
        Frame const frame = columns(width, height);
        std::unique_ptr<GLMovieTexture> const texture = textureOf(frame.get(), AV_PIX_FMT_YUV420P);
        painter.forgetPicture();
        for (uint8_t const luma : {235, 16}) {
            for (int y = 0; y < height; ++y)
                std::fill_n(frame->data[0] + y * frame->linesize[0], width, luma);
            texture->update(frame.get(), false);
            beginSurface(width, height);
            painter.updateVideoTexture(*texture);
            painter.draw(quadOf(0, 0, width, height), 1.0);
            EXPECT_NEAR(surface().pixelColor(width - 1, height - 1).lightness(), luma == 235 ? 255 : 0, 3);
        }
    }
}

TEST_F(ColourPathTest, DrawPixelsShowsThePictureUpright)
{
    Frame const frame = testPicture(320, 200, AV_PIX_FMT_YUV420P);
    std::unique_ptr<GLMovieTexture> const texture = textureOf(frame.get(), AV_PIX_FMT_RGB24);
    beginSurface(340, 220);
    GLMoviePainter::drawWithDrawPixels(*texture, 10.0, 10.0, 1.0, 1.0);
    EXPECT_GT(psnr(surface().copy(10, 10, 320, 200), convertedByFFmpeg(frame.get())), likeFFmpeg);
}

TEST_F(ColourPathTest, TheCornersInTheWindowFollowTheMatrices)
{
    Frame const frame = testPicture(64, 64, AV_PIX_FMT_YUV420P);
    std::unique_ptr<GLMovieTexture> const texture = textureOf(frame.get(), AV_PIX_FMT_RGB24);
    GLMoviePainter painter;
    beginSurface(200, 100);
    painter.updateVideoTexture(*texture);
    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();
    glFrustum(-1.0, 1.0, -1.0, 1.0, 1.0, 10.0);
    glMatrixMode(GL_MODELVIEW);
    // Twice as far away, half as large: the middle half of the window, y upward.
    QPolygonF const corners = painter.draw({.left = -1, .top = 1, .right = 1, .bottom = -1, .z = -2}, 1.0);
    ASSERT_EQ(corners.size(), 4);
    EXPECT_NEAR(corners[0].x(), 50.0, 0.01);
    EXPECT_NEAR(corners[0].y(), 25.0, 0.01);
    EXPECT_NEAR(corners[2].x(), 150.0, 0.01);
    EXPECT_NEAR(corners[2].y(), 75.0, 0.01);
}

TEST_F(ColourPathTest, LargePicturesHaveTexturesOfTheirOwnSize)
{
    struct {
        int width, height, textureWidth, textureHeight;
    } const cases[] = {{511, 512, 512, 512},  {512, 511, 512, 512}, {512, 512, 512, 512},
                       {600, 511, 1024, 512}, {513, 515, 513, 515}, {720, 576, 720, 576}};
    for (auto const& one : cases)
        for (AVPixelFormat const format : {AV_PIX_FMT_YUV420P, AV_PIX_FMT_RGB24}) {
            Frame const frame = columns(one.width, one.height);
            std::unique_ptr<GLMovieTexture> const texture = textureOf(frame.get(), format);
            EXPECT_EQ(texture->textureWidth(0), one.textureWidth) << one.width << " x " << one.height;
            EXPECT_EQ(texture->textureHeight(0), one.textureHeight) << one.width << " x " << one.height;
        }
}
