#include "GLControl.h"

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
}

void GLControl::removeControl(GLControl* control)
{
    _controls.removeAll(control);
    _controls.removeAll(nullptr);
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
    glTranslated(geometry().left(), geometry().top(), 0.0);
    for (GLControl* const control : controls())
        control->render(combined);
    glPopMatrix();
}

void GLControl::recalcLayout(double scale)
{
    for (GLControl* const control : controls())
        control->recalcLayout(scale);
}

bool GLControl::hitTest(QPointF point)
{
    return static_cast<GLControl const*>(this)->hitTest(point);
}
