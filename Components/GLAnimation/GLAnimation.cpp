#include "GLAnimation.h"

#include <QElapsedTimer>

#include <algorithm>

namespace
{
GLAnimation::Clock systemClock()
{
    QElapsedTimer timer;
    timer.start();
    return [timer] { return timer.elapsed(); };
}
} // namespace

GLAnimation::GLAnimation(QObject* parent) : GLAnimation(systemClock(), parent) {}

GLAnimation::GLAnimation(Clock clock, QObject* parent) : QObject(parent), _clock(std::move(clock))
{
    _timer.setTimerType(Qt::PreciseTimer);
    _timer.setInterval(frameInterval);
    connect(&_timer, &QTimer::timeout, this, &GLAnimation::update);
}

void GLAnimation::start(double from, double to, int milliseconds)
{
    _from = from;
    _to = to;
    _duration = milliseconds;
    _startedAt = _clock();
    _timer.start();
    update();
}

void GLAnimation::stop()
{
    _timer.stop();
}

void GLAnimation::setValue(double value)
{
    stop();
    _value = value;
}

void GLAnimation::update()
{
    if (!isRunning())
        return;
    qint64 const elapsed = std::max<qint64>(0, _clock() - _startedAt);
    bool const done = elapsed >= _duration;
    _value = done ? _to : _from + (_to - _from) * _easing.valueForProgress(static_cast<double>(elapsed) / _duration);
    if (done)
        _timer.stop();
    emit valueChanged(this);
    // A listener may have started another movement, which then completes by itself.
    if (done && !isRunning())
        emit completed(this);
}
