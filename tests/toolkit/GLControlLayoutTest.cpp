#include "GLControlLayout.h"

#include "GLControl.h"

#include <QMouseEvent>

#include <gmock/gmock.h>
#include <memory>
#include <string>
#include <utility>
#include <vector>

using testing::ElementsAre;

namespace
{

class GLControlLayoutTest : public testing::Test
{
protected:
    /// Below "video" lies over everything; above it "bar" at (100, 50), size 200 x 100, holds "button" at its (10,
    /// 10), size 30 x 30.
    void SetUp() override
    {
        add(_video, QRectF(0, 0, 400, 300));
        add(_bar, QRectF(100, 50, 200, 100));
        add(_button, QRectF(10, 10, 30, 30));
        _layout.addControl(&_video);
        _layout.addControl(&_bar);
        _bar.addControl(&_button);
    }

    void add(GLControl& control, QRectF const& geometry)
    {
        control.setGeometry(geometry);
        auto const note = [this](char const* what) {
            return [this, what](GLControl* one) { _heard.push_back(what + one->name().toStdString()); };
        };
        auto const place = [this](char const* what) {
            return [this, what](GLControl* one, QPointF point) {
                _heard.push_back(
                    QString("%1%2 %3,%4").arg(what, one->name()).arg(point.x()).arg(point.y()).toStdString());
            };
        };
        QObject::connect(&control, &GLControl::mouseEntered, note("+"));
        QObject::connect(&control, &GLControl::mouseLeft, note("-"));
        QObject::connect(&control, &GLControl::mousePressed, place("press "));
        QObject::connect(&control, &GLControl::mouseMoved, place("move "));
        QObject::connect(&control, &GLControl::mouseReleased, place("release "));
    }

    bool press(double x, double y) { return mouse(QEvent::MouseButtonPress, {x, y}, Qt::LeftButton); }
    bool move(double x, double y) { return mouse(QEvent::MouseMove, {x, y}, Qt::NoButton); }
    bool release(double x, double y) { return mouse(QEvent::MouseButtonRelease, {x, y}, Qt::NoButton); }
    bool mouse(QEvent::Type type, QPointF point, Qt::MouseButtons buttons)
    {
        QMouseEvent event(type, point, point, Qt::LeftButton, buttons, Qt::NoModifier);
        if (type == QEvent::MouseButtonPress)
            return _layout.mousePress(point, &event);
        return type == QEvent::MouseMove ? _layout.mouseMove(point, &event) : _layout.mouseRelease(point, &event);
    }
    std::vector<std::string> heard() { return std::exchange(_heard, {}); }

    GLControlLayout _layout;
    GLControl _video{"video"};
    GLControl _bar{"bar"};
    GLControl _button{"button"};
    std::vector<std::string> _heard;
};

} // namespace

TEST_F(GLControlLayoutTest, FindsTheTopmostVisibleControl)
{
    std::pair<QPointF, GLControl*> const cases[] = {
        {{399.5, 299.5}, &_video}, {{400, 10}, nullptr},      {{100, 50}, &_bar}, {{300, 100}, &_video},
        {{110, 60}, &_button},     {{139.9, 89.9}, &_button}, {{140, 60}, &_bar}};
    for (auto const& [point, control] : cases)
        EXPECT_EQ(_layout.controlAt(point), control) << point.x() << "," << point.y();
    _bar.setVisible(false);
    EXPECT_EQ(_layout.controlAt({120, 70}), &_video);
}

TEST_F(GLControlLayoutTest, TellsEnteringAndLeavingWithHolders)
{
    move(10, 10);
    EXPECT_THAT(heard(), ElementsAre("+video", "move video 10,10"));
    move(120, 70);
    EXPECT_THAT(heard(), ElementsAre("-video", "+bar", "+button", "move button 20,20"));
    move(250, 70);
    EXPECT_THAT(heard(), ElementsAre("-button", "move bar 250,70"));
    _layout.leave();
    EXPECT_THAT(heard(), ElementsAre("-bar"));
}

TEST_F(GLControlLayoutTest, ThePressedControlKeepsTheMouse)
{
    press(120, 70);
    heard();
    EXPECT_TRUE(mouse(QEvent::MouseMove, {350, 250}, Qt::LeftButton));
    EXPECT_THAT(heard(), ElementsAre("-button", "-bar", "+video", "move button 250,200"));
    EXPECT_TRUE(release(350, 250));
    EXPECT_THAT(heard(), ElementsAre("release button 250,200"));
    EXPECT_FALSE(release(350, 250));
    move(350, 250);
    EXPECT_THAT(heard(), ElementsAre("move video 350,250"));
}
