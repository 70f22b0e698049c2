#include "GLControlAccessible.h"

#include "GLButtonControl.h"
#include "GLControl.h"
#include "GLControlLayout.h"
#include "GLValueControl.h"

#include <QWidget>

namespace
{
QAccessibleInterface* make(QString const& className, QObject* object)
{
    auto* const control = className == "GLControl" ? qobject_cast<GLControl*>(object) : nullptr;
    return control ? new GLControlAccessible(control) : nullptr;
}

/// Those that mean something.
QList<GLControl*> heldBy(GLControl const* control)
{
    QList<GLControl*> held = control ? control->controls() : QList<GLControl*>();
    held.removeIf([](GLControl const* each) { return each->isDecoration(); });
    return held;
}

bool isSeen(GLControl const* control)
{
    for (; control; control = control->holder())
        if (!control->isVisible() || control->opacity() <= 0.0)
            return false;
    return true;
}
} // namespace

GLControlAccessible::GLControlAccessible(GLControl* control) : QAccessibleObject(control) {}

void GLControlAccessible::install()
{
    QAccessible::installFactory(make);
}

void GLControlAccessible::changed(GLControl& control)
{
    if (!QAccessible::isActive() || !control.layout())
        return;
    QAccessibleEvent renamed(&control, QAccessible::NameChanged);
    QAccessible::updateAccessibility(&renamed);
    if (auto const* const value = qobject_cast<GLValueControl*>(&control)) {
        QAccessibleValueChangeEvent event(&control, value->shownValue());
        QAccessible::updateAccessibility(&event);
    } else if (qobject_cast<GLButtonControl*>(&control)) {
        QAccessible::State state;
        state.checked = true;
        QAccessibleStateChangeEvent event(&control, state);
        QAccessible::updateAccessibility(&event);
    }
}

void GLControlAccessible::enabledChanged(GLControl& control)
{
    if (!QAccessible::isActive() || !control.layout())
        return;
    QAccessible::State state;
    state.disabled = true;
    state.focusable = control.state().focusable;
    QAccessibleStateChangeEvent event(&control, state);
    QAccessible::updateAccessibility(&event);
}

void GLControlAccessible::announce(GLControl& control)
{
    if (!QAccessible::isActive() || !control.layout() || control.label().isEmpty())
        return;
    QAccessibleEvent event(&control, QAccessible::Alert);
    QAccessible::updateAccessibility(&event);
}

void GLControlAccessible::focusMoved(GLControlLayout const& layout)
{
    if (!QAccessible::isActive() || !layout.widget() || !layout.widget()->hasFocus())
        return;
    GLControl* const focus = layout.focus();
    bool const isOnControl = focus && focus->isFocusable() && focus->isFocused();
    QObject* const object = isOnControl ? static_cast<QObject*>(focus) : layout.widget();
    QAccessibleEvent event(object, QAccessible::Focus);
    QAccessible::updateAccessibility(&event);
}

GLControl* GLControlAccessible::control() const
{
    return qobject_cast<GLControl*>(object());
}

QAccessibleInterface* GLControlAccessible::parent() const
{
    if (!control())
        return nullptr;
    if (GLControl* const holder = control()->holder())
        return QAccessible::queryAccessibleInterface(holder);
    GLControlLayout const* const layout = control()->layout();
    return layout ? QAccessible::queryAccessibleInterface(layout->widget()) : nullptr;
}

int GLControlAccessible::childCount() const
{
    return control() ? static_cast<int>(heldBy(control()).size()) : 0;
}

QAccessibleInterface* GLControlAccessible::child(int index) const
{
    QList<GLControl*> const held = heldBy(control());
    return index >= 0 && index < held.size() ? QAccessible::queryAccessibleInterface(held.at(index)) : nullptr;
}

int GLControlAccessible::indexOfChild(QAccessibleInterface const* child) const
{
    auto* const wanted = child ? qobject_cast<GLControl*>(child->object()) : nullptr;
    return wanted && control() ? static_cast<int>(heldBy(control()).indexOf(wanted)) : -1;
}

