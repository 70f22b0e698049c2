#pragma once

#include "AsfEntryFinder.h"
#include "ByteQueue.h"

#include <QMutex>

#include <deque>
#include <limits>

/// What an MMS stream has brought and the player has not taken yet, and the header that it belongs to. Decides when
/// there is enough to begin with. Every operation is for any thread.
class MmsStreamBuffer
{
public:
    static constexpr qint64 defaultCapacity = 5242880;  ///< bytes
    static constexpr int secondsToStart = 5;            ///< of the stream, before playing begins
    static constexpr int secondsToHold = 15;            ///< of the stream, if the capacity is less
    static constexpr qint64 maximumCapacity = 64 << 20; ///< bytes, for that
    static constexpr qint64 reserve = 256 << 10; ///< bytes, for what is under way when nothing more is asked for

    /// What came of bytes that were appended.
    struct Appended {
        bool isFull = false;       ///< There was no room: nothing of them was taken.
        bool isNearlyFull = false; ///< There is room for no more than what is under way already.
        int percent = -1;          ///< A further tenth of what playing begins with is there; -1 for none.
        bool hasStarted = false;   ///< Playing begins with these.
        bool isNewStream = false;  ///< It does so with a new header, of descriptorSize bytes.
        qint64 descriptorSize = 0;
        bool isReadable = false;
    };

    /// A stream begins: what is buffered belongs to another one, and goes. Does nothing and returns false when the
    /// header is that of the present stream. The bitrate is in bits a second, the packet size in bytes.
    bool setHeader(QByteArray const& header, qint64 bitrate, qint64 packetSize);

    Appended append(QByteArray const& data);

    /// The new header has been announced and heard: what belongs to it can be read, as long as it plays.
    void release();

    /// The stream was lost: playing stops until the next one has brought enough. What is here already can still be
    /// read. Returns whether it was playing.
    bool interrupt();

    /// From now on half of what playing would begin with is enough.
    void useReconnectThreshold();

    /// After so much was read that it is worth while to ask for more, having stopped that.
    bool hasRoom() const;

    /// Drops all up to the newest packet to begin with that leaves what playing would begin with after a loss, or
    /// else up to the newest. Returns how many bytes.
    qint64 leapForward();

    /// Takes whole packets out; returns their bytes in all.
    qint64 read(char* data, qint64 maxSize);

    /// What can be read; 0 while that is less than a packet.
    qint64 bytesAvailable() const;

    /// All that is here, for show.
    qint64 size() const;

    void clear();
    bool isPlaying() const;
    QByteArray descriptor() const;

    /// The buffer size last asked for.
    qint64 requestedLength() const;

    /// Ignores a length of 0 or less. Returns whether something had to be dropped from the back.
    bool setRequestedLength(qint64 length);

    /// Bytes that came since the last call.
    int takeBytesThisSecond();

private:
    qint64 readable() const;
    qint64 startLength() const;
    qint64 capacity() const;
    void drop(qint64 count);
    void forget(qint64 count);

    static constexpr qint64 unlimited = std::numeric_limits<qint64>::max();

    mutable QMutex _bufferMutex; ///< Guards what follows. Nothing is called with it held.
    bool _playing = false;       ///< The buffer has reached the start threshold.
    qint64 _bufferCapacity = defaultCapacity;
    qint64 _requestedBufferLength = defaultCapacity;
    qint64 _startThreshold = 65536;     ///< Bytes needed before playing starts.
    qint64 _reconnectThreshold = 32768; ///< The same after a failure.
    QByteArray _descriptor;
    ByteQueue _buffer;
    qint64 _taken = 0;           ///< Bytes that have left the buffer at its front, ever.
    std::deque<qint64> _entries; ///< Where in all bytes ever the packets to begin with are; those in the buffer.
    AsfEntryFinder _entryFinder; ///< Of the descriptor.
    qint64 _bitrate = 1;         ///< Of the stream, bits a second.
    qint64 _packetSize = -1;
    int _progressPercent = 0; ///< The last tenth reported.
    qint64 _bytesThisSecond = 0;
    bool _descriptorPending = false; ///< A new header is to be announced.

    /// How much may be read while not playing. After a loss, what is left of before; the rest is held back, or a
    /// reader that waits would take every packet at once and there would never be enough to begin with.
    qint64 _releasedBytes = unlimited;
};
