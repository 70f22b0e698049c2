#pragma once

#include <QByteArray>
#include <QDataStream>
#include <QString>
#include <QUuid>
#include <QtEndian>

#include <algorithm>
#include <concepts>
#include <utility>

/// Reads the fields of one object out of its body, and never anything behind it. What is missing at the end reads as
/// zeros, and the stream that the body came from then has the status ReadPastEnd.
class AsfReader
{
public:
    /// Takes the body of an object of `size` bytes out of a stream that stands behind the object's 24-byte header.
    AsfReader(QDataStream& stream, long long size);

    /// Reads what was read before, as a part of an object.
    explicit AsfReader(QByteArray bytes) : _bytes(std::move(bytes)) {}

    /// A little-endian number.
    template<std::unsigned_integral Number>
    Number read()
    {
        if (!has(sizeof(Number))) {
            fail();
            return 0;
        }
        Number const value = qFromLittleEndian<Number>(_bytes.constData() + _position);
        _position += static_cast<qint64>(sizeof(Number));
        return value;
    }

    QUuid readGuid();

    /// The next bytes, or the fewer that are left.
    QByteArray readBytes(qint64 length);

    /// The next 16-bit units, or the fewer that are left.
    QString readUnits(qint64 units);

    QByteArray rest() { return readBytes(left()); }
    qint64 left() const { return _bytes.size() - _position; }
    bool has(qint64 length) const { return length <= left(); }

    /// Goes back to an earlier position, which is left() as it was there.
    void returnTo(qint64 left) { _position = _bytes.size() - left; }

private:
    void fail();

    QDataStream* _source = nullptr;
    QByteArray _bytes;
    qint64 _position = 0;
};
