#pragma once

#include <QImage>
#include <QOffscreenSurface>
#include <QOpenGLContext>
#include <QOpenGLFramebufferObject>

#include <gmock/gmock.h>
#include <memory>

/// A current OpenGL context with all extensions initialised, and a surface of its own to draw on and read back.
class GLTest : public testing::Test
{
protected:
    void SetUp() override;
    void TearDown() override;

    /// Makes a cleared surface of this size, with a projection in pixels, y downward.
    void beginSurface(int width, int height, QColor const& background = Qt::black);

    /// What was drawn.
    QImage surface() const;

    QOpenGLContext _context;
    QOffscreenSurface _offscreen;
    std::unique_ptr<QOpenGLFramebufferObject> _surface;
};

/// The peak signal to noise ratio of two pictures of one size in dB; 100 for equal ones.
double psnr(QImage const& one, QImage const& other);
