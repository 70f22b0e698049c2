#include "GLControl.h"

#include "GLControlAccessible.h"

#include <QPainter>

#include <qopengl.h>

GLControl::GLControl(QString const& name, QObject* parent) : GLCanvas(parent), _name(name)
{
    setObjectName(name);
}

GLControl::~GLControl() = default;

void GLControl::addControl(GLControl* control)
{
    removeControl(control);
    _controls.append(control);
    control->_holder = this;
    connect(control, &GLCanvas::changed, this, &GLControl::onControlChanged);
    connect(control, &QObject::destroyed, this, &GLControl::onControlChanged);
    onControlChanged();
}

void GLControl::removeControl(GLControl* control)
{
    _controls.removeAll(nullptr);
    if (_controls.removeAll(control) == 0)
        return;
    control->_holder = nullptr;
    control->disconnect(this);
    onControlChanged();
}

GLControlLayout* GLControl::layout() const
{
    return _holder ? _holder->layout() : _layout;
}

void GLControl::setLayout(GLControlLayout* layout)
{
    _layout = layout;
}

void GLControl::onControlChanged()
{
    if (isVisible())
        emit changed();
}

void GLControl::setLabel(QString const& label)
{
    if (label == _label)
        return;
    _label = label;
    emit labelChanged(this);
    GLControlAccessible::changed(*this);
}

QAccessible::State GLControl::state() const
{
    QAccessible::State state;
    state.disabled = !_enabled;
    state.invisible = !isVisible() || opacity() <= 0.0;
    state.focusable = _focusable;
    state.focused = _focused && _focusable;
    return state;
}

void GLControl::setEnabled(bool enabled)
{
    if (enabled == _enabled)
        return;
    _enabled = enabled;
    onControlChanged();
    GLControlAccessible::enabledChanged(*this);
}

void GLControl::setFocused(bool focused, bool shown)
{
    bool const isNew = focused != _focused;
    _focused = focused;
    _showsFocus = focused && shown;
    onControlChanged();
    if (isNew)
        emit focusChanged(this, focused);
}

bool GLControl::isVisibleInAll() const
{
    return isVisible() && (!_holder || _holder->isVisibleInAll());
}

QList<GLControl*> GLControl::controls() const
{
    QList<GLControl*> living;
    for (QPointer<GLControl> const& control : _controls)
        if (control)
            living.append(control);
    return living;
}

void GLControl::mousePress(QPointF point, QMouseEvent* event)
{
    emit mousePressed(this, point, event);
}

void GLControl::mouseMove(QPointF point, QMouseEvent* event)
{
    emit mouseMoved(this, point, event);
}

void GLControl::mouseRelease(QPointF point, QMouseEvent* event)
{
    emit mouseReleased(this, point, event);
}

void GLControl::mouseCancel()
{
    emit mouseCancelled(this);
}

void GLControl::mouseWheel(QPointF, QWheelEvent* event)
{
    emit mouseWheeled(this, event);
}

void GLControl::keyPress(QKeyEvent* event)
{
    emit keyPressed(this, event);
}

void GLControl::keyRelease(QKeyEvent* event)
{
    emit keyReleased(this, event);
}

void GLControl::render(double opacity)
{
    double const combined = opacity * this->opacity();
    if (!isVisible() || combined <= 0.0)
        return;
    static_cast<GLControl const*>(this)->render(opacity);
    if (_controls.isEmpty())
        return;
    glPushMatrix();
    QPointF const origin = drawnGeometry().topLeft();
    glTranslated(origin.x(), origin.y(), 0.0);
    for (GLControl* const control : controls())
        control->render(combined);
    glPopMatrix();
}

void GLControl::paint(QPainter& painter, double opacity)
{
    double const combined = opacity * this->opacity();
    if (!isVisible() || combined <= 0.0)
        return;
    static_cast<GLControl const*>(this)->paint(painter, opacity);
    QPointF const origin = drawnGeometry().topLeft();
    painter.translate(origin);
    for (GLControl* const control : controls())
        control->paint(painter, combined);
    painter.translate(-origin);
}

void GLControl::recalcLayout(double scale)
{
    setScale(scale);
    for (GLControl* const control : controls())
        control->recalcLayout(scale);
}

bool GLControl::hitTest(QPointF point)
{
    return !_isPassedThrough && static_cast<GLControl const*>(this)->hitTest(point);
}
