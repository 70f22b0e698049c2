#include "DelayedCalls.h"

#include "Timer.h"
#include "TimerFactory.h"

DelayedCalls::~DelayedCalls()
{
    clear();
}

void DelayedCalls::add(int ms, std::function<void()> const& call)
{
    Timer* const timer = _timerFactory.createTimer();
    timer->setSingleShot(true);
    _calls.emplace(timer, call);
    connect(timer, &Timer::timeout, this, &DelayedCalls::onTimeout);
    timer->start(ms);
}

void DelayedCalls::clear()
{
    for (auto const& [timer, call] : _calls) {
        timer->disconnect(this);
        _timerFactory.disposeTimer(timer);
    }
    _calls.clear();
}

void DelayedCalls::onTimeout(Timer* timer)
{
    auto const found = _calls.extract(timer);
    _timerFactory.disposeTimer(timer);
    if (found)
        found.mapped()();
}
