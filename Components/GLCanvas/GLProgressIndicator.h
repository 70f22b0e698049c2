#pragma once

#include "GLValueControl.h"

#include <optional>

/// How far a film is, in seconds, to be chosen by the viewer; what is chosen counts when it is let go of. Of what
/// cannot be sought, a live stream, how full its buffer is.
class GLProgressIndicator : public GLValueControl
{
    Q_OBJECT

public:
    GLProgressIndicator(QString const& name, GLControlStyle const& style, QObject* parent = nullptr);

    /// Shows a film of that length that is so far, in seconds.
    void showTime(double seconds, double duration);
    /// Shows a level from 0.0 to 1.0 in its place, or with none nothing but that it is live.
    void showBuffer(std::optional<double> level);
    bool isSeekable() const { return isEnabled(); }

    QString valueText() const override;
    double shownValue() const override;
    double shownMaximum() const override;
    QAccessible::Role role() const override;

    void mouseMove(QPointF point, QMouseEvent* event) override;

    /// "1:23:45" or "4:05".
    static QString timeText(double seconds);

signals:
    /// The pointer is over a time, at a place along the control; none when it has left.
    void previewChanged(std::optional<double> seconds, double x);

protected:
    void draw(QPainter& painter, QSizeF const& size) override;

private:
    std::optional<double> _level; ///< Of the buffer.
};
