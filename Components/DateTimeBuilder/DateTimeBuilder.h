#pragma once

class QDateTime;

/// The current date and time, as an interface, so that tests set it by hand.
class DateTimeBuilder
{
public:
    virtual ~DateTimeBuilder() = default;

    virtual QDateTime currentDateTime() = 0;
};
