#include "AttemptLimiter.h"

#include "TickCounter.h"

bool AttemptLimiter::isAllowed(QString const& address)
{
    qint64 const now = _tickCounter.msSinceEpoch();
    if (_attempts.size() >= maximumAddresses && !_attempts.contains(address)) {
        if (now - _msLastForgotten > 1000) // Not once for each of those who ask.
            forgetOld(now);
        return _attempts.size() < maximumAddresses;
    }
    QList<qint64> const attempts = _attempts.value(address);
    return attempts.size() < maximumAttempts || now - attempts.first() >= msOfMinute;
}

void AttemptLimiter::count(QString const& address)
{
    QList<qint64>& attempts = _attempts[address];
    attempts.append(_tickCounter.msSinceEpoch());
    if (attempts.size() > maximumAttempts)
        attempts.removeFirst();
}

void AttemptLimiter::forgive(QString const& address)
{
    auto const attempts = _attempts.find(address);
    if (attempts == _attempts.end())
        return;
    attempts->removeLast();
    if (attempts->isEmpty())
        _attempts.erase(attempts);
}

void AttemptLimiter::forgetOld(qint64 now)
{
    _msLastForgotten = now;
    _attempts.removeIf([&](auto const& address) { return now - address->last() >= msOfMinute; });
}
