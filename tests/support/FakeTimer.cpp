#include "FakeTimer.h"

#include <algorithm>

void FakeTimer::fire()
{
    _active = !_singleShot;
    _msDue += std::max(_interval, 1);
    emit timeout(this);
}

void FakeTimer::start(int ms)
{
    _active = true;
    _interval = ms;
    _msDue = _clock.msSinceEpoch() + ms;
}
