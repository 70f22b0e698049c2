#include "GLMovieRenderer.h"

#include <gmock/gmock.h>

TEST(GLMovieRenderer, FitsThePictureIntoTheRectangle)
{
    QRectF const target(10, 20, 800, 600);
    struct {
        GLMovieRenderer::DrawMode mode;
        QSize picture;
        double aspect;
        QRectF expected;
    } const cases[] = {
        {GLMovieRenderer::HalfSize, {320, 240}, 0.0, {330, 260, 160, 120}},
        {GLMovieRenderer::NormalSize, {320, 240}, 0.0, {250, 200, 320, 240}},
        {GLMovieRenderer::NormalSize, {321, 241}, 0.0, {249, 199, 321, 241}},
        {GLMovieRenderer::DoubleSize, {640, 480}, 0.0, {-230, -160, 1280, 960}},
        {GLMovieRenderer::Stretch, {320, 240}, 2.0, {10, 20, 800, 600}},
        {GLMovieRenderer::HalfSize, {322, 240}, 0.0, {329, 260, 162, 120}}, // Even, but for the picture's own width.
        {GLMovieRenderer::TouchInside, {1600, 900}, 0.0, {10, 95, 800, 450}},
        {GLMovieRenderer::TouchInside, {300, 600}, 0.0, {260, 20, 300, 600}},
        {GLMovieRenderer::TouchOutside, {1600, 900}, 0.0, {-124, 20, 1068, 600}},
        // Pixels that are not square: 720 x 576 shown as 16:9.
        {GLMovieRenderer::TouchInside, {720, 576}, 16.0 / 9.0, {10, 95, 800, 450}},
    };
    for (auto const& one : cases) {
        QRectF const rectangle = GLMovieRenderer::computeVideoRectangle(target, one.picture, one.aspect, one.mode);
        EXPECT_EQ(rectangle, one.expected) << "mode " << one.mode << ": " << rectangle.x() << "," << rectangle.y()
                                           << " " << rectangle.width() << " x " << rectangle.height();
    }
    EXPECT_TRUE(GLMovieRenderer::computeVideoRectangle(target, {}, 1.0, GLMovieRenderer::TouchInside).isEmpty());
    EXPECT_TRUE(GLMovieRenderer::computeVideoRectangle({}, {3, 3}, 1.0, GLMovieRenderer::TouchInside).isEmpty());
}
