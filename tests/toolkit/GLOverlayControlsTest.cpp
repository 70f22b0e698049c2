#include "GLButtonControl.h"
#include "GLControlLayout.h"
#include "GLLabelControl.h"
#include "GLPadControl.h"
#include "GLPanelControl.h"
#include "GLProgressIndicator.h"
#include "GLVolumeControl.h"

#include <QGuiApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QSignalSpy>
#include <QWheelEvent>

#include <cmath>
#include <gmock/gmock.h>
#include <memory>

using testing::ElementsAre;
using testing::IsEmpty;

namespace
{

/// A bar at (10, 10), size 200 x 40, on a surface of 300 x 100, with a button of 40 x 40 and a slider of 100 x 40.
class GLOverlayControlsTest : public testing::Test
{
protected:
    void SetUp() override
    {
        _layout.setSize({300, 100});
        _bar->setGeometry({10, 10, 200, 40});
        _button->setGeometry({0, 0, 40, 40});
        _volume->setGeometry({50, 0, 112, 40}); // The line is 100 long, between two halves of the handle.
        _bar->addControl(_button.get());
        _bar->addControl(_volume.get());
        _layout.addControl(_bar.get());
    }
    void TearDown() override { QGuiApplication::setLayoutDirection(Qt::LeftToRight); }

    void mouse(QEvent::Type type, QPointF point)
    {
        bool const isUp = type == QEvent::MouseButtonRelease;
        QMouseEvent event(type, point, point, Qt::LeftButton, isUp ? Qt::NoButton : Qt::LeftButton, Qt::NoModifier);
        if (isUp)
            _layout.mouseRelease(point, &event);
        else if (type == QEvent::MouseMove)
            _layout.mouseMove(point, &event);
        else
            _layout.mousePress(point, &event);
    }
    void press(double x) { mouse(QEvent::MouseButtonPress, {x, 30}); }
    void move(double x) { mouse(QEvent::MouseMove, {x, 30}); }
    void release(double x) { mouse(QEvent::MouseButtonRelease, {x, 30}); }
    void wheel(double x, int notches)
    {
        QWheelEvent event({x, 30}, {x, 30}, {}, {0, notches * 120}, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase,
                          false);
        _layout.mouseWheel({x, 30}, &event);
    }
    bool key(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QKeyEvent down(QEvent::KeyPress, key, modifiers);
        QKeyEvent up(QEvent::KeyRelease, key, modifiers);
        bool const isTaken = _layout.keyPress(&down);
        _layout.keyRelease(&up);
        return isTaken;
    }

    GLControlStyle _style;
    GLControlLayout _layout;
    std::unique_ptr<GLPanelControl> _bar = std::make_unique<GLPanelControl>("bar", _style);
    std::unique_ptr<GLButtonControl> _button = std::make_unique<GLButtonControl>("button", _style);
    std::unique_ptr<GLVolumeControl> _volume = std::make_unique<GLVolumeControl>("volume", _style);
};

} // namespace

TEST_F(GLOverlayControlsTest, AButtonIsClickedByAReleaseOnItAndByKeys)
{
    QSignalSpy const clicks(_button.get(), &GLButtonControl::clicked);
    press(30), release(30);
    EXPECT_EQ(clicks.size(), 1);
    press(30), move(250), release(250);
    EXPECT_EQ(clicks.size(), 1) << "the pointer has left it";
    _layout.setFocus(_button.get(), true);
    EXPECT_TRUE(key(Qt::Key_Space));
    EXPECT_TRUE(key(Qt::Key_Return));
    EXPECT_FALSE(key(Qt::Key_Space, Qt::ControlModifier)) << "somebody's shortcut";
    EXPECT_EQ(clicks.size(), 3);
    _button->setEnabled(false);
    press(30), release(30);
    EXPECT_EQ(clicks.size(), 3);
}

TEST_F(GLOverlayControlsTest, AButtonMayGoWithItsClick)
{
    QObject::connect(_button.get(), &GLButtonControl::clicked, [this] { _button.reset(); });
    press(30), release(30);
    EXPECT_EQ(_button, nullptr);
    move(35);
    EXPECT_EQ(_bar->controls().size(), 1);
}

