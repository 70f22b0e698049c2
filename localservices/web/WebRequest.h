#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <QUrlQuery>

#include <utility>

/// A request of HTTP, as far as this service looks at it. A value.
struct WebRequest {
    enum class Method { Get, Head, Post, Other };

    Method method = Method::Get;
    QString path; ///< Decoded, with "/" in front.
    QUrlQuery query;
    QByteArray contentType;
    QByteArray ifModifiedSince;
    QByteArray body;
    QString peer;     ///< The client's address.
    QString host;     ///< That it has asked for, without a port: a name or address in safe characters.
    quint16 port = 0; ///< That it has come to.
    bool isTls = false;

    /// The address of this service as the client knows it, without a path.
    QString base() const
    {
        return QStringLiteral("%1://%2:%3")
            .arg(isTls ? QLatin1String("https") : QLatin1String("http"), host)
            .arg(port);
    }

    bool isRead() const { return method == Method::Get || method == Method::Head; }
};

/// The answer to one. A value.
struct WebAnswer {
    int status = 200;
    QByteArray type; ///< The content type.
    QByteArray body;
    QList<std::pair<QByteArray, QByteArray>> headers; ///< Besides type and length.

    static WebAnswer text(int status, QString const& text)
    {
        return {status, "text/plain; charset=utf-8", text.toUtf8() + '\n', {}};
    }
};
