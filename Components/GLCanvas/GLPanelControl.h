#pragma once

#include "GLPaintedControl.h"

/// A bar: a ground with rounded corners that holds other controls.
class GLPanelControl : public GLPaintedControl
{
    Q_OBJECT

public:
    using GLPaintedControl::GLPaintedControl;

    QAccessible::Role role() const override { return QAccessible::ToolBar; }

    /// Something to be laid out in a row.
    struct Item {
        GLControl* control = nullptr;
        double width = 0.0;
        int importance = 0;   ///< Where there is no room for all, the least important are hidden first, together.
        double stretch = 0.0; ///< Its part of the room that is left.
        double gap = 0.0;     ///< Before it.
        bool isWanted = true; ///< Else it is hidden in any case.
    };

    /// Places the items side by side from the leading edge on, each as high as the row and no wider than there is
    /// room. With right to left the row is mirrored.
    static void arrange(QList<Item> items, QRectF const& row);

protected:
    void draw(QPainter& painter, QSizeF const& size) override;
};
