#pragma once

#include "TimerFactory.h"

class Logger;

/// Makes QtTimers. Has no state: any thread may use it, each for its own timers.
class QtTimerFactory : public TimerFactory
{
public:
    /// A new timer without a parent, on the calling thread.
    Timer* createTimer() override;

    /// Silences the timer and deletes it later. Null is ignored; a timer of another class is left alone, with a
    /// warning.
    void disposeTimer(Timer* timer) override;

private:
    static Logger* log;
};
