#pragma once

#include "Uri.h"

#include <QHash>
#include <QMutex>

#include <optional>

class RandomGenerator;
class TickCounter;

/// When each address is to be fetched next. Of all the memos that were posted for an address one counts, the
/// earliest, so that they do not pile up when an address is ignored and watched again. Any thread.
class WebCacheSchedule
{
public:
    /// Both are borrowed.
    WebCacheSchedule(TickCounter& clock, RandomGenerator& random) : _clock(clock), _random(random) {}

    /// Plans to fetch an address in so many milliseconds. The number of the memo that is to do it; nothing when one
    /// that is as early is on its way.
    std::optional<int> plan(Uri const& uri, qint64 ms);

    /// Whether the memo of this number counts. It is over then.
    bool take(Uri const& uri, int number);

    /// A wait for what may be there soon, in milliseconds: doubles with each attempt, from 0 on, up to a maximum; up
    /// to a quarter of it is taken away by chance.
    qint64 growingDelay(int attempts, qint64 msFirst, qint64 msMaximum);

private:
    struct Pending {
        int number = 0;
        qint64 msDue = 0; ///< By the clock.
    };

    TickCounter& _clock;
    RandomGenerator& _random;
    QMutex _mutex;                ///< Guards the two below. A leaf.
    QHash<Uri, Pending> _pending; ///< Watched or not.
    int _lastNumber = 0;
};
