#include "FakeTimerFactory.h"

#include <QCoreApplication>

#include <algorithm>

void FakeTimerFactory::advance(qint64 ms)
{
    qint64 const target = _clock.msSinceEpoch() + ms;
    QCoreApplication::sendPostedEvents();
    while (FakeTimer* const timer = nextDue(target)) {
        _clock.set(std::max(_clock.msSinceEpoch(), timer->msDue()));
        timer->fire();
        QCoreApplication::sendPostedEvents();
    }
    _clock.set(target);
}

/// The active timer that runs out first, up to the limit, or null.
FakeTimer* FakeTimerFactory::nextDue(qint64 msLimit) const
{
    FakeTimer* next = nullptr;
    for (FakeTimer* const timer : timers()) {
        if (timer->isActive() && timer->msDue() <= msLimit && (!next || timer->msDue() < next->msDue()))
            next = timer;
    }
    return next;
}
