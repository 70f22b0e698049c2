#pragma once

#include "TickCounter.h"

class Logger;

/// Milliseconds since the machine was started, the time that it was suspended included. Goes on evenly whatever is
/// done to the clock: for all that waits. Has no state.
class MonotonicTickCounter : public TickCounter
{
public:
    qint64 msSinceEpoch() override;

private:
    static Logger* log;
};
