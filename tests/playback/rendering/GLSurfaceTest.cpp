#include "GLSurface.h"

#include "PaintPacer.h"

#include <QElapsedTimer>
#include <QImage>
#include <QOpenGLContext>
#include <QOpenGLFunctions>
#include <QScreen>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>
#include <QWidget>
#include <QWindow>

#include <gmock/gmock.h>

namespace
{

class NativeWidget : public QWidget
{
    QPaintEngine* paintEngine() const override { return nullptr; }
};

/// A native widget without painting of its own, as the surface of the program is, within a window.
class GLSurfaceTest : public testing::Test
{
protected:
    void SetUp() override
    {
        QObject::connect(&_surface, &GLSurface::windowChanged, &_surface, [this] { ++_windows; });
        for (Qt::WidgetAttribute const attribute :
             {Qt::WA_NativeWindow, Qt::WA_DontCreateNativeAncestors, Qt::WA_PaintOnScreen, Qt::WA_NoSystemBackground})
            _widget->setAttribute(attribute);
        (new QVBoxLayout(&_window))->addWidget(_widget);
        _window.setGeometry(30, 30, 120, 90);
        _window.show();
        ASSERT_TRUE(_surface.create(false));
        _surface.context()->functions()->glGenTextures(1, &_texture);
        _surface.context()->functions()->glBindTexture(GL_TEXTURE_2D, _texture);
    }

    bool isExposed()
    {
        return QTest::qWaitFor([this] { return _surface.isExposed(); });
    }

    /// Draws a colour, and tells whether it comes to be seen.
    bool shows(QColor const& colour)
    {
        return isExposed() && QTest::qWaitFor([&] {
                   if (!_surface.makeCurrent())
                       return false;
                   QOpenGLFunctions* const gl = _surface.context()->functions();
                   gl->glClearColor(colour.redF(), colour.greenF(), colour.blueF(), 1.0F);
                   gl->glClear(GL_COLOR_BUFFER_BIT);
                   _surface.swapBuffers();
                   QPoint const amid = _widget->mapToGlobal(_widget->rect().center());
                   return _window.screen()->grabWindow(0, amid.x(), amid.y(), 1, 1).toImage().pixelColor(0, 0) ==
                          colour;
               });
    }

    QWidget _window;
    QWidget* _widget = new NativeWidget;
    GLSurface _surface{*_widget};
    int _windows = 0;
    GLuint _texture = 0;
};

} // namespace

TEST_F(GLSurfaceTest, OutlivesItsNativeWindow)
{
    EXPECT_TRUE(shows(Qt::red));
    EXPECT_EQ(_windows, 1);

    _window.setWindowFlag(Qt::WindowStaysOnTopHint); // Makes all native windows anew.
    _window.show();
    EXPECT_TRUE(shows(Qt::green));
    QWidget other;
    other.setGeometry(200, 30, 120, 90);
    (new QVBoxLayout(&other))->addWidget(_widget);
    other.show();
    EXPECT_TRUE(shows(Qt::blue));
    EXPECT_TRUE(_surface.context()->functions()->glIsTexture(_texture)) << "The context has to be the same";

    _window.layout()->addWidget(_widget);
    EXPECT_TRUE(shows(Qt::red));
    EXPECT_GE(_windows, 2) << "A presenter has to be told";
}

TEST_F(GLSurfaceTest, IsNotExposedInAWindowThatIsNotOnTheScreen)
{
    ASSERT_TRUE(isExposed());
    _window.hide();
    EXPECT_TRUE(QTest::qWaitFor([this] { return !_surface.isExposed(); }));
    _window.show();
    EXPECT_TRUE(shows(Qt::green));
    // Minimising is a request to the window manager, if there is one.
    _window.setWindowState(Qt::WindowMinimized);
    EXPECT_TRUE(QTest::qWaitFor([this] { return !_surface.isExposed(); }));
}

TEST(PaintPacer, JoinsRequestsWithinAFrameOfTheScreen)
{
    PaintPacer pacer;
    QElapsedTimer time;
    QSignalSpy paints(&pacer, &PaintPacer::paint);
    QObject::connect(&pacer, &PaintPacer::paint, &pacer, &PaintPacer::painted);
    pacer.setRefreshRate(25.0);
    for (int i = 0; i < 5; ++i)
        pacer.request();
    EXPECT_TRUE(paints.count() == 1 || paints.wait());
    EXPECT_EQ(paints.count(), 1);
    time.start();
    pacer.request();
    pacer.request();
    EXPECT_TRUE(paints.wait());
    EXPECT_GE(time.elapsed(), 30) << "Hardly a frame of 40 ms after the one before";
    EXPECT_EQ(paints.count(), 2);
}
