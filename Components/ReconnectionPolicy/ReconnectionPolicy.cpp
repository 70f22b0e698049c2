#include "ReconnectionPolicy.h"

#include "MersenneTwisterRandomGenerator.h"
#include "MonotonicTickCounter.h"

#include <QRandomGenerator>

#include <algorithm>

namespace
{

constexpr int maximumDoublings = 5;

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

int ReconnectionPolicy::nextDelay(int alternatives)
{
    bool const lasted = hasLasted();
    _successSince.reset();
    if (lasted) {
        reset();
        return 0;
    }
    int const rounds = _failures++ / std::max(alternatives, 1);
    qreal const delay =
        std::min<qreal>(firstDelay << std::min(rounds, maximumDoublings), maximumDelay / (1 + spread));
    // Where it goes from thread to thread, chance is that of the thread that asks.
    qreal const random = (_random ? *_random : chance()).qrealrand();
    return qRound(delay * (1 - spread + 2 * spread * random));
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
    _failures = 0;
    _redirections = 0;
}
