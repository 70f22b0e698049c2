#include "GLValueControl.h"

#include "GLControlAccessible.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

namespace
{
constexpr double lineHeight = 4.0;   ///< Pixels.
constexpr double handleRadius = 6.0; ///< The same; the line begins and ends so far inside.
constexpr double wheelNotch = 120.0; ///< Eighths of a degree.
} // namespace

GLValueControl::GLValueControl(QString const& name, GLControlStyle const& style, QObject* parent)
    : GLPaintedControl(name, style, parent)
{
    setFocusable(true);
    connect(this, &GLControl::mouseEntered, this, [this] {
        _isHovered = true;
        update();
    });
    connect(this, &GLControl::mouseLeft, this, [this] {
        _isHovered = false;
        update();
    });
}

void GLValueControl::setMaximum(double maximum)
{
    if (maximum == _maximum)
        return;
    _maximum = std::max(0.0, maximum);
    _value = std::min(_value, _maximum);
    update();
}

void GLValueControl::setValue(double value)
{
    double const inside = std::isnan(value) ? 0.0 : std::clamp(value, 0.0, _maximum);
    if (inside == _value || _isDragged)
        return;
    bool const isSeen = std::lround(placeOf(inside) * scale()) != std::lround(placeOf(_value) * scale());
    _value = inside;
    if (isSeen)
        update();
    emit labelChanged(this);
    GLControlAccessible::changed(*this);
}

void GLValueControl::choose(double value)
{
    if (!isEnabled())
        return;
    bool const wasDragged = std::exchange(_isDragged, false);
    setValue(value);
    _isDragged = wasDragged;
    emit valueChosen(_value);
}

QString GLValueControl::valueText() const
{
    return QString::number(_value);
}

double GLValueControl::placeOf(double value) const
{
    double const length = std::max(1.0, geometry().width() - 2.0 * handleRadius);
    double const part = _maximum > 0.0 ? value / _maximum : 0.0;
    return handleRadius + length * (isMirrored() ? 1.0 - part : part);
}

double GLValueControl::valueAt(double x) const
{
    double const length = std::max(1.0, geometry().width() - 2.0 * handleRadius);
    double const part = std::clamp((x - handleRadius) / length, 0.0, 1.0);
    return _maximum * (isMirrored() ? 1.0 - part : part);
}

void GLValueControl::mousePress(QPointF point, QMouseEvent* event)
{
    GLPaintedControl::mousePress(point, event);
    if (event->button() != Qt::LeftButton)
        return;
    _isDragged = true;
    choose(valueAt(point.x() - geometry().left()));
}

void GLValueControl::mouseMove(QPointF point, QMouseEvent* event)
{
    GLPaintedControl::mouseMove(point, event);
    if (_isDragged)
        choose(valueAt(point.x() - geometry().left()));
}

void GLValueControl::mouseRelease(QPointF point, QMouseEvent* event)
{
    GLPaintedControl::mouseRelease(point, event);
    if (event->button() == Qt::LeftButton && std::exchange(_isDragged, false))
        emit valueReleased(_value);
}

void GLValueControl::mouseCancel()
{
    if (std::exchange(_isDragged, false))
        update();
    GLPaintedControl::mouseCancel();
}

void GLValueControl::setEnabled(bool enabled)
{
    if (!enabled)
        _isDragged = _isHovered = false; // It is not told of what follows.
    GLPaintedControl::setEnabled(enabled);
}

void GLValueControl::mouseWheel(QPointF point, QWheelEvent* event)
{
    GLPaintedControl::mouseWheel(point, event);
    QPoint const turn = event->angleDelta();
    int const eighths = turn.y() != 0 ? turn.y() : turn.x();
    if (eighths == 0)
        return;
    choose(_value + _step * eighths / wheelNotch);
    emit valueReleased(_value);
}

bool GLValueControl::wantsKey(QKeyEvent const* event) const
{
    constexpr std::array keys = {Qt::Key_Left, Qt::Key_Right, Qt::Key_Up, Qt::Key_Down, Qt::Key_Home, Qt::Key_End};
    return (event->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier &&
           std::ranges::find(keys, event->key()) != keys.end();
}

void GLValueControl::keyPress(QKeyEvent* event)
{
    if (!wantsKey(event)) {
        event->ignore();
        return;
    }
    GLPaintedControl::keyPress(event);
    int const forward = isMirrored() ? Qt::Key_Left : Qt::Key_Right;
    if (event->key() == Qt::Key_Home)
        choose(0.0);
    else if (event->key() == Qt::Key_End)
        choose(_maximum);
    else
        choose(_value + (event->key() == forward || event->key() == Qt::Key_Up ? _step : -_step));
    emit valueReleased(_value);
}

void GLValueControl::keyRelease(QKeyEvent* event)
{
    if (wantsKey(event))
        GLPaintedControl::keyRelease(event);
    else
        event->ignore();
}

void GLValueControl::draw(QPainter& painter, QSizeF const& size)
{
    double const middle = size.height() / 2.0;
    double const begin = placeOf(0.0);
    double const at = placeOf(_value);
    auto const line = [&](double from, double to, QColor const& fill) {
        painter.setBrush(fill);
        painter.drawRoundedRect(
            QRectF(std::min(from, to), middle - lineHeight / 2.0, std::abs(to - from), lineHeight), lineHeight / 2.0,
            lineHeight / 2.0);
    };
    painter.setPen(Qt::NoPen);
    line(begin, placeOf(_maximum), style().line);
    if (!isEnabled())
        return;
    line(begin, at, colour());
    painter.setBrush(_isHovered || _isDragged || showsFocus() ? Qt::white : colour());
    double const radius = _isHovered || _isDragged || showsFocus() ? handleRadius : handleRadius - 1.0;
    painter.drawEllipse(QPointF(at, middle), radius, radius);
    drawFocus(painter, QRectF(QPointF(), size));
}
