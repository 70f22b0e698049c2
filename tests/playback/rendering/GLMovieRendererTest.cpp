#include "GLMovieRenderer.h"

#include "GLMovie.h"
#include "GLMovieShader.h"
#include "GLMovieTexture.h"
#include "GLTest.h"
#include "ScriptedMovieSource.h"

#include <QSignalSpy>
#include <QTest>

#include <QVector3D>

namespace
{

/// Every scripted picture has luma and chroma 80: this, in RGB.
QColor const scriptedColour(0, 132, 0);

class GLMovieRendererTest : public GLTest
{
protected:
    void SetUp() override
    {
        GLTest::SetUp();
        ASSERT_TRUE(GLMovieRenderer::createYUVtoRGBShaderProgram(&_shader));
    }

    /// Opens a live source with pictures, and waits until one can be drawn.
    void showPictures(bool hardware = true)
    {
        _source.addVideo();
        _source.scriptClip(1.0, true, false);
        _source.setLive(true);
        if (hardware)
            _renderer.setColourConversionShaderProgram(_shader.handle());
        _renderer.setUseHardwareColourConversion(true);
        _renderer.open(&_source);
        ASSERT_TRUE(QTest::qWaitFor([this] { return _keyFrames.count() == 1 && _pictures.count() > 0; }));
    }

    QImage drawn()
    {
        beginSurface(200, 100, Qt::blue);
        _renderer.updateVideoTexture();
        _renderer.drawVideoOrthoMode(0, 0, 200, 100, GLMovieRenderer::TouchInside);
        return surface();
    }

    static bool isNear(QColor const& one, QColor const& other)
    {
        return QVector3D(one.red() - other.red(), one.green() - other.green(), one.blue() - other.blue()).length() <
               7;
    }

    GLMovieShader _shader;
    ScriptedMovieSource _source;
    GLMovieRenderer _renderer;
    QSignalSpy _opened{&_renderer, &GLMovieRenderer::opened};
    QSignalSpy _keyFrames{&_renderer, &GLMovieRenderer::firstKeyFrameReceived};
    QSignalSpy _pictures{&_renderer, &GLMovieRenderer::pictureUpdated};
    QSignalSpy _errors{&_renderer, &GLMovieRenderer::error};
    QSignalSpy _fadedIn{&_renderer, &GLMovieRenderer::fadeInCompleted};
    QSignalSpy _fadedOut{&_renderer, &GLMovieRenderer::fadeOutCompleted};
};

} // namespace

TEST_F(GLMovieRendererTest, ShowsThePicturesOfASourceOnTheCard)
{
    showPictures();
    EXPECT_EQ(_opened.count(), 1);
    EXPECT_EQ(_renderer.movieSize(), QSize(16, 16));
    EXPECT_FALSE(_renderer.isBuffering());
    EXPECT_EQ(_renderer.movie()->texture()->planeCount(), 3);
    QImage const image = drawn();
    EXPECT_TRUE(isNear(image.pixelColor(100, 50), scriptedColour));
    EXPECT_TRUE(isNear(image.pixelColor(51, 1), scriptedColour));
    EXPECT_EQ(image.pixelColor(48, 50), QColor(Qt::blue));
    EXPECT_TRUE(_renderer.hitTest({100, 50}));
    EXPECT_FALSE(_renderer.hitTest({40, 50}));
}

TEST_F(GLMovieRendererTest, WithoutAProgramThePictureIsConvertedBeforehand)
{
    showPictures(false);
    EXPECT_EQ(_renderer.movie()->texture()->planeCount(), 1);
    EXPECT_TRUE(isNear(drawn().pixelColor(100, 50), scriptedColour));
}

TEST_F(GLMovieRendererTest, APictureLargerThanItsPlaceIsCut)
{
    showPictures();
    beginSurface(200, 100, Qt::blue);
    _renderer.updateVideoTexture();
    _renderer.drawVideoOrthoMode(20, 10, 100, 50, GLMovieRenderer::TouchOutside);
    QImage const image = surface();
    for (QPoint const inside : {QPoint(21, 11), QPoint(118, 58)})
        EXPECT_TRUE(isNear(image.pixelColor(inside), scriptedColour));
    for (QPoint const outside : {QPoint(18, 30), QPoint(122, 30), QPoint(60, 8), QPoint(60, 62)})
        EXPECT_EQ(image.pixelColor(outside), QColor(Qt::blue));
}

