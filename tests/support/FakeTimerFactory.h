#pragma once

#include "FakeTickCounter.h"
#include "FakeTimer.h"
#include "TimerFactory.h"

#include <QList>
#include <QPointer>

/// Makes FakeTimers and moves their time. For one thread.
class FakeTimerFactory : public TimerFactory
{
public:
    /// The clock is borrowed, and outlives the factory and its timers.
    explicit FakeTimerFactory(FakeTickCounter& clock) : _clock(clock) {}

    Timer* createTimer() override;
    void disposeTimer(Timer* timer) override;

    /// The timers that exist and have not been given back, the oldest first.
    QList<FakeTimer*> timers() const;

    /// Moves the clock on, stopping at each timer that runs out on the way to fire it. Posted events are delivered
    /// before each stop, so that what a timer sets off goes on too.
    void advance(qint64 ms);

private:
    FakeTimer* nextDue(qint64 msLimit) const;

    FakeTickCounter& _clock;
    QList<QPointer<FakeTimer>> _timers; ///< Those that were not given back; null once deleted.
};
