#include "StreamReopener.h"

#include "Logger.h"
#include "LoggerManager.h"
#include "MonotonicTickCounter.h"
#include "QtTimerFactory.h"
#include "Timer.h"

#include <algorithm>
#include <utility>

Logger* StreamReopener::log = LoggerManager::logger();

StreamReopener::Means StreamReopener::machine()
{
    static MonotonicTickCounter clock; // Neither has a state.
    static QtTimerFactory timers;
    return {&clock, &timers, ReconnectionPolicy()};
}

StreamReopener::StreamReopener(Means const& means, std::function<bool()> isAnswered, QObject* parent)
    : QObject(parent), _means(means), _isAnswered(std::move(isAnswered)), _timer(means.timers->createTimer())
{
    _timer->setSingleShot(true);
    connect(_timer, &Timer::timeout, this, &StreamReopener::onTimer);
}

StreamReopener::~StreamReopener()
{
    end();
    _means.timers->disposeTimer(_timer);
}

void StreamReopener::begin(bool mayRetry)
{
    _mayRetry = mayRetry;
    _hasPlayed = false;
    _isFirst = true;
    _isTold = false;
    _outage = 0;
    _means.policy.reset();
    _away = _means.clock->msSinceEpoch();
    attempt();
}

void StreamReopener::end()
{
    _state = Idle;
    _timer->stop();
}

void StreamReopener::attempt()
{
    _state = Attempting;
    _isExtended = false;
    _began = _means.clock->msSinceEpoch();
    wait(isHasty() ? earlyAnswer : _isFirst ? firstAnswer : lateAnswer);
    emit attemptDue();
}

void StreamReopener::succeeded()
{
    if (_state != Attempting && _state != Waiting)
        return;
    _timer->stop();
    _state = Open;
    _isTold = false;
    _hasPlayed = true;
    _isFirst = false;
    _ended = {_means.policy, _away, _outage};
    _outage += _means.clock->msSinceEpoch() - _away;
    _means.policy.succeeded();
}

void StreamReopener::lost(bool broughtNews)
{
    if (_state != Open)
        return;
    if (!broughtNews) {
        _means.policy = _ended.policy;
        _away = _ended.since;
        _outage = _ended.before;
    } else {
        if (_means.policy.hasLasted())
            _outage = 0;
        _away = _means.clock->msSinceEpoch();
    }
    retryIn(_means.policy.nextDelay());
}

void StreamReopener::failed(bool forGood)
{
    if (_state != Attempting)
        return;
    bool const isFirst = std::exchange(_isFirst, false);
    if (!_mayRetry || (isFirst && forGood))
        return giveUp();
    // The policy's waits are from one attempt to the next: one that has taken longer has waited enough.
    retryIn(_means.policy.nextDelay() - (_means.clock->msSinceEpoch() - _began));
}

void StreamReopener::retryIn(qint64 ms)
{
    if (timeLeft() <= 0)
        return giveUp();
    _state = Waiting;
    wait(ms);
    if (!std::exchange(_isTold, true))
        emit retrying();
}

void StreamReopener::wait(qint64 ms)
{
    _timer->start(static_cast<int>(std::max<qint64>(0, std::min(ms, timeLeft()))));
}

qint64 StreamReopener::timeLeft() const
{
    return maximumOutage - _outage - (_means.clock->msSinceEpoch() - _away);
}

void StreamReopener::giveUp()
{
    LOG_INFO("Giving up after %lld ms", static_cast<long long>(_outage + _means.clock->msSinceEpoch() - _away));
    end();
    emit givenUp();
}

void StreamReopener::onTimer()
{
    if (_state == Waiting)
        return timeLeft() > 0 ? attempt() : giveUp();
    if (!_isExtended && _isAnswered()) {
        _isExtended = true;
        wait(isHasty() ? earlyOpening : lateOpening);
        return;
    }
    failed(false);
}
