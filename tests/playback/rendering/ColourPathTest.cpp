#include "GLMovieColourConversion.h"
#include "GLMoviePainter.h"
#include "GLMovieQuad.h"
#include "GLMovieShader.h"
#include "GLMovieTexture.h"
#include "GLTest.h"
#include "TestPicture.h"

#include <cstdlib>

namespace
{

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
    QImage drawn(Path path, AVFrame const* frame, QSize const& size, GLMovieQuad const& quad)
    {
        auto const format = path == Path::RGB ? AV_PIX_FMT_RGB24 : static_cast<AVPixelFormat>(frame->format);
        std::unique_ptr<GLMovieTexture> const texture = textureOf(frame, format);
        GLMoviePainter painter;
        choose(painter, path);
        beginSurface(size.width(), size.height(), QColor(0, 0, 255));
        painter.updateVideoTexture(*texture);
        EXPECT_FALSE(painter.draw(quad, 1.0).isEmpty());
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

/// A grey picture of one-pixel columns, the hardest there is for a filter: white ones and, unless told otherwise,
/// black ones.
Frame columns(int width, int height, uint8_t other = 16)
{
    Frame frame = emptyPicture(width, height, AV_PIX_FMT_YUV420P);
    for (int plane = 0; plane < 3; ++plane)
        for (int y = 0; y < (plane == 0 ? height : (height + 1) / 2); ++y)
            for (int x = 0; x < (plane == 0 ? width : (width + 1) / 2); ++x)
                frame->data[plane][y * frame->linesize[plane] + x] =
                    static_cast<uint8_t>(plane > 0 ? 128 : (x % 2 ? 235 : other));
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

} // namespace

TEST_F(ColourPathTest, EveryPathFollowsTheMatrixAndTheRangeOfEachPicture)
{
    std::array<GLMoviePainter, 3> painters;
    choose(painters[0], Path::Shader);
    choose(painters[1], Path::FragmentProgram);
    for (AVColorRange const range : {AVCOL_RANGE_UNSPECIFIED, AVCOL_RANGE_JPEG})
        for (AVColorSpace const matrix :
             {AVCOL_SPC_UNSPECIFIED, AVCOL_SPC_BT709, AVCOL_SPC_FCC, AVCOL_SPC_SMPTE240M, AVCOL_SPC_BT2020_NCL})
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
            }
}

TEST_F(ColourPathTest, PixelsStayAsTheyAreAtTheirOwnSizeWhereverThePictureIs)
{
    Frame const frame = columns(98, 50);
    for (Path const path : {Path::Shader, Path::FragmentProgram, Path::RGB}) {
        QImage const image = drawn(path, frame.get(), QSize(120, 60), quadOf(7, 5, 98, 50));
        int wrong = 0;
        for (int y = 0; y < 50; ++y)
            for (int x = 0; x < 98; ++x)
                wrong += std::abs(image.pixelColor(x + 7, y + 5).lightness() - (x % 2 ? 255 : 0)) > 4;
        EXPECT_EQ(wrong, 0);
        for (QPoint const outside : {QPoint(6, 20), QPoint(105, 20), QPoint(20, 55)})
            EXPECT_EQ(image.pixelColor(outside), QColor(0, 0, 255));
    }
}

TEST_F(ColourPathTest, AnEnlargedPictureHasNoForeignColourAtItsEdge)
{
    Frame const frame = columns(33, 17, 235); // It lies in a larger texture, whose rest is black and green.
    for (Path const path : {Path::Shader, Path::FragmentProgram, Path::RGB}) {
        QImage const image = drawn(path, frame.get(), QSize(200, 100), quadOf(0, 0, 200, 100));
        int darkest = 255;
        for (int y = 0; y < 100; ++y)
            for (int x = 0; x < 600; ++x)
                darkest = std::min<int>(darkest, image.constScanLine(y)[x]);
        EXPECT_GT(darkest, 250);
    }
}

TEST_F(ColourPathTest, ANewPictureReplacesTheOldAndAnotherSizeTheTextures)
{
    GLMoviePainter painter;
    choose(painter, Path::Shader);
    for (int const side : {512, 64, 512}) {
        Frame frame = columns(side, side, 235);
        std::unique_ptr<GLMovieTexture> const texture = textureOf(frame.get(), AV_PIX_FMT_YUV420P);
        painter.forgetPicture();
        for (int const lightness : {255, 128}) {
            texture->update(frame.get(), false);
            beginSurface(side, side);
            painter.updateVideoTexture(*texture);
            painter.draw(quadOf(0, 0, side, side), 1.0);
            EXPECT_NEAR(surface().pixelColor(side - 1, side - 1).lightness(), lightness, 3);
            std::fill_n(frame->data[0], side * frame->linesize[0], uint8_t{126});
        }
    }
}
