#include "PaintPacer.h"

#include <algorithm>

namespace
{
constexpr double usualRate = 60.0;
constexpr double slowestRate = 24.0;
constexpr double fastestRate = 500.0;
constexpr double millisecondsPerSecond = 1000.0;
} // namespace

PaintPacer::PaintPacer(QObject* parent) : QObject(parent)
{
    setRefreshRate(usualRate);
    _timer.setSingleShot(true);
    _timer.setTimerType(Qt::PreciseTimer);
    connect(&_timer, &QTimer::timeout, this, &PaintPacer::paint);
}

void PaintPacer::setRefreshRate(double rate)
{
    // A virtual screen may say anything.
    double const believed = rate < slowestRate ? usualRate : std::min(rate, fastestRate);
    _frameTime = static_cast<int>(millisecondsPerSecond / believed);
}

void PaintPacer::request()
{
    if (_timer.isActive())
        return;
    qint64 const passed = _lastPaint.isValid() ? _lastPaint.elapsed() : _frameTime;
    _timer.start(static_cast<int>(std::clamp<qint64>(_frameTime - passed, 0, _frameTime)));
}

void PaintPacer::painted()
{
    _timer.stop();
    _lastPaint.start();
}
