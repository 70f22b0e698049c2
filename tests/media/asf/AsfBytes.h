#pragma once

#include "AsfGuids.h"

#include <QByteArray>
#include <QList>
#include <QtEndian>

/// Writes ASF by hand: the bytes of objects and headers, as the format publishes them.
namespace AsfBytes
{
template<typename Number>
QByteArray littleEndian(Number value)
{
    QByteArray bytes(sizeof(Number), Qt::Uninitialized);
    qToLittleEndian(value, bytes.data());
    return bytes;
}
inline constexpr auto u8 = littleEndian<quint8>;
inline constexpr auto u16 = littleEndian<quint16>;
inline constexpr auto u32 = littleEndian<quint32>;
inline constexpr auto u64 = littleEndian<quint64>;

QByteArray guid(QUuid const& value);
QByteArray text(char const* ascii); ///< 16-bit units with a terminator.

/// An object whose size is right.
QByteArray object(QUuid const& guid, QByteArray const& body);

QByteArray fileProperties(quint32 packetSize = 1300, quint32 flags = 2, quint64 fileSize = 123456);
QByteArray audio(int streamNumber, QByteArray const& codecData = "codec");
QByteArray video(int streamNumber, QByteArray const& codecData = "codec");
QByteArray streamProperties(QUuid const& type, int streamNumber, QByteArray const& typeSpecific,
                            QByteArray const& errorCorrection = {});
QByteArray bitrates(QList<std::pair<int, quint32>> const& rates);
QByteArray mutex(QUuid const& objectGuid, QUuid const& type, QList<int> const& streamNumbers);
QByteArray extendedStream(int streamNumber, QByteArray const& embedded = {}, QByteArray const& names = {});
QByteArray metadata(QUuid const& objectGuid, QList<int> const& streamNumbers);
QByteArray headerExtension(QList<QByteArray> const& objects);

/// A Header object around the objects, and the Data object's own header.
QByteArray header(QList<QByteArray> const& objects);

/// One object of every kind that can be in a header, extensions of the header not included.
QList<QByteArray> everyKind();
} // namespace AsfBytes
