#pragma once

#include <QByteArray>

/// A data packet: a piece of the ASF header, or an ASF data packet. On the wire, little-endian: location id u32;
/// incarnation u8; flags u8; packet size u16, from 8, these 8 bytes included; the payload.
struct MmsData {
    static constexpr int headerBytes = 8;
    static constexpr int maximumBytes = 65535;

    /// The packet at the beginning of the bytes, of which there must be as many as it announces, at least 8.
    static MmsData fromBytes(QByteArrayView bytes);

    /// The size that the packet at the beginning of at least 8 bytes announces.
    static int packetSize(QByteArrayView bytes);

    quint32 locationId = 0;
    quint8 incarnation = 0;
    quint8 flags = 0;
    QByteArray payload;
};
