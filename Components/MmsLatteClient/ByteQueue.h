#pragma once

#include <QByteArray>

#include <deque>
#include <memory>

/// Bytes that go in at the back and come out at the front. Each is copied once on either way and never in between, so
/// both cost the same however many are inside. Memory grows and shrinks with the content. No lock of its own.
class ByteQueue
{
public:
    static constexpr qint64 blockSize = 65536;

    qint64 size() const { return _end - _front; }

    void append(QByteArray const& bytes);

    /// Takes up to `maxSize` bytes out; returns how many.
    qint64 read(char* data, qint64 maxSize);

    /// Drops up to so many from the front.
    void skip(qint64 count);

    /// Drops from the back what is beyond this size.
    void truncate(qint64 size);

    void clear();

private:
    using Block = std::unique_ptr<char[]>;

    std::deque<Block> _blocks; ///< Of blockSize bytes each; the content is from _front to _end.
    Block _spare;              ///< The block that was emptied last: as much comes again.
    qint64 _front = 0;         ///< Within the first block.
    qint64 _end = 0;           ///< Counted from the beginning of the first block.
};
