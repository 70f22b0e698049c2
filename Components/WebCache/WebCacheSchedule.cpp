#include "WebCacheSchedule.h"

#include "RandomGenerator.h"
#include "TickCounter.h"

#include <algorithm>

std::optional<int> WebCacheSchedule::plan(Uri const& uri, qint64 ms)
{
    QMutexLocker const locker(&_mutex);
    qint64 const due = _clock.msSinceEpoch() + ms;
    if (auto const pending = _pending.constFind(uri); pending != _pending.cend() && pending->msDue <= due)
        return std::nullopt;
    _pending.insert(uri, {++_lastNumber, due});
    return _lastNumber;
}

bool WebCacheSchedule::take(Uri const& uri, int number)
{
    QMutexLocker const locker(&_mutex);
    auto const pending = _pending.constFind(uri);
    if (pending == _pending.cend() || pending->number != number)
        return false;
    _pending.erase(pending);
    return true;
}

qint64 WebCacheSchedule::growingDelay(int attempts, qint64 msFirst, qint64 msMaximum)
{
    constexpr int maximumDoublings = 20;
    constexpr qreal chance = 0.25;
    qint64 const ms = std::min(msFirst << std::min(attempts, maximumDoublings), msMaximum);
    return static_cast<qint64>(static_cast<qreal>(ms) * (1 - chance * _random.qrealrand()));
}
