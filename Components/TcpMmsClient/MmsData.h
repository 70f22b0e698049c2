#pragma once

#include "LittleEndianWriter.h"

/// A data packet: a piece of the ASF header, or an ASF data packet. On the wire, little-endian: location id u32;
/// incarnation u8; flags u8; packet size u16, from 8, these 8 bytes included; the payload.
struct MmsData {
    static constexpr int headerBytes = 8;
    static constexpr int maximumBytes = 65535;

    /// The size that the packet at the beginning of at least 8 bytes announces.
    static int packetSize(QByteArrayView bytes) { return qFromLittleEndian<quint16>(bytes.data() + 6); }

    template<typename Archive>
    void fields(Archive& archive)
    {
        auto size = static_cast<quint16>(headerBytes + payload.size());
        archive(locationId, incarnation, flags, size);
        archive.arrayUpTo(payload, size - headerBytes);
    }

    quint32 locationId = 0;
    quint8 incarnation = 0;
    quint8 flags = 0;
    QByteArray payload;
};
