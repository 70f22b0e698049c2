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
class PostProcessingTest : public GLTest
{
protected:
    /// What programs make of a picture of one colour.
    QColor drawn(std::initializer_list<GLMovieShader*> shaders, double opacity = 1.0)
    {
        Frame const frame = emptyPicture(64, 48, AV_PIX_FMT_YUV444P);
        for (auto const& [plane, value] : {std::pair{0, 120}, {1, 90}, {2, 170}})
            std::fill_n(frame->data[plane], frame->linesize[plane] * 48, static_cast<uint8_t>(value));
        std::unique_ptr<GLMovieTexture> const texture = textureOf(frame.get(), AV_PIX_FMT_RGB24);
        GLMoviePainter painter;
        painter.postProcessor().setEnabled(true);
        for (GLMovieShader* const shader : shaders)
            painter.postProcessor().addProgram(shader->handle());
        beginSurface(64, 48);
        painter.updateVideoTexture(*texture);
        painter.draw({.right = 64.0, .bottom = 48.0}, opacity);
        EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_NO_ERROR));
        return surface().pixelColor(30, 20);
    }

    static std::unique_ptr<GLMovieShader> compiled(char const* source)
    {
        auto shader = std::make_unique<GLMovieShader>();
        shader->create("test", source);
        EXPECT_TRUE(shader->compile()) << qPrintable(shader->infoLog());
        return shader;
    }
};

} // namespace

TEST_F(PostProcessingTest, ShadersRunInTheirOrderAndOpacityComesAfterThem)
{
    auto const first = compiled(turn);
    auto const second = compiled(noRed);
    QColor const plain = drawn({});
    EXPECT_EQ(drawn({first.get(), second.get()}), QColor(0, plain.red(), plain.green()));
    QColor const half = drawn({second.get(), first.get()}, 0.5);
    EXPECT_NEAR(half.red(), plain.blue() / 2, 1);
    EXPECT_EQ(half.green(), 0);
    EXPECT_NEAR(half.blue(), plain.green() / 2, 1);
}

TEST_F(PostProcessingTest, AShaderThatDoesNotCompileKeepsTheOldProgramWhichGoesWithoutACurrentContext)
{
    LogCapture log;
    auto shader = compiled(turn);
    unsigned int const handle = shader->handle();
    shader->create("broken", "void main() { this is no shader; }");
    EXPECT_FALSE(shader->compile());
    EXPECT_FALSE(shader->infoLog().isEmpty());
    EXPECT_TRUE(log.contains("\"broken\" failed to compile"));
    EXPECT_EQ(shader->handle(), handle);
    EXPECT_FALSE(shader->bindUniform1f("nonesuch", 1.0F));
    _context.doneCurrent();
    shader.reset();
    EXPECT_EQ(QOpenGLContext::currentContext(), nullptr);
    ASSERT_TRUE(_context.makeCurrent(&_offscreen));
    EXPECT_FALSE(_context.functions()->glIsProgram(handle));
}
