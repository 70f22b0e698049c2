// What mouse and keys do to the carousel.

#include "GLCarousel.h"

#include <QGuiApplication>
#include <QKeyEvent>
#include <QStyleHints>
#include <QWheelEvent>

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

namespace
{

constexpr int pageStep = 5;          ///< Slides.
constexpr double slideNotch = 120.0; ///< Eighths of a degree.

} // namespace

void GLCarousel::mousePress(QPointF point)
{
    _isPressed = true;
    _isDragged = false;
    _pressPoint = point;
    _pressPosition = _position.value();
    _position.stop();
}

void GLCarousel::mouseDrag(QPointF point)
{
    if (!_isPressed)
        return;
    double const moved = point.x() - _pressPoint.x();
    _isDragged |= std::abs(moved) >= QGuiApplication::styleHints()->startDragDistance();
    if (!_isDragged)
        return;
    double const wanted = _pressPosition - moved / pixelsPerSlide(_surface);
    _position.setValue(std::clamp(wanted, -0.5, std::max(0, count() - 1) + 0.5));
    emit changed();
}

void GLCarousel::mouseHover(QPointF point)
{
    setHovered(slideAt(point));
}

void GLCarousel::mouseRelease(QPointF point, bool isModifierHeld)
{
    if (!std::exchange(_isPressed, false))
        return;
    if (_isDragged) {
        moveTo(static_cast<int>(std::lround(_position.value())));
        return;
    }
    GLCarouselSlide const* const slide = slideAt(point);
    if (!slide)
        moveTo(_target); // A press has held it on its way.
    else if (slide->rootId() == _activeChannel)
        openActive(isModifierHeld);
    else
        for (auto const& [index, each] : _slides)
            if (each.get() == slide) {
                moveTo(index);
                return;
            }
}

void GLCarousel::mouseCancel()
{
    if (std::exchange(_isPressed, false) && _isEntered)
        moveTo(static_cast<int>(std::lround(_position.value())));
}

void GLCarousel::wheel(QWheelEvent const* event)
{
    QPoint const turned = event->angleDelta();
    _wheelRest += (turned.y() != 0 ? turned.y() : turned.x()) / slideNotch;
    int const notches = static_cast<int>(_wheelRest);
    _wheelRest -= notches;
    if (notches != 0)
        step(-notches);
}

bool GLCarousel::wantsKey(QKeyEvent const* event)
{
    constexpr std::array keys = {Qt::Key_Left,   Qt::Key_Right, Qt::Key_Up,    Qt::Key_Down,
                                 Qt::Key_PageUp, Qt::Key_Home,  Qt::Key_End,   Qt::Key_PageDown,
                                 Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space, Qt::Key_Escape};
    Qt::KeyboardModifiers const others = event->modifiers() & ~Qt::KeypadModifier;
    bool const opens = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    return (others == Qt::NoModifier || (opens && others == Qt::ControlModifier)) &&
           std::ranges::find(keys, event->key()) != keys.end();
}

bool GLCarousel::keyPress(QKeyEvent const* event)
{
    if (!wantsKey(event))
        return false;
    switch (event->key()) {
    case Qt::Key_Left:
    case Qt::Key_Up:
        step(-1);
        break;
    case Qt::Key_Right:
    case Qt::Key_Down:
        step(1);
        break;
    case Qt::Key_PageUp:
        step(-pageStep);
        break;
    case Qt::Key_PageDown:
        step(pageStep);
        break;
    case Qt::Key_Home:
        moveTo(0);
        break;
    case Qt::Key_End:
        moveTo(count() - 1);
        break;
    case Qt::Key_Escape:
        emit left();
        break;
    default:
        if (!event->isAutoRepeat())
            openActive(event->modifiers().testFlag(Qt::ControlModifier));
    }
    return true;
}

GLCarouselSlide* GLCarousel::slideAt(QPointF point) const
{
    // The nearer one to the middle lies over the others.
    GLCarouselSlide* found = nullptr;
    double nearestSoFar = 0.0;
    for (auto const& [index, slide] : _slides) {
        double const away = std::abs(index - _position.value());
        if (slide->hitTest(point) && (!found || away < nearestSoFar)) {
            found = slide.get();
            nearestSoFar = away;
        }
    }
    return found;
}

void GLCarousel::setHovered(GLCarouselSlide* slide)
{
    GLCarouselSlide* const before = std::exchange(_hovered, slide);
    if (before == slide)
        return;
    if (before)
        emit mouseLeftSlide(before);
    if (slide)
        emit mouseEnteredSlide(slide);
}
