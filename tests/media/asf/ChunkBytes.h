#pragma once

#include "AsfBytes.h"

/// Writes the chunks of MMS over HTTP by hand.
namespace ChunkBytes
{
inline QByteArray chunk(char type, QByteArray const& body)
{
    return '$' + QByteArray(1, type) + AsfBytes::u16(static_cast<quint16>(body.size())) + body;
}

/// A chunk whose body begins with the prefix.
inline QByteArray payloadChunk(char type, QByteArray const& payload)
{
    return chunk(type, "$D\x02$H\x01$M" + payload);
}

inline QByteArray data(QByteArray const& packet)
{
    return payloadChunk('D', packet);
}

inline QByteArray header(QByteArray const& part)
{
    return payloadChunk('H', part);
}

inline QByteArray metadata(QByteArray const& text)
{
    return payloadChunk('M', text);
}

inline QByteArray end(quint32 reason)
{
    return chunk('E', AsfBytes::u32(reason));
}

/// The packet pair of a place in the cycle, 1 to 3.
inline QByteArray packetPair(int cycle, quint32 reason)
{
    int const bodies[] = {104 - static_cast<int>(reason), 1044, static_cast<int>(reason) + 500};
    return "$P" + AsfBytes::u16(100) + AsfBytes::u32(reason) + QByteArray(bodies[cycle - 1] - 4, '$');
}
} // namespace ChunkBytes
