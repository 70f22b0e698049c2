#pragma once

#include <QtGlobal>

/// The time in milliseconds, as an interface, so that tests move it by hand. Any thread may ask.
class TickCounter
{
public:
    virtual ~TickCounter() = default;

    virtual qint64 msSinceEpoch() = 0;
};