TEST_F(GLOverlayControlsTest, ASliderIsDraggedTurnedAndStepped)
{
    QSignalSpy const released(_volume.get(), &GLValueControl::valueReleased);
    _volume->setValue(0.5);
    press(66 + 25); // 66 is where the line begins.
    EXPECT_DOUBLE_EQ(_volume->value(), 0.25);
    move(66 + 75);
    _volume->setValue(0.1);
    EXPECT_DOUBLE_EQ(_volume->value(), 0.75) << "nobody pulls it from under the pointer";
    move(1000);
    EXPECT_DOUBLE_EQ(_volume->value(), 1.0);
    EXPECT_EQ(released.size(), 0);
    release(1000);
    EXPECT_EQ(released.size(), 1);
    wheel(100, -2);
    EXPECT_DOUBLE_EQ(_volume->value(), 0.9);
    _layout.setFocus(_volume.get());
    key(Qt::Key_Left);
    EXPECT_DOUBLE_EQ(_volume->value(), 0.85);
    key(Qt::Key_Home), key(Qt::Key_Down);
    EXPECT_DOUBLE_EQ(_volume->value(), 0.0);
    EXPECT_FALSE(key(Qt::Key_Up, Qt::ControlModifier));
    QGuiApplication::setLayoutDirection(Qt::RightToLeft);
    press(66 + 25), release(66 + 25);
    EXPECT_DOUBLE_EQ(_volume->value(), 0.75);
    key(Qt::Key_Left);
    EXPECT_DOUBLE_EQ(_volume->value(), 0.8);
}

TEST_F(GLOverlayControlsTest, ADragWhoseReleaseGoesElsewhereHasEnded)
{
    QSignalSpy const released(_volume.get(), &GLValueControl::valueReleased);
    press(66 + 25);
    QPointF const place(66 + 75, 30);
    QMouseEvent rest(QEvent::MouseMove, place, place, Qt::NoButton, Qt::NoButton, Qt::NoModifier);
    _layout.mouseMove(place, &rest); // Nobody has told of the release.
    EXPECT_DOUBLE_EQ(_volume->value(), 0.25);
    EXPECT_FALSE(_volume->isDragged());
    press(66 + 50);
    _volume->setEnabled(false); // Not told of it either.
    release(66 + 50);
    _volume->setEnabled(true);
    move(66 + 75);
    EXPECT_DOUBLE_EQ(_volume->value(), 0.5);
    EXPECT_EQ(released.size(), 0);
}

TEST_F(GLOverlayControlsTest, WhatGoesFromBelowThePointerIsLeftAndLosesTheFocus)
{
    QSignalSpy const left(_bar.get(), &GLControl::mouseLeft);
    move(30);
    _layout.setFocus(_button.get(), true);
    _bar->setGeometry({10, 50, 200, 40});
    QCoreApplication::processEvents();
    EXPECT_EQ(left.size(), 1) << "it has moved away";
    EXPECT_EQ(_layout.focus(), _button.get());
    _button->setVisible(false);
    QCoreApplication::processEvents();
    EXPECT_EQ(_layout.focus(), _bar.get());
    EXPECT_FALSE(_button->showsFocus());
    _layout.placePointer({30, 70});
    EXPECT_EQ(left.size(), 1);
    _bar->setVisible(false);
    QCoreApplication::processEvents();
    EXPECT_EQ(left.size(), 2);
}

TEST_F(GLOverlayControlsTest, ControlsAreDrawnOnDevicePixels)
{
    _bar->setGeometry({10, 11, 181, 41}); // At 15, 16.5, 286.5 and 78 device pixels.
    _layout.setSize({300, 100}, 1.5);
    GLPatch const patch = _layout.patches().constFirst();
    EXPECT_EQ(patch.place, QPoint(15, 17));
    EXPECT_EQ(_bar->image().size(), QSize(272, 61));
    QRectF const drawn = _bar->drawnGeometry();
    EXPECT_NEAR(drawn.top() * 1.5, 17.0, 1e-9);
    EXPECT_NEAR(drawn.width() * 1.5, 272.0, 1e-9);
}

