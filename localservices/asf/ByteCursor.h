#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QtEndian>

/// Reads little-endian numbers from bytes, in order. Reading past the end gives 0 and makes the cursor invalid for
/// good; nothing outside the bytes is ever touched. The bytes are borrowed.
class ByteCursor
{
public:
    explicit ByteCursor(QByteArrayView bytes, qsizetype position = 0) : _bytes(bytes) { skip(position); }

    bool isValid() const { return _valid; }
    qsizetype position() const { return _position; }
    qsizetype left() const { return _bytes.size() - _position; }

    quint8 u8() { return read<quint8>(); }
    quint16 u16() { return read<quint16>(); }
    quint32 u32() { return read<quint32>(); }
    quint64 u64() { return read<quint64>(); }

    /// A number of 0, 1, 2 or 4 bytes, as the two-bit length types of ASF tell; absent it is 0.
    quint32 ofLengthType(int type) { return type == 0 ? 0 : type == 1 ? u8() : type == 2 ? u16() : u32(); }

    /// The next bytes, which stay borrowed; empty when there are not so many.
    QByteArrayView bytes(quint64 size)
    {
        qsizetype const start = _position;
        return skip(size) ? _bytes.sliced(start, static_cast<qsizetype>(size)) : QByteArrayView();
    }

    bool skip(quint64 size)
    {
        if (!_valid || size > static_cast<quint64>(left()))
            return _valid = false;
        _position += static_cast<qsizetype>(size);
        return true;
    }

private:
    template<typename T>
    T read()
    {
        QByteArrayView const raw = bytes(sizeof(T));
        return raw.isEmpty() ? T(0) : qFromLittleEndian<T>(raw.data());
    }

    QByteArrayView _bytes;
    qsizetype _position = 0;
    bool _valid = true;
};

/// Appends a number in little-endian order.
template<typename T>
void appendLittleEndian(QByteArray& bytes, T value)
{
    T const raw = qToLittleEndian(value);
    bytes.append(reinterpret_cast<char const*>(&raw), sizeof raw);
}
