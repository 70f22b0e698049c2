#pragma once

#include "ReconnectionPolicy.h"

#include <QObject>

#include <functional>

class Logger;
class TickCounter;
class Timer;
class TimerFactory;

/// When a stream is to be opened, and opened anew after it was lost: the moments of the attempts, how long each may
/// take, and when to give up. Opens nothing itself.
///
/// Goes through idle, attempting, open, and waiting for the next attempt, which is attempting again. Lives on one
/// thread.
class StreamReopener : public QObject
{
    Q_OBJECT

public:
    static constexpr int maximumOutage = 120000; ///< ms without play, until play lasts; then it gives up.
    static constexpr int firstAnswer = 20000;    ///< ms that the server may let the very first attempt wait.
    static constexpr int earlyAnswer = 2000;     ///< ms; of a later one: most servers that are back answer at once.
    static constexpr int lateAnswer = 15000;     ///< ms; the same, when the server has been away for longer.
    static constexpr int earlyOpening = 10000;   ///< ms that opening may take from then on: up to a key frame.
    static constexpr int lateOpening = 40000;    ///< ms; the same at first, and when it has been away for longer.

    /// What it goes by; clock and factory are borrowed.
    struct Means {
        TickCounter* clock;
        TimerFactory* timers;
        ReconnectionPolicy policy;
    };

    /// The clocks of the machine.
    static Means machine();

    /// `isAnswered` tells, of the attempt that runs, whether the server has answered.
    StreamReopener(Means const& means, std::function<bool()> isAnswered, QObject* parent = nullptr);
    ~StreamReopener() override;

    /// Emits attemptDue() for the first time; what cannot be retried is given up with the first attempt.
    void begin(bool mayRetry);

    /// The attempt has succeeded, if only when its time was over.
    void succeeded();

    /// The attempt has failed; at the first one that may be for good.
    void failed(bool forGood);

    /// What was open is lost. If it has brought nothing new, its success was none: the outage before it goes on.
    void lost(bool broughtNews = true);

    /// Nothing is to be opened any more.
    void end();

    bool isIdle() const { return _state == Idle; }
    /// Whether it was open once, since begin().
    bool hasPlayed() const { return _hasPlayed; }
    /// Whether it is open, and has been for so long that it counts as play.
    bool hasLasted() const { return _state == Open && _means.policy.hasLasted(); }

signals:
    /// It is to be opened, in place of an attempt that may still run.
    void attemptDue();
    /// It is not open, and will be tried again: once, until it is.
    void retrying();
    /// It cannot be opened, or not any more. Is idle then.
    void givenUp();

private:
    enum State { Idle, Attempting, Open, Waiting };

    struct Outage {
        ReconnectionPolicy policy;
        qint64 since = 0;  ///< By the clock: when it played last.
        qint64 before = 0; ///< ms without play before that, since play last lasted.
    };

    void onTimer();
    void attempt();
    void wait(qint64 ms);
    void retryIn(qint64 ms);
    qint64 timeLeft() const;
    void giveUp();
    bool isHasty() const { return !_isFirst && _means.policy.isEarly(); }

    static Logger* log;

    Means _means;
    std::function<bool()> const _isAnswered;
    Timer* _timer; ///< Of the factory.
    State _state = Idle;
    bool _mayRetry = false;
    bool _hasPlayed = false;
    bool _isFirst = true;     ///< The attempt.
    bool _isTold = false;     ///< That it will be tried again.
    bool _isExtended = false; ///< The attempt has been answered, and goes on.
    qint64 _began = 0;        ///< The attempt; by the clock, as is the next.
    qint64 _away = 0;         ///< Since when it does not play.
    qint64 _outage = 0;       ///< ms without play before that, since play last lasted.
    Outage _ended;            ///< What the three were before the last success.
};
