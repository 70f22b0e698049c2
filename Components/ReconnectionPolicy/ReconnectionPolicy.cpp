#include "ReconnectionPolicy.h"

#include "MersenneTwisterRandomGenerator.h"
#include "MonotonicTickCounter.h"

#include <QRandomGenerator>

#include <algorithm>

namespace
{

TickCounter& monotonicClock()
{
    static MonotonicTickCounter clock; // Has no state.
    return clock;
}

/// The thread's own, seeded by the system.
RandomGenerator& chance()
{
    thread_local MersenneTwisterRandomGenerator random(static_cast<int>(QRandomGenerator::system()->generate()));
    return random;
}

} // namespace

ReconnectionPolicy::ReconnectionPolicy() : _clock(&monotonicClock()), _random(nullptr) {}

ReconnectionPolicy::ReconnectionPolicy(TickCounter& clock, RandomGenerator& random) : _clock(&clock), _random(&random)
{
}

void ReconnectionPolicy::succeeded()
{
    if (!_successSince)
        _successSince = _clock->msSinceEpoch();
}

bool ReconnectionPolicy::hasLasted() const
{
    return _successSince && _clock->msSinceEpoch() - *_successSince >= lastingPlay;
}

bool ReconnectionPolicy::isEarly() const
{
    return !_lostSince || _clock->msSinceEpoch() - *_lostSince < earlyOutage;
}

int ReconnectionPolicy::nextDelay(int alternatives)
{
    bool const lasted = hasLasted();
    _successSince.reset();
    if (lasted)
        reset();
    if (!_lostSince)
        _lostSince = _clock->msSinceEpoch();
    if (lasted)
        return 0;
    if (_failures++ % std::max(alternatives, 1) == 0)
        grow();
    // Where it goes from thread to thread, chance is that of the thread that asks.
    qreal const random = (_random ? *_random : chance()).qrealrand();
    return qRound(_delay * (1 - spread + 2 * spread * random));
}

void ReconnectionPolicy::grow()
{
    qreal const limit = isEarly() ? earlyDelay : maximumDelay / (1 + spread);
    _delay = std::min(std::max<qreal>(firstDelay, 2 * _delay), limit);
}

bool ReconnectionPolicy::mayRedirect()
{
    if (hasLasted())
        _redirections = 0;
    return ++_redirections <= maximumRedirections;
}

void ReconnectionPolicy::reset()
{
    _successSince.reset();
    _lostSince.reset();
    _failures = 0;
    _delay = 0;
    _redirections = 0;
}
