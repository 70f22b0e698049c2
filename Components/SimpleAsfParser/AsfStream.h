#pragma once

#include <QByteArray>
#include <QDataStream>
#include <QUuid>

/// What ASF needs of a data stream. The streams are little-endian: see littleEndian().
namespace AsfStream
{
/// Sets the byte order of ASF; before the first field.
void littleEndian(QDataStream& stream);

/// Bytes that can still be read.
qint64 left(QDataStream const& stream);

/// The next `length` bytes, or the fewer that are left; nothing for a negative length.
QByteArray readBytes(QDataStream& stream, qint64 length);
void writeBytes(QDataStream& stream, QByteArray const& bytes);

/// A GUID: u32, u16, u16 and eight bytes.
QUuid readGuid(QDataStream& stream);
void writeGuid(QDataStream& stream, QUuid const& guid);

/// Writes the 16-bit units of a text and nothing else.
void writeUnits(QDataStream& stream, QString const& text);
} // namespace AsfStream
