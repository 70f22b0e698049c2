#pragma once

#include "TickCounter.h"

class Logger;

/// The system's clock.
class SystemTickCounter : public TickCounter
{
public:
    qint64 msSinceEpoch() override;

private:
    static Logger* log;
};
