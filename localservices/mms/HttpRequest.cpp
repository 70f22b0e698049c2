#include "HttpRequest.h"

QByteArrayList HttpRequest::values(QByteArray const& name) const
{
    QByteArrayList found;
    for (auto const& [header, value] : headers) {
        if (header == name)
            found.append(value);
    }
    return found;
}

QByteArray HttpRequest::value(QByteArray const& name) const
{
    return values(name).value(0);
}
