#include "GLMoviePainter.h"
#include "GLMovieQuad.h"
#include "GLMovieShader.h"
#include "GLMovieTexture.h"
#include "GLTest.h"
#include "LogCapture.h"
#include "TestPicture.h"

#include <QOpenGLFunctions>

namespace
{

/// Turns red into green, green into blue, blue into red.
constexpr char const* turn = "uniform sampler2D tex0;void main(){vec4 c = texture2D(tex0, gl_TexCoord[0].xy);"
                             "gl_FragColor = vec4(c.b, c.r, c.g, 1.0);}";
/// Takes all red away.
constexpr char const* noRed = "uniform sampler2D tex0;void main(){vec4 c = texture2D(tex0, gl_TexCoord[0].xy);"
                              "gl_FragColor = vec4(0.0, c.g, c.b, 0.3);}";
/// Shows its uniforms.
constexpr char const* uniforms =
    "uniform sampler2D tex0;uniform vec2 tex0Dimensions, tex0TexelDimensions;uniform float time, random;"
    "void main(){vec2 one = tex0Dimensions * tex0TexelDimensions;"
    "bool sane = time >= 0.0 && time < 1000.0 && random >= 0.0 && random <= 1.0;"
    "gl_FragColor = texture2D(tex0, gl_TexCoord[0].xy) * 0.0 + "
    "vec4(tex0Dimensions.x / 255.0, one.x * one.y * 0.5, sane ? 1.0 : 0.0, 1.0);}";

class PostProcessingTest : public GLTest
{
protected:
    /// Draws the picture through programs.
    QImage drawn(std::initializer_list<GLMovieShader*> shaders, double opacity = 1.0)
    {
        Frame const frame = testPicture(200, 120, AV_PIX_FMT_YUV420P);
        std::unique_ptr<GLMovieTexture> const texture = textureOf(frame.get(), AV_PIX_FMT_RGB24);
        GLMoviePainter painter;
        painter.postProcessor().setEnabled(true);
        for (GLMovieShader* const shader : shaders)
            painter.postProcessor().addProgram(shader->handle());
        beginSurface(200, 120);
        painter.updateVideoTexture(*texture);
        painter.draw({.right = 200.0, .bottom = 120.0}, opacity);
        EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_NO_ERROR));
        return surface();
    }

    static std::unique_ptr<GLMovieShader> compiled(char const* source)
    {
        auto shader = std::make_unique<GLMovieShader>();
        shader->create("test", source);
        EXPECT_TRUE(shader->compile()) << qPrintable(shader->infoLog());
        return shader;
    }

    template<typename Change>
    static QImage changed(QImage image, Change change)
    {
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                image.setPixelColor(x, y, change(image.pixelColor(x, y)));
        return image;
    }
};

} // namespace

TEST_F(PostProcessingTest, ShadersRunInTheirOrder)
{
    auto const first = compiled(turn);
    auto const second = compiled(noRed);
    QImage const plain = drawn({});
    EXPECT_GT(psnr(drawn({first.get(), second.get()}),
                   changed(plain, [](QColor c) { return QColor(0, c.red(), c.green()); })),
              60.0);
    EXPECT_GT(psnr(drawn({second.get(), first.get()}),
                   changed(plain, [](QColor c) { return QColor(c.blue(), 0, c.green()); })),
              60.0);
}

TEST_F(PostProcessingTest, OpacityComesAfterTheChain)
{
    auto const shader = compiled(turn);
    EXPECT_GT(psnr(drawn({shader.get()}, 0.5),
                   changed(drawn({}), [](QColor c) { return QColor(c.blue() / 2, c.red() / 2, c.green() / 2); })),
              48.0);
}

TEST_F(PostProcessingTest, ShadersKnowSizeTimeAndChance)
{
    auto const shader = compiled(uniforms);
    QColor const colour = drawn({shader.get()}).pixelColor(100, 60);
    EXPECT_NEAR(colour.red(), 200, 1);
    EXPECT_NEAR(colour.green(), 127, 1);
    EXPECT_EQ(colour.blue(), 255);
}

TEST_F(PostProcessingTest, AShaderThatDoesNotCompileSaysWhyAndKeepsTheOldProgram)
{
    LogCapture log;
    auto const shader = compiled(turn);
    unsigned int const handle = shader->handle();
    shader->create("broken", "void main() { this is no shader; }");
    EXPECT_FALSE(shader->compile());
    EXPECT_FALSE(shader->infoLog().isEmpty());
    EXPECT_TRUE(log.contains("\"broken\" failed to compile"));
    EXPECT_EQ(shader->handle(), handle);
    EXPECT_GT(psnr(drawn({shader.get()}), drawn({})), 0.0);
    EXPECT_FALSE(shader->bindUniform1f("nonesuch", 1.0F));
}

TEST_F(PostProcessingTest, ProgramsAndBuffersGoWithoutACurrentContext)
{
    auto shader = compiled(turn);
    unsigned int const handle = shader->handle();
    _context.doneCurrent();
    shader.reset();
    EXPECT_EQ(QOpenGLContext::currentContext(), nullptr);
    ASSERT_TRUE(_context.makeCurrent(&_offscreen));
    EXPECT_FALSE(_context.functions()->glIsProgram(handle));
}
