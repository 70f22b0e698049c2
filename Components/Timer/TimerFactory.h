#pragma once

class Timer;

/// Makes timers and takes them back. Each timer belongs to the thread that created it.
class TimerFactory
{
public:
    virtual ~TimerFactory() = default;

    virtual Timer* createTimer() = 0;

    /// Takes back a timer that this factory created; it is deleted later.
    virtual void disposeTimer(Timer* timer) = 0;
};
