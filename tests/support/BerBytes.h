#pragma once

#include <QByteArray>
#include <QStringBuilder>

/// Messages written by hand, in forms that our encoder never chooses.
namespace BerBytes
{

inline QByteArray hex(char const* text)
{
    return QByteArray::fromHex(text);
}

/// A length as the shortest, or in the long form with this many bytes after the first.
inline QByteArray length(qsizetype value, int longFormBytes = 0)
{
    if (longFormBytes == 0 && value < 0x80)
        return QByteArray(1, static_cast<char>(value));
    int bytes = longFormBytes;
    while (longFormBytes == 0 && (value >> (8 * bytes)) > 0)
        ++bytes;
    QByteArray result(1, static_cast<char>(0x80 | bytes));
    for (int i = bytes - 1; i >= 0; --i)
        result += static_cast<char>(value >> (8 * i));
    return result;
}

inline QByteArray value(int tag, QByteArray const& contents, int longFormBytes = 0)
{
    return QByteArray(1, static_cast<char>(tag)) + length(contents.size(), longFormBytes) + contents;
}

inline QByteArray indefinite(int tag, QByteArray const& contents)
{
    return QByteArray(1, static_cast<char>(tag)) + QByteArray(1, '\x80') + contents + QByteArray(2, '\0');
}

/// An envelope of a message "m" without sender, whose choice is the given value.
inline QByteArray envelope(QByteArray const& choice)
{
    return value(0xA1, value(0x80, "m") + value(0xA5, choice));
}

/// A message "m" with a time of sending of the given members, and a heartbeat.
inline QByteArray timed(QByteArray const& members)
{
    return value(0xA1, value(0x80, "m") + value(0xA4, members) + value(0xA5, value(0xA0, {})));
}

} // namespace BerBytes
