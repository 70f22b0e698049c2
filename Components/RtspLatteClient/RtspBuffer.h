#pragma once

#include <QByteArray>

#include <deque>
#include <mutex>

/// The bytes between a live server and the demultiplexer, in the chunks in which they came. Any thread.
///
/// Bounded: when a new chunk does not fit, the oldest ones go, up to the next at which a demultiplexer can begin, so
/// that the viewer leaps forward to what is live. What is left of a chunk of which a part has been read stays: the
/// reader never loses step. A byte costs the same whatever the buffer holds.
class RtspBuffer
{
public:
    static constexpr qint64 chunkUpkeep = 64; ///< Bytes that a chunk counts for besides its own.

    explicit RtspBuffer(qint64 capacity) : _capacity(capacity) {}

    /// Appends a chunk; returns how many bytes were dropped to keep within the capacity, this chunk's included. A
    /// group larger than the capacity is dropped whole.
    qint64 append(QByteArray const& chunk, bool isEntry);

    /// Takes up to `size` bytes out; returns how many.
    qint64 read(char* data, qint64 size);

    /// The bytes that can be read.
    qint64 size() const;

    /// Drops what does not fit any more; returns how many bytes.
    qint64 setCapacity(qint64 capacity);
    qint64 capacity() const;

    /// Drops all but the rest of a chunk that is being read.
    void clear();

    /// Drops all, for a reader that begins anew.
    void reset();

private:
    struct Chunk {
        QByteArray bytes;
        bool isEntry;
    };

    qint64 dropToCapacity();
    void clearLocked();

    mutable std::mutex _mutex; ///< Guards all of it.
    qint64 _capacity;
    std::deque<Chunk> _chunks;
    qint64 _chunkBytes = 0;  ///< In _chunks.
    QByteArray _current;     ///< The chunk that is being read.
    qsizetype _position = 0; ///< In it.
    bool _skipping = true;   ///< Until the next entry, after a gap.
};
