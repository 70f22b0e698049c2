#pragma once

#include "FakeTickCounter.h"
#include "Timer.h"

/// A timer that runs out when it is told to, either by itself with fire() or with FakeTimerFactory::advance().
class FakeTimer : public Timer
{
    Q_OBJECT

public:
    /// Takes the time from the clock, which is borrowed.
    explicit FakeTimer(FakeTickCounter& clock, QObject* parent = nullptr) : Timer(parent), _clock(clock) {}

    void setSingleShot(bool singleShot) override { _singleShot = singleShot; }
    bool isSingleShot() const { return _singleShot; }
    int timerId() const override { return _active ? 1 : -1; }

    /// When the timer runs out, on its clock.
    qint64 msDue() const { return _msDue; }

    /// Runs out now: emits timeout, and goes on only if it is not single-shot.
    void fire();

public slots:
    void start(int ms) override;
    void stop() override { _active = false; }
    int interval() const override { return _interval; }
    bool isActive() const override { return _active; }

private:
    FakeTickCounter& _clock;
    bool _singleShot = false;
    bool _active = false;
    int _interval = 0;
    qint64 _msDue = 0;
};
