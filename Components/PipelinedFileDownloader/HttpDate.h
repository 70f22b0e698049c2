#pragma once

#include <QDateTime>
#include <QString>

/// Dates as HTTP writes them (RFC 9110, IMF-fixdate): "Sun, 06 Nov 1994 08:49:37 GMT".
class HttpDate
{
public:
    static QString toString(QDateTime const& date);

    /// In UTC; not valid for any other text.
    static QDateTime parse(QString const& text);
};
