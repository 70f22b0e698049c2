#pragma once

#include "FakeObjects.h"
#include "FakeTickCounter.h"
#include "FakeTimer.h"
#include "TimerFactory.h"

/// Makes FakeTimers and moves their time. For one thread.
class FakeTimerFactory : public TimerFactory
{
public:
    /// The clock is borrowed, and outlives the factory and its timers.
    explicit FakeTimerFactory(FakeTickCounter& clock) : _clock(clock) {}

    Timer* createTimer() override { return _timers.add(new FakeTimer(_clock)); }
    void disposeTimer(Timer* timer) override { _timers.dispose(timer); }
    QList<FakeTimer*> timers() const { return _timers.living(); }

    /// Moves the clock on, stopping at each timer that runs out on the way to fire it. Posted events are delivered
    /// before each stop, so that what a timer sets off goes on too.
    void advance(qint64 ms);

private:
    FakeTimer* nextDue(qint64 msLimit) const;

    FakeTickCounter& _clock;
    FakeObjects<FakeTimer> _timers;
};
