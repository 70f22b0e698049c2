#include "GLButtonControl.h"

#include "GLControlAccessible.h"

#include <QFontMetricsF>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>

#include <cmath>
#include <utility>

namespace
{
constexpr double disabledOpacity = 0.4;

bool isPressKey(QKeyEvent const* event)
{
    return event->key() == Qt::Key_Space || event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter ||
           event->key() == Qt::Key_Select;
}
} // namespace

GLButtonControl::GLButtonControl(QString const& name, GLControlStyle const& style, QObject* parent)
    : GLPaintedControl(name, style, parent), _checkedColour(style.accent)
{
    setFocusable(true);
    connect(this, &GLControl::mouseEntered, this, [this] { setHovered(true); });
    connect(this, &GLControl::mouseLeft, this, [this] { setHovered(false); });
}

void GLButtonControl::setIcon(IconPainter icon)
{
    _icon = std::move(icon);
    update();
}

void GLButtonControl::setText(QString const& text)
{
    if (text == _text)
        return;
    _text = text;
    update();
    emit labelChanged(this);
}

void GLButtonControl::setCheckable(bool checkable)
{
    _isCheckable = checkable;
}

void GLButtonControl::setChecked(bool checked)
{
    _isCheckable = true;
    if (std::exchange(_isChecked, checked) != checked) {
        update();
        emit labelChanged(this);
        GLControlAccessible::changed(*this);
    }
}

void GLButtonControl::setCheckedColour(QColor const& colour)
{
    _checkedColour = colour;
    update();
}

void GLButtonControl::setHovered(bool hovered)
{
    if (std::exchange(_isHovered, hovered) != hovered)
        update();
}

void GLButtonControl::setPressed(bool pressed)
{
    if (std::exchange(_isPressed, pressed) != pressed)
        update();
}

void GLButtonControl::setEnabled(bool enabled)
{
    if (!enabled)
        _isPressed = _isHovered = false; // It is not told of what follows.
    GLPaintedControl::setEnabled(enabled);
}

double GLButtonControl::preferredWidth() const
{
    double const text = _text.isEmpty() ? 0.0 : std::ceil(QFontMetricsF(style().font).horizontalAdvance(_text)) + 1.0;
    double const icon = _icon ? style().icon : 0.0;
    return text + icon + style().padding * (_icon && !_text.isEmpty() ? 3.0 : 2.0);
}

QAccessible::Role GLButtonControl::role() const
{
    return _isCheckable ? QAccessible::CheckBox : QAccessible::Button;
}

QAccessible::State GLButtonControl::state() const
{
    QAccessible::State state = GLPaintedControl::state();
    state.checkable = _isCheckable;
    state.checked = _isChecked;
    state.pressed = _isPressed;
    return state;
}

void GLButtonControl::click()
{
    if (isEnabled())
        emit clicked(this, {}, nullptr);
}

void GLButtonControl::mousePress(QPointF point, QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton)
        setPressed(true);
    GLPaintedControl::mousePress(point, event);
}

void GLButtonControl::mouseRelease(QPointF point, QMouseEvent* event)
{
    bool const isClick = event->button() == Qt::LeftButton && _isPressed && hitTest(point);
    if (event->button() == Qt::LeftButton)
        setPressed(false);
    QPointer<GLButtonControl> const self(this);
    GLPaintedControl::mouseRelease(point, event);
    if (self && isClick && isEnabled())
        emit clicked(this, point, event); // The last thing: it may delete this.
}

void GLButtonControl::mouseCancel()
{
    setPressed(false);
    GLPaintedControl::mouseCancel();
}

void GLButtonControl::mouseWheel(QPointF, QWheelEvent* event)
{
    event->ignore();
}

bool GLButtonControl::wantsKey(QKeyEvent const* event) const
{
    return isPressKey(event) && (event->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
}

void GLButtonControl::keyPress(QKeyEvent* event)
{
    if (!wantsKey(event)) {
        event->ignore();
        return;
    }
    if (!event->isAutoRepeat())
        setPressed(true);
    GLPaintedControl::keyPress(event);
}

void GLButtonControl::keyRelease(QKeyEvent* event)
{
    if (!isPressKey(event) || event->isAutoRepeat()) {
        event->ignore();
        return;
    }
    bool const wasPressed = _isPressed;
    setPressed(false);
    QPointer<GLButtonControl> const self(this);
    GLPaintedControl::keyRelease(event);
    if (self && wasPressed)
        click();
}

void GLButtonControl::draw(QPainter& painter, QSizeF const& size)
{
    QRectF const area(QPointF(), size);
    if (_isHovered || _isPressed) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(_isPressed ? style().pressed : style().hover);
        painter.drawRoundedRect(area, style().radius, style().radius);
    }
    if (!isEnabled())
        painter.setOpacity(disabledOpacity);
    QColor const colour = _isChecked ? _checkedColour : style().text;
    double const side = _icon ? style().icon : 0.0;
    double x = _text.isEmpty() ? (size.width() - side) / 2.0 : style().padding;
    if (_icon) {
        QRectF place(x, (size.height() - side) / 2.0, side, side);
        if (isMirrored() && !_text.isEmpty())
            place.moveRight(size.width() - x);
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
        painter.drawImage(place, _icon(static_cast<int>(std::lround(side * scale())), colour));
        x += side + style().padding;
    }
    if (!_text.isEmpty()) {
        QRectF room(x, 0.0, size.width() - x - style().padding, size.height());
        if (isMirrored())
            room.moveRight(size.width() - x);
        painter.setPen(colour);
        painter.drawText(room, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                         QFontMetricsF(style().font).elidedText(_text, Qt::ElideRight, room.width() + 1.0));
    }
    painter.setOpacity(1.0);
    drawFocus(painter, area);
}