TEST_F(GLMovieRendererTest, AFadeBeginsWithTheFirstPicture)
{
    constexpr int longFade = 3600000; // Of which a test sees the very beginning only.
    _renderer.fadeIn(longFade, 0.5, true, true);
    _renderer.fadeIn(longFade, 0.5, false, true); // As when the channel becomes the active one.
    EXPECT_FALSE(_renderer.isFading());
    showPictures();
    EXPECT_TRUE(_renderer.isFading());
    _renderer.fadeIn(longFade, 0.5, false, true);
    EXPECT_TRUE(_renderer.isFading());
    EXPECT_TRUE(isNear(drawn().pixelColor(100, 50), Qt::blue));
    _renderer.fadeOut(longFade, true, false);
    EXPECT_TRUE(_fadedIn.isEmpty());
    _renderer.fadeIn(0, 0.5, false, true);
    EXPECT_EQ(_fadedIn.count(), 1) << "For sound that the film does not have nobody waits";
    EXPECT_FALSE(_renderer.isFading()) << "A fade out ends with the next fade in";
    EXPECT_TRUE(isNear(drawn().pixelColor(100, 50), scriptedColour));
    _renderer.setOpacity(0.5);
    EXPECT_TRUE(isNear(drawn().pixelColor(100, 50), QColor(0, 66, 128)));
    EXPECT_DOUBLE_EQ(_renderer.movie()->volume(), 0.0) << "There has been no sound to fade in";

    _renderer.setOpacity(1.0);
    QColor const full = drawn().pixelColor(100, 50);
    _renderer.fadeOut(20000, true, false);
    ASSERT_TRUE(QTest::qWaitFor([&] { return drawn().pixelColor(100, 50) != full; }));
    _renderer.fadeIn(longFade, 0.5, true, true);
    EXPECT_FALSE(isNear(drawn().pixelColor(100, 50), Qt::blue)) << "It turns around where it is";
    _renderer.fadeOut(50, true, true);
    EXPECT_TRUE(_fadedOut.isEmpty());
    ASSERT_TRUE(QTest::qWaitFor([this] { return !_renderer.isFading(); }));
    EXPECT_EQ(_fadedOut.count(), 1);
    EXPECT_EQ(drawn().pixelColor(100, 50), QColor(Qt::blue));
    _renderer.fadeIn(50, 0.5, true, false);
    ASSERT_TRUE(_renderer.isFading());
    ASSERT_TRUE(QTest::qWaitFor([this] { return !_renderer.isFading(); }));
    EXPECT_TRUE(isNear(drawn().pixelColor(100, 50), scriptedColour));
    EXPECT_DOUBLE_EQ(_renderer.movie()->volume(), 0.5);
    EXPECT_EQ(_fadedIn.count(), 2);
    EXPECT_EQ(_fadedOut.count(), 1);
}

TEST_F(GLMovieRendererTest, FailuresReachTheViewerInWords)
{
    _renderer.open(&_source); // Without any stream.
    ASSERT_TRUE(QTest::qWaitFor([this] { return _errors.count() == 1; }));
    EXPECT_EQ(_errors.constFirst().at(1).toString(), "No video or audio streams found. Cannot play");
    emit _source.error(&_source, "Stream unavailable");
    EXPECT_EQ(_errors.at(1).at(1).toString(), "Stream unavailable");
    EXPECT_EQ(drawn().pixelColor(100, 50), QColor(Qt::blue));
}

TEST_F(GLMovieRendererTest, MayBeClosedByAListenerAndOpenedAgain)
{
    QObject::connect(&_renderer, &GLMovieRenderer::opened, &_renderer, &GLMovieRenderer::close);
    _source.addVideo();
    for (int const times : {1, 2}) {
        _renderer.open(&_source);
        ASSERT_TRUE(QTest::qWaitFor([&] { return _opened.count() == times && !_renderer.isOpen(); }));
        EXPECT_EQ(drawn().pixelColor(100, 50), QColor(Qt::blue));
    }
}
