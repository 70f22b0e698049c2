#pragma once

#include <QByteArray>
#include <QByteArrayList>
#include <QList>

#include <utility>

/// A request of HTTP/1.0 or 1.1 as it was received. A value.
struct HttpRequest {
    QByteArray method;
    QByteArray target;
    int minorVersion = 0;
    QList<std::pair<QByteArray, QByteArray>> headers; ///< Names in lower case.
    QByteArray body;

    /// The values of all header lines of this name, in order.
    QByteArrayList values(QByteArray const& name) const;

    /// The first of them; empty when there is none.
    QByteArray value(QByteArray const& name) const;
};
