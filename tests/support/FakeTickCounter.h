#pragma once

#include "TickCounter.h"

#include <atomic>

/// A clock that stands still until it is moved. Any thread may ask it.
class FakeTickCounter : public TickCounter
{
public:
    explicit FakeTickCounter(qint64 now = 1'000'000'000'000) : _now(now) {}

    qint64 msSinceEpoch() override { return _now; }

    void set(qint64 now) { _now = now; }
    void advance(qint64 ms) { _now += ms; }

private:
    std::atomic<qint64> _now;
};
