#pragma once

#include <QHash>
#include <QList>
#include <QMutex>

#include <utility>
#include <vector>

/// Keeps one condition from filling the log, as any peer could otherwise make it do: of what a place in the code
/// says, each text is written once in a period, and no more than so many texts. The rest is counted.
///
/// Any thread. Times are monotonic milliseconds.
class LogThrottle
{
public:
    static constexpr qint64 msPeriod = 5000; ///< From the first line of a place.
    static constexpr int textsPerPeriod = 20;

    /// What a place has left out in a period that is over.
    struct LeftOut {
        char const* file;
        int line;
        int level; ///< Of the first line that was left out.
        qint64 count;
    };

    /// Whether the line may be written. The file name is told by its address, as call sites pass it, and is borrowed
    /// for ever.
    bool admits(char const* file, int line, int level, size_t textHash, qint64 msNow);

    /// What is to be told of the periods that are over; each once.
    QList<LeftOut> takeLeftOut(qint64 msNow);

private:
    struct Place {
        qint64 msBegin = 0;
        std::vector<size_t> texts; ///< Those that were written, as their hashes.
        int level = 0;
        qint64 leftOut = 0;
    };

    QMutex _mutex;                                     ///< Guards both.
    QHash<std::pair<void const*, int>, Place> _places; ///< Those whose period is not over, by file and line.
    qint64 _msNextLook = 0;                            ///< When one of them may be.
};
