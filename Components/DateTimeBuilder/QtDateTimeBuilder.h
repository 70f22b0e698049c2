#pragma once

#include "DateTimeBuilder.h"

/// The system's date and time, in the system's time zone.
class QtDateTimeBuilder : public DateTimeBuilder
{
public:
    QDateTime currentDateTime() override;
};
