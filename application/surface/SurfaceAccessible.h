#pragma once

#include <QAccessibleWidget>

class GLWidget;

/// The video surface to assistive technology: a picture with the overlay's controls in it. Qt makes and owns it.
class SurfaceAccessible : public QAccessibleWidget
{
public:
    explicit SurfaceAccessible(GLWidget* surface);

    /// Has Qt know how to make it, and those of the controls.
    static void install();

    int childCount() const override;
    QAccessibleInterface* child(int index) const override;
    int indexOfChild(QAccessibleInterface const* child) const override;
    QAccessibleInterface* childAt(int x, int y) const override;
    QAccessibleInterface* focusChild() const override;

private:
    QAccessibleInterface* overlay() const;
};