QAccessibleInterface* GLControlAccessible::childAt(int x, int y) const
{
    if (!control())
        return nullptr;
    QList<GLControl*> const held = heldBy(control());
    for (auto i = held.crbegin(); i != held.crend(); ++i) {
        QAccessibleInterface* const interface = QAccessible::queryAccessibleInterface(*i);
        if (interface && isSeen(*i) && interface->rect().contains(x, y)) {
            QAccessibleInterface* const deeper = interface->childAt(x, y);
            return deeper ? deeper : interface;
        }
    }
    return nullptr;
}

QAccessibleInterface* GLControlAccessible::focusChild() const
{
    GLControlLayout const* const layout = control() ? control()->layout() : nullptr;
    GLControl* const focus = layout ? layout->focus() : nullptr;
    return focus && focus->isFocused() ? QAccessible::queryAccessibleInterface(focus) : nullptr;
}

QString GLControlAccessible::text(QAccessible::Text kind) const
{
    if (!control())
        return {};
    if (kind == QAccessible::Name)
        return control()->label();
    return kind == QAccessible::Value ? control()->valueText() : QString();
}

QRect GLControlAccessible::rect() const
{
    GLControlLayout const* const layout = control() ? control()->layout() : nullptr;
    if (!layout || !layout->widget())
        return {};
    QRectF place = control()->geometry();
    for (GLControl const* holder = control()->holder(); holder; holder = holder->holder())
        place.translate(holder->geometry().topLeft());
    return place.toAlignedRect().translated(layout->widget()->mapToGlobal(QPoint(0, 0)));
}

QAccessible::Role GLControlAccessible::role() const
{
    return control() ? control()->role() : QAccessible::NoRole;
}

QAccessible::State GLControlAccessible::state() const
{
    QAccessible::State state;
    if (!control()) {
        state.invalid = true;
        return state;
    }
    state = control()->state();
    state.invisible = !isSeen(control());
    return state;
}

void* GLControlAccessible::interface_cast(QAccessible::InterfaceType type)
{
    if (type == QAccessible::ActionInterface && control() && control()->state().focusable)
        return static_cast<QAccessibleActionInterface*>(this);
    if (type == QAccessible::ValueInterface && qobject_cast<GLValueControl*>(control()))
        return static_cast<QAccessibleValueInterface*>(this);
    return nullptr;
}

QStringList GLControlAccessible::actionNames() const
{
    QStringList names;
    if (!control() || !control()->isEnabled())
        return names;
    if (qobject_cast<GLButtonControl*>(control()))
        names << (control()->state().checkable ? toggleAction() : pressAction());
    if (qobject_cast<GLValueControl*>(control()))
        names << increaseAction() << decreaseAction();
    if (control()->isFocusable())
        names << setFocusAction();
    return names;
}

void GLControlAccessible::doAction(QString const& name)
{
    if (!control() || !control()->isEnabled())
        return;
    auto* const button = qobject_cast<GLButtonControl*>(control());
    auto* const value = qobject_cast<GLValueControl*>(control());
    if (name == setFocusAction() && control()->layout()) {
        if (QWidget* const widget = control()->layout()->widget())
            widget->setFocus();
        control()->layout()->setFocus(control(), true);
    } else if (button && (name == pressAction() || name == toggleAction())) {
        button->click();
    } else if (value && (name == increaseAction() || name == decreaseAction())) {
        setCurrentValue(value->value() + (name == increaseAction() ? value->step() : -value->step()));
    }
}

QStringList GLControlAccessible::keyBindingsForAction(QString const&) const
{
    return {};
}

QVariant GLControlAccessible::currentValue() const
{
    auto const* const value = qobject_cast<GLValueControl*>(control());
    return value ? value->shownValue() : QVariant();
}

void GLControlAccessible::setCurrentValue(QVariant const& wanted)
{
    auto* const value = qobject_cast<GLValueControl*>(control());
    if (!value || !value->isEnabled())
        return;
    value->choose(wanted.toDouble());
    emit value->valueReleased(value->value());
}

QVariant GLControlAccessible::maximumValue() const
{
    auto const* const value = qobject_cast<GLValueControl*>(control());
    return value ? value->shownMaximum() : QVariant();
}

QVariant GLControlAccessible::minimumValue() const
{
    auto const* const value = qobject_cast<GLValueControl*>(control());
    return value ? value->minimum() : QVariant();
}

QVariant GLControlAccessible::minimumStepSize() const
{
    auto const* const value = qobject_cast<GLValueControl*>(control());
    return value ? value->step() : QVariant();
}
