#include "BroadcastTimeline.h"

#include "AsfFile.h"

#include <algorithm>

qint64 BroadcastTimeline::msOf(qint64 packet) const
{
    return _msStart + repetitionOf(packet) * _file->duration() + _file->sendTimes().at(indexOf(packet));
}

qint64 BroadcastTimeline::firstAfter(qint64 ms) const
{
    if (ms < _msStart)
        return 0;
    qint64 const elapsed = ms - _msStart;
    qint64 const repetition = elapsed / _file->duration();
    auto const inFilm = static_cast<quint32>(elapsed % _file->duration());
    auto const& times = _file->sendTimes();
    return repetition * times.size() + (std::upper_bound(times.cbegin(), times.cend(), inFilm) - times.cbegin());
}

qint64 BroadcastTimeline::keyPacketUpTo(qint64 packet, int stream) const
{
    if (packet <= 0)
        return 0;
    auto const keys = _file->keyPackets().constFind(stream);
    if (keys == _file->keyPackets().cend() || keys->isEmpty())
        return packet;
    qint64 const repetition = repetitionOf(packet);
    auto const next = std::upper_bound(keys->cbegin(), keys->cend(), indexOf(packet));
    if (next != keys->cbegin())
        return repetition * _file->packetCount() + *(next - 1);
    return repetition == 0 ? 0 : (repetition - 1) * _file->packetCount() + keys->last();
}

int BroadcastTimeline::indexOf(qint64 packet) const
{
    return static_cast<int>(packet % _file->packetCount());
}

qint64 BroadcastTimeline::repetitionOf(qint64 packet) const
{
    return packet / _file->packetCount();
}
