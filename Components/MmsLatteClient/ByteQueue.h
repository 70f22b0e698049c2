#pragma once

#include <QByteArray>

/// Bytes that go in at the back and come out at the front. Both cost the same however many are inside: what has been
/// read stays until there is more of it than of the rest, and only then is the rest moved. No lock of its own.
class ByteQueue
{
public:
    qint64 size() const { return _bytes.size() - _front; }

    void append(QByteArray const& bytes);

    /// Takes up to `maxSize` bytes out; returns how many.
    qint64 read(char* data, qint64 maxSize);

    /// Drops from the back what is beyond this size.
    void truncate(qint64 size);

    /// Drops everything, and the memory with it.
    void clear();

private:
    QByteArray _bytes;
    qsizetype _front = 0; ///< Where the first unread byte is.
};
