#include "GLPadControl.h"

#include "GLControlAccessible.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

#include <algorithm>

namespace
{
constexpr double keyStep = 0.2;
constexpr double padHandle = 7.0; ///< Pixels.

QPointF stepOf(int key)
{
    switch (key) {
    case Qt::Key_Left:
        return {-keyStep, 0.0};
    case Qt::Key_Right:
        return {keyStep, 0.0};
    case Qt::Key_Up:
        return {0.0, -keyStep};
    case Qt::Key_Down:
        return {0.0, keyStep};
    default:
        return {};
    }
}
} // namespace

GLPadControl::GLPadControl(QString const& name, GLControlStyle const& style, QObject* parent)
    : GLPaintedControl(name, style, parent)
{
    setFocusable(true);
}

void GLPadControl::setPosition(QPointF position)
{
    QPointF const inside(std::clamp(position.x(), -1.0, 1.0), std::clamp(position.y(), -1.0, 1.0));
    if (inside == _position)
        return;
    _position = inside;
    update();
    GLControlAccessible::changed(*this);
}

void GLPadControl::choose(QPointF position)
{
    setPosition(position);
    emit positionChosen(_position);
}

void GLPadControl::mousePress(QPointF point, QMouseEvent* event)
{
    GLPaintedControl::mousePress(point, event);
    _isDragged = event->button() == Qt::LeftButton;
    if (event->type() == QEvent::MouseButtonDblClick) {
        _isDragged = false;
        choose({});
    } else {
        mouseMove(point, event);
    }
}

void GLPadControl::mouseMove(QPointF point, QMouseEvent* event)
{
    GLPaintedControl::mouseMove(point, event);
    if (!_isDragged)
        return;
    QPointF const from = point - geometry().center();
    choose({2.0 * from.x() / std::max(1.0, geometry().width()), 2.0 * from.y() / std::max(1.0, geometry().height())});
}

void GLPadControl::mouseRelease(QPointF point, QMouseEvent* event)
{
    _isDragged = false;
    GLPaintedControl::mouseRelease(point, event);
}

void GLPadControl::mouseCancel()
{
    _isDragged = false;
    GLPaintedControl::mouseCancel();
}

QString GLPadControl::valueText() const
{
    constexpr double whole = 100.0;
    return QString("%1 %, %2 %").arg(qRound(_position.x() * whole)).arg(qRound(_position.y() * whole));
}

bool GLPadControl::wantsKey(QKeyEvent const* event) const
{
    return (event->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier &&
           (event->key() == Qt::Key_Home || !stepOf(event->key()).isNull());
}

void GLPadControl::keyPress(QKeyEvent* event)
{
    if (!wantsKey(event)) {
        event->ignore();
        return;
    }
    GLPaintedControl::keyPress(event);
    choose(event->key() == Qt::Key_Home ? QPointF() : _position + stepOf(event->key()));
}

void GLPadControl::draw(QPainter& painter, QSizeF const& size)
{
    QRectF const area(QPointF(), size);
    QPointF const middle = area.center();
    painter.setPen(Qt::NoPen);
    painter.setBrush(style().ground);
    painter.drawRoundedRect(area, style().radius, style().radius);
    painter.setPen(QPen(style().line, 1.0));
    painter.drawLine(QPointF(middle.x(), style().padding), QPointF(middle.x(), size.height() - style().padding));
    painter.drawLine(QPointF(style().padding, middle.y()), QPointF(size.width() - style().padding, middle.y()));
    painter.setPen(Qt::NoPen);
    painter.setBrush(style().accent);
    QPointF const reach(size.width() / 2.0 - padHandle - 1.0, size.height() / 2.0 - padHandle - 1.0);
    painter.drawEllipse(middle + QPointF(_position.x() * reach.x(), _position.y() * reach.y()), padHandle, padHandle);
    drawFocus(painter, area);
}
