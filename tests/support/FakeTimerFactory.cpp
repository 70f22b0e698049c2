#include "FakeTimerFactory.h"

#include <QCoreApplication>

#include <algorithm>
#include <gtest/gtest.h>

Timer* FakeTimerFactory::createTimer()
{
    auto* const timer = new FakeTimer(_clock);
    _timers.append(timer);
    return timer;
}

void FakeTimerFactory::disposeTimer(Timer* timer)
{
    if (!timer)
        return;
    EXPECT_TRUE(_timers.removeOne(qobject_cast<FakeTimer*>(timer))) << "not a timer of this factory";
    timer->blockSignals(true);
    timer->deleteLater();
}

QList<FakeTimer*> FakeTimerFactory::timers() const
{
    QList<FakeTimer*> living;
    for (QPointer<FakeTimer> const& timer : _timers) {
        if (timer)
            living.append(timer);
    }
    return living;
}

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
