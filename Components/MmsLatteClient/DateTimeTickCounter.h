#pragma once

#include "DateTimeBuilder.h"
#include "TickCounter.h"

#include <QDateTime>

/// The milliseconds of a DateTimeBuilder, which is borrowed.
class DateTimeTickCounter : public TickCounter
{
public:
    explicit DateTimeTickCounter(DateTimeBuilder* dateTimeBuilder) : _dateTimeBuilder(dateTimeBuilder) {}

    qint64 msSinceEpoch() override { return _dateTimeBuilder->currentDateTime().toMSecsSinceEpoch(); }

private:
    DateTimeBuilder* const _dateTimeBuilder;
};
