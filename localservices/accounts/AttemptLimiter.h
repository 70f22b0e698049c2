#pragma once

#include <QHash>
#include <QList>
#include <QString>

class TickCounter;

/// How often an address has tried in vain lately. What it holds is bounded. Lives on one thread.
class AttemptLimiter
{
public:
    static constexpr int maximumAttempts = 10; ///< In a minute.
    static constexpr qint64 msOfMinute = 60'000;
    static constexpr int maximumAddresses = 10'000; ///< With more, all are refused until some are forgotten.

    /// The clock is borrowed, and never goes back.
    explicit AttemptLimiter(TickCounter& tickCounter) : _tickCounter(tickCounter) {}

    bool isAllowed(QString const& address);
    void count(QString const& address);

    /// Forgets the last one, which was not in vain.
    void forgive(QString const& address);

private:
    void forgetOld(qint64 now);

    TickCounter& _tickCounter;
    QHash<QString, QList<qint64>> _attempts; ///< When they were, the oldest in front.
    qint64 _msLastForgotten = 0;
};
