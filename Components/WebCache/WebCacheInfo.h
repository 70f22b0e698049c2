#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QString>

#include <optional>

/// What is known of a copy besides its bytes; the contents of an information file, which is XML:
///
///     <webcache-info>
///       <last-modified>Sun, 06 Nov 1994 08:49:37 GMT</last-modified>
///       <expires-at>SECONDS SINCE THE EPOCH</expires-at>
///       <address>THE ADDRESS</address>
///     </webcache-info>
///
/// A value.
struct WebCacheInfo {
    static constexpr qsizetype maximumBytes = 64 << 10;

    QDateTime lastModified; ///< As the server told; not valid when it did not.
    qint64 expiresAt = 0;   ///< In seconds since the epoch.
    QString address;        ///< Empty when the file does not tell.

    QByteArray toXml() const;

    /// Nothing for bytes that are no such document, whole.
    static std::optional<WebCacheInfo> parse(QByteArray const& xml);
};
