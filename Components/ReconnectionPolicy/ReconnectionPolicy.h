#pragma once

#include <QtGlobal>

#include <optional>

class RandomGenerator;
class TickCounter;

/// When to try again what was lost: at once after play that lasted, otherwise after waits that grow, with chance in
/// them, lest all viewers of a server come back in the same moment.
///
/// A value, for one thread at a time. What it goes by is borrowed and outlives it.
class ReconnectionPolicy
{
public:
    static constexpr int lastingPlay = 10000;  ///< ms; success of that length begins the waits anew.
    static constexpr int firstDelay = 1000;    ///< ms; doubles with each attempt ...
    static constexpr int maximumDelay = 30000; ///< ... up to this, chance included, ...
    static constexpr int earlyDelay = 1500;    ///< ... and up to this, chance not included, ...
    static constexpr int earlyOutage = 20000;  ///< ... in the first so many ms: most servers are back by then.
    static constexpr qreal spread = 0.25;      ///< The share of a wait that chance adds or takes.
    static constexpr int maximumRedirections = 5;

    /// By a clock that goes on while the machine is suspended, and by the thread's own chance.
    ReconnectionPolicy();
    ReconnectionPolicy(TickCounter& clock, RandomGenerator& random);

    /// It plays, or whatever success is, from now on; does nothing while it already does.
    void succeeded();

    /// Whether it has lasted until now.
    bool hasLasted() const;

    /// It was lost, or an attempt has failed: in how many ms to try next. Who goes round several alternatives says
    /// how many there are: the waits grow from one round to the next.
    int nextDelay(int alternatives = 1);

    /// A redirection is to be followed: false when that would be one too many since the last success that lasted.
    bool mayRedirect();

    /// Whether that which was lost may be back any moment: it has not been gone for long.
    bool isEarly() const;

    /// Begins anew, for something else or because somebody has asked for it.
    void reset();

private:
    void grow();

    TickCounter* _clock;
    RandomGenerator* _random;
    std::optional<qint64> _successSince; ///< By the clock.
    std::optional<qint64> _lostSince;    ///< By the clock; when success that had lasted ended.
    int _failures = 0;                   ///< Since success last lasted.
    int _redirections = 0;               ///< Likewise.
    qreal _delay = 0;                    ///< ms before chance, of the last round.
};
