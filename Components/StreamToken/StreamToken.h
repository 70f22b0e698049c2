#pragma once

#include <QByteArray>
#include <QString>

/// Tokens that open a stream for some time: what a viewer's program adds to the address of a secure stream, and what
/// the server of that stream asks for. Whoever has the key can make them.
///
/// A token is the query item "token" of the address, and its text is EXPIRES~HEX: EXPIRES the second since the epoch
/// up to which it holds, in decimal digits, and HEX the HMAC-SHA256 (RFC 2104, FIPS 180-4) with the key over
/// PATH~EXPIRES in UTF-8, in 64 lower-case hexadecimal digits. PATH is that of the address, decoded, with its "/" in
/// front and without the query. Any thread may call these.
namespace StreamToken
{

inline constexpr char const* queryItem = "token";

/// The token of this path up to this second since the epoch.
QByteArray make(QByteArray const& key, QString const& path, qint64 expiresAt);

/// Whether the token is one of this path and key that has not run out, in a time that tells nothing about the right
/// one. False for any other text, and for an empty key.
bool isValid(QByteArray const& key, QString const& path, QByteArray const& token, qint64 now);

} // namespace StreamToken
