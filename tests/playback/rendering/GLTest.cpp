#include "GLTest.h"

#include "GLExtensions.h"

#include <cmath>

void GLTest::SetUp()
{
    ASSERT_TRUE(_context.create());
    _offscreen.create();
    ASSERT_TRUE(_context.makeCurrent(&_offscreen));
    initGLExtensions(&_context);
}

void GLTest::TearDown()
{
    _surface.reset();
    _context.doneCurrent();
}

void GLTest::beginSurface(int width, int height, QColor const& background)
{
    _surface = std::make_unique<QOpenGLFramebufferObject>(width, height);
    ASSERT_TRUE(_surface->bind());
    glViewport(0, 0, width, height);
    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();
    glOrtho(0.0, width, height, 0.0, -1.0, 1.0);
    glMatrixMode(GL_MODELVIEW);
    glLoadIdentity();
    glClearColor(background.redF(), background.greenF(), background.blueF(), 1.0F);
    glClear(GL_COLOR_BUFFER_BIT);
}

QImage GLTest::surface() const
{
    return _surface->toImage().convertToFormat(QImage::Format_RGB888);
}

double psnr(QImage const& one, QImage const& other)
{
    if (one.size() != other.size())
        return 0.0;
    double sum = 0.0;
    for (int y = 0; y < one.height(); ++y)
        for (int x = 0; x < 3 * one.width(); ++x) {
            double const difference = one.constScanLine(y)[x] - other.constScanLine(y)[x];
            sum += difference * difference;
        }
    double const mean = sum / (3.0 * one.width() * one.height());
    return mean == 0.0 ? 100.0 : 10.0 * std::log10(255.0 * 255.0 / mean);
}
