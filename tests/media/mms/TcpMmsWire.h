#pragma once

#include "MmsTestSupport.h"

#include <bit>

/// The bytes of MMS over TCP, written down apart from the classes under test.
namespace TcpMmsWire
{
using AsfBytes::u16;
using AsfBytes::u32;

inline QByteArray numbers(QList<quint32> const& values)
{
    QByteArray bytes;
    for (quint32 const value : values)
        bytes += u32(value);
    return bytes;
}

inline QByteArray real(double value)
{
    return AsfBytes::u64(std::bit_cast<quint64>(value));
}

/// UTF-16 with a 0 unit.
inline QByteArray text(QString const& text)
{
    QByteArray bytes;
    for (QChar const unit : text)
        bytes += u16(unit.unicode());
    return bytes + u16(0);
}

/// A whole message with its header and its padding.
inline QByteArray message(quint32 type, QByteArray const& body, quint16 sequence = 0)
{
    auto const chunks = static_cast<quint32>((8 + body.size() + 7) / 8);
    return QByteArray::fromHex("01000000CEFA0BB0") + u32(16 + 8 * chunks) + "MMS " + u32(chunks + 2) + u16(sequence) +
           QByteArray(10, '\0') + u32(chunks) + u32(type) +
           body.leftJustified(static_cast<qsizetype>(chunks) * 8 - 8, '\0');
}

/// A data packet; without a size, the right one.
inline QByteArray data(quint32 locationId, QByteArray const& payload, int size = -1)
{
    return u32(locationId) + char(1) + char(0) + u16(static_cast<quint16>(size < 0 ? payload.size() + 8 : size)) +
           payload;
}

// What a server answers to the steps of a conversation.
inline QByteArray connectedEx(quint32 result = 0, quint32 mark = 0)
{
    return message(0x40001, numbers({result, mark, 0x0004000B, 0x0003001C}) + real(1.0) +
                                numbers({1, 1, 0x8000, 10000000, 12, 1, 1, 5}) + text("9.1.0.12345") + text("") +
                                text("") + text("NTLM"));
}

inline QByteArray funnelInfo(quint32 result = 0)
{
    return message(0x40015, numbers({result, 0, 8, 1, 0x10000, 0, 1, 1, 0, 0}));
}

inline QByteArray connectedFunnel(quint32 result = 0)
{
    return message(0x40002, numbers({result, 3, 0}) + text("Funnel Of The Gods"));
}

inline QByteArray openedFile(quint32 result = 0) // The file id is 7.
{
    return message(0x40006, numbers({result, 1, 7, 0, 0, 0}) + real(60.0) + u32(60) + QByteArray(16 + 16 + 36, '\1'));
}

inline QByteArray readBlock(quint32 result = 0)
{
    return message(0x40011, numbers({result, 1, 0}));
}

inline QByteArray header()
{
    QByteArray const bytes = asfHeader();
    return data(0, bytes.first(100)) + data(1, bytes.mid(100, 1)) + data(2, bytes.sliced(101));
}

inline QByteArray streamSwitch(quint32 result = 0)
{
    return message(0x40021, u32(result));
}

inline QByteArray startedPlaying(quint32 result = 0)
{
    return message(0x40005, numbers({result, 1, 0, 0}));
}
} // namespace TcpMmsWire
