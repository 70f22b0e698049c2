#pragma once

#include <QAccessibleObject>

class GLControl;
class GLControlLayout;

/// A control to assistive technology: name, role, state, place, the controls that it holds, what can be done to it
/// and its value. Qt makes and owns them; GUI thread only.
class GLControlAccessible : public QAccessibleObject,
                            public QAccessibleActionInterface,
                            public QAccessibleValueInterface
{
public:
    explicit GLControlAccessible(GLControl* control);

    /// Has Qt know how to make them. To be called before there are controls; again does nothing.
    static void install();
    /// Tell whoever listens.
    static void changed(GLControl& control);
    static void enabledChanged(GLControl& control);
    /// Has its words be read out, wherever the focus is.
    static void announce(GLControl& control);
    static void focusMoved(GLControlLayout const& layout);

    QAccessibleInterface* parent() const override;
    QAccessibleInterface* child(int index) const override;
    int childCount() const override;
    int indexOfChild(QAccessibleInterface const* child) const override;
    QAccessibleInterface* childAt(int x, int y) const override;
    QAccessibleInterface* focusChild() const override;
    QString text(QAccessible::Text kind) const override;
    void setText(QAccessible::Text, QString const&) override {}
    QRect rect() const override;
    QAccessible::Role role() const override;
    QAccessible::State state() const override;
    void* interface_cast(QAccessible::InterfaceType type) override;

    QStringList actionNames() const override;
    void doAction(QString const& name) override;
    QStringList keyBindingsForAction(QString const& name) const override;

    QVariant currentValue() const override;
    void setCurrentValue(QVariant const& value) override;
    QVariant maximumValue() const override;
    QVariant minimumValue() const override;
    QVariant minimumStepSize() const override;

private:
    GLControl* control() const;
};
