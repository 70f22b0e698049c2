#include "QtTimer.h"

QtTimer::QtTimer(QObject* parent) : Timer(parent), _timer(this)
{
    // Callers measure rates over an interval; a coarse timer may be off by a twentieth.
    _timer.setTimerType(Qt::PreciseTimer);
    connect(&_timer, &QTimer::timeout, this, &QtTimer::onTimeout);
}

void QtTimer::setSingleShot(bool singleShot)
{
    _timer.setSingleShot(singleShot);
}

int QtTimer::timerId() const
{
    return _timer.timerId();
}

void QtTimer::start(int ms)
{
    _timer.start(ms);
}

void QtTimer::stop()
{
    _timer.stop();
}

int QtTimer::interval() const
{
    return _timer.interval();
}

bool QtTimer::isActive() const
{
    return _timer.isActive();
}

void QtTimer::onTimeout()
{
    emit timeout(this);
}
