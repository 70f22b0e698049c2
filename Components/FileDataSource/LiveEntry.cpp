#include "LiveEntry.h"

extern "C" {
#include <libavcodec/packet.h>
#include <libavutil/avutil.h>
}

LiveEntry::LiveEntry(StreamInfo const& streams)
    : _video{streams.videoSnapshot.index, av_q2d(streams.videoSnapshot.timeBase), {}},
      _audio{streams.audioSnapshot.index, av_q2d(streams.audioSnapshot.timeBase), {}},
      _waitsForKeyFrame(streams.video && !streams.videoSnapshot.isCover)
{
}

bool LiveEntry::isAhead(AVPacket const& packet)
{
    if (_waitsForKeyFrame)
        return isAheadOfKeyFrame(packet);
    if (!_waitsForSound || packet.stream_index != _audio.index)
        return false;
    double const before = _begin - secondsOf(packet, _audio).value_or(_begin);
    _waitsForSound = before > 0.0 && before < patience; // Far before it, the sound goes by another clock.
    return _waitsForSound;
}

bool LiveEntry::isAheadOfKeyFrame(AVPacket const& packet)
{
    bool const isVideo = packet.stream_index == _video.index;
    if (!isVideo && packet.stream_index != _audio.index)
        return true;
    Track& track = isVideo ? _video : _audio;
    std::optional<double> const seconds = secondsOf(packet, track);
    if (!track.first)
        track.first = seconds;
    bool const isKeyFrame = isVideo && (packet.flags & AV_PKT_FLAG_KEY) != 0;
    bool const isTooLate = seconds ? *seconds - *track.first > patience : ++_timeless > maximumPackets;
    if (!isKeyFrame && !isTooLate)
        return true;
    _waitsForKeyFrame = false;
    _waitsForSound = isKeyFrame && seconds;
    _begin = seconds.value_or(0.0);
    return false;
}

std::optional<double> LiveEntry::secondsOf(AVPacket const& packet, Track const& track)
{
    std::int64_t const time = packet.pts != AV_NOPTS_VALUE ? packet.pts : packet.dts;
    if (time == AV_NOPTS_VALUE)
        return {};
    return static_cast<double>(time) * track.timeBase;
}
