#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QString>

/// The report of a play that servers of MMS over HTTP want, a document of one element per field.
struct HttpMmsReport {
    static constexpr char const* contentType = "application/x-wms-LogStats;charset=UTF-8";

    QString url;
    QString referrer;
    QString guid; ///< In braces.
    QDateTime now;

    /// The body as it is sent: UTF-8, with what is special in XML escaped.
    QByteArray body() const;
};
