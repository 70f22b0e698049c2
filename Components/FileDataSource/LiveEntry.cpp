#include "LiveEntry.h"

extern "C" {
#include <libavcodec/packet.h>
#include <libavutil/avutil.h>
}

namespace
{

std::int64_t timeOf(AVPacket const& packet)
{
    return packet.pts != AV_NOPTS_VALUE ? packet.pts : packet.dts;
}

} // namespace

LiveEntry::LiveEntry(StreamInfo const& streams)
    : _video(streams.videoSnapshot.index), _audio(streams.audioSnapshot.index),
      _videoBase(streams.videoSnapshot.timeBase), _audioBase(streams.audioSnapshot.timeBase),
      _waitsForKeyFrame(streams.video && !streams.videoSnapshot.isCover), _waitsForSound(_waitsForKeyFrame)
{
}

bool LiveEntry::isAhead(AVPacket const& packet)
{
    if (_waitsForKeyFrame)
        return isAheadOfKeyFrame(packet);
    if (!_waitsForSound || packet.stream_index != _audio)
        return false;
    double const before =
        static_cast<double>(_begin) * av_q2d(_videoBase) - static_cast<double>(timeOf(packet)) * av_q2d(_audioBase);
    // Far before it, the sound goes by another clock, or has none.
    _waitsForSound = before > 0.0 && before < patience;
    return _waitsForSound;
}

bool LiveEntry::isAheadOfKeyFrame(AVPacket const& packet)
{
    if (packet.stream_index != _video)
        return true;
    std::int64_t const time = timeOf(packet);
    bool const hasTime = time != AV_NOPTS_VALUE;
    if (hasTime && !_first)
        _first = time;
    bool const isLate = hasTime && static_cast<double>(time - *_first) * av_q2d(_videoBase) > patience;
    if ((packet.flags & AV_PKT_FLAG_KEY) == 0 && !isLate)
        return true;
    _waitsForKeyFrame = false;
    _waitsForSound = hasTime;
    _begin = time;
    return false;
}
