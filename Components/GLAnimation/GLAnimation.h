#pragma once

#include <QEasingCurve>
#include <QObject>
#include <QTimer>

#include <functional>

/// Moves a value between two bounds over a duration and tells of each step. Lives on one thread, with an
/// event loop that drives it at frameInterval; whoever paints may call update() in between for the newest value.
class GLAnimation : public QObject
{
    Q_OBJECT

public:
    /// Milliseconds since any moment, never going back.
    using Clock = std::function<qint64()>;

    static constexpr int frameInterval = 16; ///< ms between two steps.

    explicit GLAnimation(QObject* parent = nullptr);
    GLAnimation(Clock clock, QObject* parent = nullptr);

    /// Moves from one bound to the other within so many milliseconds; with 0 or less it is there at once.
    /// A running movement is given up without completed(). The first valueChanged() comes from here.
    void start(double from, double to, int milliseconds);

    /// How the value gets from one bound to the other; starts evenly.
    void setEasing(QEasingCurve::Type easing) { _easing.setType(easing); }

    /// Moves on from the present value.
    void startTo(double to, int milliseconds) { start(_value, to, milliseconds); }

    /// Stops where it is, without a signal.
    void stop();

    /// Stops and sets the value, without a signal.
    void setValue(double value);

    double value() const { return _value; }
    bool isRunning() const { return _timer.isActive(); }

public slots:
    /// Brings the value up to date with the clock.
    void update();

signals:
    void valueChanged(GLAnimation* animation);
    /// The value has reached its bound; isRunning() is false.
    void completed(GLAnimation* animation);

private:
    Clock const _clock;
    QTimer _timer;
    QEasingCurve _easing;
    double _value = 0.0;
    double _from = 0.0;
    double _to = 0.0;
    qint64 _startedAt = 0;
    int _duration = 0;
};
