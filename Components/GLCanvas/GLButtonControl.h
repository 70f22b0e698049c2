#pragma once

#include "GLPaintedControl.h"

#include <functional>

/// A button with an icon, a text or both, which its label explains. Space and Enter press it, too.
///
/// `clicked` may delete it.
class GLButtonControl : public GLPaintedControl
{
    Q_OBJECT

public:
    /// Paints an icon as a square image of one colour.
    using IconPainter = std::function<QImage(int pixels, QColor const& colour)>;

    GLButtonControl(QString const& name, GLControlStyle const& style, QObject* parent = nullptr);

    void setIcon(IconPainter icon);
    void setText(QString const& text);
    /// A button that is on or off says so; its owner changes that.
    void setCheckable(bool checkable);
    void setChecked(bool checked);
    bool isChecked() const { return _isChecked; }
    /// What it is painted in while it is on, in place of the style's accent.
    void setCheckedColour(QColor const& colour);

    bool isPressed() const { return _isPressed; }
    /// As a click does it.
    void click();

    double preferredWidth() const;

    QString label() const override { return GLControl::label().isEmpty() ? _text : GLControl::label(); }
    QAccessible::Role role() const override;
    QAccessible::State state() const override;
    void setEnabled(bool enabled) override;
    void mousePress(QPointF point, QMouseEvent* event) override;
    void mouseRelease(QPointF point, QMouseEvent* event) override;
    /// Is for whatever is behind it.
    void mouseCancel() override;
    void mouseWheel(QPointF point, QWheelEvent* event) override;
    bool wantsKey(QKeyEvent const* event) const override;
    void keyPress(QKeyEvent* event) override;
    void keyRelease(QKeyEvent* event) override;

signals:
    /// By the mouse at a point, or with a null event by a key or by assistive technology.
    void clicked(GLControl* button, QPointF point, QMouseEvent* event);

protected:
    void draw(QPainter& painter, QSizeF const& size) override;

private:
    void setHovered(bool hovered);
    void setPressed(bool pressed);

    IconPainter _icon;
    QString _text;
    QColor _checkedColour;
    bool _isCheckable = false;
    bool _isChecked = false;
    bool _isHovered = false;
    bool _isPressed = false;
};
