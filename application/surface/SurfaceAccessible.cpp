#include "SurfaceAccessible.h"

#include "GLControlAccessible.h"
#include "GLWidget.h"

namespace
{
QAccessibleInterface* makeSurfaceInterface(QString const& className, QObject* object)
{
    auto* const surface = className == "GLWidget" ? qobject_cast<GLWidget*>(object) : nullptr;
    return surface ? new SurfaceAccessible(surface) : nullptr;
}
} // namespace

SurfaceAccessible::SurfaceAccessible(GLWidget* surface) : QAccessibleWidget(surface, QAccessible::Canvas) {}

void SurfaceAccessible::install()
{
    QAccessible::installFactory(makeSurfaceInterface);
    GLControlAccessible::install();
}

QAccessibleInterface* SurfaceAccessible::overlay() const
{
    auto* const surface = qobject_cast<GLWidget*>(object());
    return surface ? QAccessible::queryAccessibleInterface(&surface->overlay()) : nullptr;
}

int SurfaceAccessible::childCount() const
{
    return QAccessibleWidget::childCount() + 1; // The overlay is the last.
}

QAccessibleInterface* SurfaceAccessible::child(int index) const
{
    return index == QAccessibleWidget::childCount() ? overlay() : QAccessibleWidget::child(index);
}

int SurfaceAccessible::indexOfChild(QAccessibleInterface const* child) const
{
    auto* const surface = qobject_cast<GLWidget*>(object());
    if (child && surface && child->object() == &surface->overlay())
        return QAccessibleWidget::childCount();
    return QAccessibleWidget::indexOfChild(child);
}

QAccessibleInterface* SurfaceAccessible::childAt(int x, int y) const
{
    QAccessibleInterface* const all = overlay();
    return all && rect().contains(x, y) ? all->childAt(x, y) : nullptr;
}

QAccessibleInterface* SurfaceAccessible::focusChild() const
{
    QAccessibleInterface* const all = overlay();
    QAccessibleInterface* const focus = all ? all->focusChild() : nullptr;
    return focus ? focus : QAccessibleWidget::focusChild();
}
