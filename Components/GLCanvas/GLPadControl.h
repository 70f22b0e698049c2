#pragma once

#include "GLPaintedControl.h"

/// A pad on which a direction is chosen: a point from (-1, -1), leftmost and uppermost, to (1, 1), by drag or by the
/// arrow keys. A double press and Home go back to the middle.
class GLPadControl : public GLPaintedControl
{
    Q_OBJECT

public:
    GLPadControl(QString const& name, GLControlStyle const& style, QObject* parent = nullptr);

    void setPosition(QPointF position);
    QPointF position() const { return _position; }

    QAccessible::Role role() const override { return QAccessible::Dial; }
    /// Per cent of the way to the right and downward.
    QString valueText() const override;
    void mousePress(QPointF point, QMouseEvent* event) override;
    void mouseMove(QPointF point, QMouseEvent* event) override;
    void mouseRelease(QPointF point, QMouseEvent* event) override;
    void mouseCancel() override;
    bool wantsKey(QKeyEvent const* event) const override;
    void keyPress(QKeyEvent* event) override;

signals:
    /// The viewer has chosen it.
    void positionChosen(QPointF position);

protected:
    void draw(QPainter& painter, QSizeF const& size) override;

private:
    void choose(QPointF position);

    QPointF _position;
    bool _isDragged = false;
};
