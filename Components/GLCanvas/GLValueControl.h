#pragma once

#include "GLPaintedControl.h"

/// A control by which a value is chosen on a line: by press and drag, by the wheel, by the arrow keys, Home and End.
class GLValueControl : public GLPaintedControl
{
    Q_OBJECT

public:
    GLValueControl(QString const& name, GLControlStyle const& style, QObject* parent = nullptr);

    void setMaximum(double maximum);
    double minimum() const { return 0.0; }
    double maximum() const { return _maximum; }
    /// What an arrow key or a notch of the wheel changes.
    void setStep(double step) { _step = step; }
    double step() const { return _step; }

    /// Brought inside of the bounds, and left alone while the viewer drags it. Nobody is told.
    void setValue(double value);
    double value() const { return _value; }
    /// The viewer's choice, as whoever uses the keyboard or assistive technology makes it.
    void choose(double value);
    bool isDragged() const { return _isDragged; }

    /// What assistive technology is told, where that is something else.
    virtual double shownValue() const { return _value; }
    virtual double shownMaximum() const { return _maximum; }

    /// One that is disabled is not dragged on.
    void setEnabled(bool enabled) override;
    QString valueText() const override;
    QAccessible::Role role() const override { return QAccessible::Slider; }
    void mousePress(QPointF point, QMouseEvent* event) override;
    void mouseMove(QPointF point, QMouseEvent* event) override;
    void mouseRelease(QPointF point, QMouseEvent* event) override;
    void mouseCancel() override;
    void mouseWheel(QPointF point, QWheelEvent* event) override;
    bool wantsKey(QKeyEvent const* event) const override;
    void keyPress(QKeyEvent* event) override;
    void keyRelease(QKeyEvent* event) override;

signals:
    /// The viewer has chosen a value; while one is dragged, each on the way.
    void valueChosen(double value);
    /// The viewer has let go of it.
    void valueReleased(double value);

protected:
    void draw(QPainter& painter, QSizeF const& size) override;
    bool isHovered() const { return _isHovered; }

    /// Between a value and its place along the line in the control's own coordinates.
    double placeOf(double value) const;
    double valueAt(double x) const;
    /// What the line is painted in.
    virtual QColor colour() const { return style().accent; }

private:
    double _maximum = 1.0;
    double _step = 0.05;
    double _value = 0.0;
    bool _isDragged = false;
    bool _isHovered = false;
};
