#pragma once

#include "ByteQueue.h"

#include <QMutex>

#include <limits>

/// What an MMS stream has brought and the player has not taken yet, and the header that it belongs to. Decides when
/// there is enough to begin with. Every operation is for any thread.
class MmsStreamBuffer
{
public:
    static constexpr qint64 defaultCapacity = 5242880; ///< bytes
    static constexpr int secondsToStart = 5;           ///< of the stream, before playing begins

    /// What came of bytes that were appended.
    struct Appended {
        bool isFull = false;      ///< There was no room: nothing of them was taken.
        int percent = -1;         ///< A further tenth of what playing begins with is there; -1 for none.
        bool hasStarted = false;  ///< Playing begins with these.
        bool isNewStream = false; ///< It does so with a new header, of descriptorSize bytes.
        qint64 descriptorSize = 0;
        bool isReadable = false;
    };

    /// A stream begins: what is buffered belongs to another one, and goes. Does nothing and returns false when the
    /// header is that of the present stream. The bitrate is in bits a second, the packet size in bytes.
    bool setHeader(QByteArray const& header, qint64 bitrate, qint64 packetSize);

    Appended append(QByteArray const& data);

    /// The stream was lost: playing stops until the next one has brought enough. What is here already can still be
    /// read. Returns whether it was playing.
    bool interrupt();

    /// From now on half of what playing would begin with is enough.
    void useReconnectThreshold();

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

    static constexpr qint64 unlimited = std::numeric_limits<qint64>::max();

    mutable QMutex _bufferMutex; ///< Guards what follows. Nothing is called with it held.
    bool _playing = false;       ///< The buffer has reached the start threshold.
    qint64 _bufferCapacity = defaultCapacity;
    qint64 _requestedBufferLength = defaultCapacity;
    qint64 _startThreshold = 65536;     ///< Bytes needed before playing starts.
    qint64 _reconnectThreshold = 32768; ///< The same after a failure.
    QByteArray _descriptor;
    ByteQueue _buffer;
    qint64 _packetSize = -1;
    int _progressPercent = 0; ///< The last tenth reported.
    qint64 _bytesThisSecond = 0;
    bool _descriptorPending = false; ///< A new header is to be announced.

    /// How much may be read while not playing. After a loss, what is left of before; the rest is held back, or a
    /// reader that waits would take every packet at once and there would never be enough to begin with.
    qint64 _releasedBytes = unlimited;
};
