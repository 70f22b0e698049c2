#include "GLMovieShader.h"

#include "GLTest.h"
#include "LogCapture.h"

#include <QOpenGLFunctions>

using GLMovieShaderTest = GLTest;

TEST_F(GLMovieShaderTest, OneThatDoesNotCompileKeepsTheOldProgramWhichGoesWithoutACurrentContext)
{
    LogCapture log;
    auto shader = std::make_unique<GLMovieShader>();
    shader->create("test", "void main() { gl_FragColor = vec4(1.0); }");
    ASSERT_TRUE(shader->compile()) << qPrintable(shader->infoLog());
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