TEST_F(GLOverlayControlsTest, TheFocusGoesThroughWhatCanBeUsed)
{
    EXPECT_TRUE(_layout.focusNext(true));
    EXPECT_EQ(_layout.focus(), _button.get());
    EXPECT_TRUE(_button->showsFocus());
    EXPECT_TRUE(_layout.focusNext(true));
    EXPECT_EQ(_layout.focus(), _volume.get());
    EXPECT_FALSE(_button->isFocused());
    EXPECT_FALSE(_layout.focusNext(true)) << "the end";
    EXPECT_TRUE(_layout.focusNext(false));
    EXPECT_EQ(_layout.focus(), _volume.get()) << "from behind";
    _layout.setFocus(nullptr);
    _button->setVisible(false);
    EXPECT_TRUE(_layout.focusNext(true));
    EXPECT_EQ(_layout.focus(), _volume.get());
    _bar->setVisible(false);
    _layout.setFocus(nullptr);
    EXPECT_FALSE(_layout.focusNext(true));
}

TEST_F(GLOverlayControlsTest, WhatHasNotChangedIsNotPaintedAnew)
{
    QList<GLPatch> const before = _layout.patches();
    ASSERT_EQ(before.size(), 1);
    EXPECT_EQ(before.constFirst().rectangle(), QRect(10, 10, 200, 40));
    QSignalSpy const changes(&_layout, &GLControlLayout::changed);
    _volume->setValue(_volume->value());
    _button->setLabel("Another name");
    EXPECT_TRUE(_layout.patches() == before);
    EXPECT_EQ(changes.size(), 0);
    _volume->setValue(0.5);
    EXPECT_FALSE(_layout.patches() == before);
    EXPECT_GT(changes.size(), 0);
    _layout.setSize({300, 100}, 2.0);
    EXPECT_EQ(_layout.patches().constFirst().rectangle(), QRect(20, 20, 400, 80));
    _bar->fadeOut(0);
    EXPECT_THAT(_layout.patches(), IsEmpty());
}

TEST_F(GLOverlayControlsTest, TheLeastImportantGoFirstAndTheRowIsMirrored)
{
    GLControl a("a");
    GLControl b("b");
    GLControl c("c");
    auto const shown = [&](double width) {
        GLPanelControl::arrange({{.control = &a, .width = 30, .importance = 2},
                                 {.control = &b, .width = 30, .importance = 1, .stretch = 1.0, .gap = 10},
                                 {.control = &c, .width = 30, .importance = 3}},
                                QRectF(0, 0, width, 20));
        std::vector<double> places;
        for (GLControl const* const control : {&a, &b, &c})
            places.push_back(control->isVisible() ? control->geometry().left() : -1.0);
        return places;
    };
    EXPECT_THAT(shown(120), ElementsAre(0, 40, 90));
    EXPECT_EQ(b.geometry().width(), 50) << "the rest is its";
    EXPECT_THAT(shown(80), ElementsAre(0, -1, 30));
    EXPECT_THAT(shown(40), ElementsAre(-1, -1, 0));
    QGuiApplication::setLayoutDirection(Qt::RightToLeft);
    EXPECT_THAT(shown(100), ElementsAre(70, 30, 0));
}

TEST(GLProgressIndicatorTest, TellsTimesAndBuffers)
{
    EXPECT_EQ(GLProgressIndicator::timeText(0.0), "0:00");
    EXPECT_EQ(GLProgressIndicator::timeText(245.9), "4:05");
    EXPECT_EQ(GLProgressIndicator::timeText(3723.0), "1:02:03");
    EXPECT_EQ(GLProgressIndicator::timeText(-3.0), "0:00");
    EXPECT_EQ(GLProgressIndicator::timeText(std::nan("")), "0:00");
    GLProgressIndicator progress("progress", {});
    progress.setGeometry({0, 0, 112, 20});
    progress.showTime(60.0, 3600.0);
    EXPECT_EQ(progress.valueText(), "1:00 of 1:00:00");
    progress.showBuffer(0.5);
    EXPECT_FALSE(progress.isSeekable());
    EXPECT_EQ(progress.valueText(), "Buffer 50 %");
    progress.choose(0.7);
    EXPECT_DOUBLE_EQ(progress.value(), 60.0) << "a live stream goes nowhere";
}

TEST(GLLabelControlTest, NoTitleIsTooLong)
{
    GLLabelControl label("label", {});
    label.setText(QString(10000, 'x') + "\n" + QString(10000, 'y'));
    EXPECT_LE(label.text().size(), 500);
    label.setText("two\nlines");
    EXPECT_EQ(label.text(), "two lines");
}
