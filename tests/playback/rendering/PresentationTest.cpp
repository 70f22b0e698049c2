#include "GLMoviePainter.h"
#include "GLMoviePresenter.h"
#include "GLMovieQuad.h"
#include "GLMovieRenderer.h"
#include "GLMovieShader.h"
#include "GLMovieTexture.h"
#include "GLTest.h"
#include "TestPicture.h"

#include <QScreen>
#include <QTest>
#include <QWindow>

namespace
{

/// A window of its own on the screen, and the same pictures drawn in it by OpenGL.
class PresentationTest : public GLTest
{
protected:
    void SetUp() override
    {
        GLTest::SetUp();
        ASSERT_TRUE(GLMovieRenderer::createYUVtoRGBShaderProgram(&_shader));
        _window.setFlag(Qt::BypassWindowManagerHint);
        _window.setGeometry(20, 20, surfaceSize.width(), surfaceSize.height());
        _window.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&_window));
        ASSERT_TRUE(_presenter.setWindow(static_cast<xcb_window_t>(_window.winId())));
    }

    /// Presents until the server takes it.
    void present(std::vector<GLMoviePicture> const& pictures)
    {
        GLMoviePresenter::Result result = GLMoviePresenter::Result::Later;
        EXPECT_TRUE(QTest::qWaitFor([&] {
            result = _presenter.present(surfaceSize, pictures);
            return result != GLMoviePresenter::Result::Later;
        }));
        EXPECT_EQ(result, GLMoviePresenter::Result::Shown);
    }

    QImage seen()
    {
        return _window.screen()
            ->grabWindow(0, 20, 20, surfaceSize.width(), surfaceSize.height())
            .toImage()
            .convertToFormat(QImage::Format_RGB888);
    }

    QImage drawnByOpenGL(std::vector<GLMoviePicture> const& pictures)
    {
        beginSurface(surfaceSize.width(), surfaceSize.height());
        for (GLMoviePicture const& picture : pictures) {
            GLMoviePainter painter;
            painter.setSmoothChroma(false);
            painter.setColourConversionShaderProgram(_shader.handle());
            painter.updateVideoTexture(*picture.texture);
            painter.draw(quadFor(picture), 1.0);
        }
        return surface();
    }

    static GLMovieQuad quadFor(GLMoviePicture const& picture)
    {
        QRectF const whole = picture.rectangle;
        QRectF const seen = picture.visible;
        return {.left = seen.left(),
                .top = seen.top(),
                .right = seen.right(),
                .bottom = seen.bottom(),
                .part =
                    QRectF((seen.left() - whole.left()) / whole.width(), (seen.top() - whole.top()) / whole.height(),
                           seen.width() / whole.width(), seen.height() / whole.height())};
    }

    static constexpr QSize surfaceSize{501, 303};
    GLMovieShader _shader;
    QWindow _window;
    GLMoviePresenter _presenter;
};

} // namespace

TEST_F(PresentationTest, ShowsPicturesAsOpenGLDoes)
{
    QRect const all(QPoint(0, 0), surfaceSize);
    struct {
        char const* name;
        QSize picture;
        QRect rectangle;
        QRect area;
        AVPixelFormat format;
        double psnr;
    } const cases[] = {
        {"its own size, cut at odd places", {640, 360}, {-69, -29, 640, 360}, all, AV_PIX_FMT_YUV420P, 40.0},
        {"converted beforehand", {320, 180}, {90, 61, 320, 180}, all, AV_PIX_FMT_RGB24, 50.0},
        {"enlarged and cut", {320, 180}, {100, 51, 440, 248}, {100, 51, 333, 111}, AV_PIX_FMT_YUV420P, 40.0},
        {"reduced", {640, 360}, {60, 20, 382, 214}, all, AV_PIX_FMT_YUV420P, 34.0},
    };
    for (auto const& one : cases) {
        SCOPED_TRACE(one.name);
        Frame const frame = testPicture(one.picture.width(), one.picture.height(), AV_PIX_FMT_YUV420P);
        frame->colorspace = AVCOL_SPC_BT709;
        auto const texture = textureOf(frame.get(), one.format);
        std::vector<GLMoviePicture> const pictures{
            {.texture = texture.get(), .rectangle = one.rectangle, .visible = one.rectangle.intersected(one.area)}};
        present(pictures);
        EXPECT_GE(psnr(seen(), drawnByOpenGL(pictures)), one.psnr);
    }
}

TEST_F(PresentationTest, PaintsWhatIsNewAndAllOfItWhenSomethingElseHasDrawn)
{
    Frame const frame = testPicture(128, 96, AV_PIX_FMT_YUV420P);
    auto const left = textureOf(frame.get(), AV_PIX_FMT_YUV420P);
    auto const right = textureOf(frame.get(), AV_PIX_FMT_YUV420P);
    std::vector<GLMoviePicture> const pictures{{left.get(), {10, 20, 128, 96}, {10, 20, 128, 96}},
                                               {right.get(), {200, 20, 256, 192}, {200, 20, 256, 192}}};
    present(pictures);
    QImage const both = seen();
    Frame const grey = emptyPicture(128, 96, AV_PIX_FMT_YUV420P);
    for (int plane = 0; plane < 3; ++plane)
        std::fill_n(grey->data[plane], grey->linesize[plane] * (plane == 0 ? 96 : 48), 128);
    left->update(grey.get(), true);
    for (int i = 0; i < 10; ++i) // More often than there is memory to share.
        present(pictures);
    QImage const now = seen();
    EXPECT_NE(now, both);
    EXPECT_EQ(now.copy(150, 0, 351, 303), both.copy(150, 0, 351, 303));
    EXPECT_NEAR(now.pixelColor(74, 68).green(), 130, 2);

    present({pictures[1]});
    EXPECT_EQ(seen().pixelColor(74, 68), QColor(Qt::black));
    _presenter.forget();
    present(pictures);
    EXPECT_EQ(seen(), now);
}
