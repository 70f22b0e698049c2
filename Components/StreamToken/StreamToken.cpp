#include "StreamToken.h"

#include <QCryptographicHash>
#include <QMessageAuthenticationCode>

#include <algorithm>

namespace
{
constexpr char separator = '~';
constexpr qsizetype longestNumber = 18; // Digits; what is longer need not fit into 64 bits.

/// Looks at each byte, wherever the first difference is.
bool areEqual(QByteArray const& left, QByteArray const& right)
{
    unsigned difference = left.size() == right.size() ? 0 : 1;
    for (qsizetype i = 0; i < std::min(left.size(), right.size()); ++i)
        difference |= static_cast<unsigned char>(left.at(i)) ^ static_cast<unsigned char>(right.at(i));
    return difference == 0;
}
} // namespace

QByteArray StreamToken::make(QByteArray const& key, QString const& path, qint64 expiresAt)
{
    QByteArray const expires = QByteArray::number(expiresAt);
    QByteArray const message = path.toUtf8() + separator + expires;
    return expires + separator + QMessageAuthenticationCode::hash(message, key, QCryptographicHash::Sha256).toHex();
}

bool StreamToken::isValid(QByteArray const& key, QString const& path, QByteArray const& token, qint64 now)
{
    qsizetype const end = token.indexOf(separator);
    if (key.isEmpty() || end < 1 || end > longestNumber)
        return false;
    bool isNumber = false;
    qint64 const expiresAt = token.left(end).toLongLong(&isNumber);
    // Made anew, so that a number in another form, such as "+1", is no token either.
    return isNumber && areEqual(make(key, path, expiresAt), token) && now <= expiresAt;
}
