#pragma once

#include <QtGlobal>

class AsfFile;

/// A film repeated for ever on the clock of a broadcast. Packets count from 0 on through all repetitions. The file is
/// borrowed.
class BroadcastTimeline
{
public:
    /// The first packet is sent at `msStart` of the broadcast's clock.
    BroadcastTimeline(AsfFile const& file, qint64 msStart) : _file(&file), _msStart(msStart) {}

    qint64 msStart() const { return _msStart; }

    /// When a packet is sent, on the broadcast's clock.
    qint64 msOf(qint64 packet) const;

    /// The first packet that is sent after this moment.
    qint64 firstAfter(qint64 ms) const;

    /// The last packet in which a key frame of this stream starts and that is not after this one; the first of all
    /// when there is none before. Any packet is one for a stream without key frames, as sound is.
    qint64 keyPacketUpTo(qint64 packet, int stream) const;

    /// Which packet of the file it is, and in which repetition, from 0 on.
    int indexOf(qint64 packet) const;
    qint64 repetitionOf(qint64 packet) const;

private:
    AsfFile const* _file;
    qint64 _msStart;
};
