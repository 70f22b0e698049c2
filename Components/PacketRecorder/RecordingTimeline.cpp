#include "RecordingTimeline.h"

extern "C" {
#include <libavcodec/codec_par.h>
#include <libavcodec/packet.h>
#include <libavutil/avutil.h>
#include <libavutil/mathematics.h>
}

#include <algorithm>

namespace
{
constexpr AVRational microseconds{1, AV_TIME_BASE};
}

RecordingTimeline::RecordingTimeline(std::vector<StreamSnapshot> const& streams)
{
    for (StreamSnapshot const& stream : streams) {
        bool const isVideo = stream.parameters->codec_type == AVMEDIA_TYPE_VIDEO;
        _streams.push_back({stream.timeBase, isVideo});
        _hasVideo = _hasVideo || isVideo;
    }
}

bool RecordingTimeline::place(AVPacket& packet, std::size_t index)
{
    Stream& stream = _streams.at(index);
    av_packet_rescale_ts(&packet, stream.timeBase, microseconds);
    std::int64_t const given = packet.dts != AV_NOPTS_VALUE ? packet.dts : packet.pts;
    std::int64_t const time = given != AV_NOPTS_VALUE ? given : stream.next;
    std::int64_t const shown = packet.pts != AV_NOPTS_VALUE ? packet.pts : time;
    stream.next = time + packet.duration;
    if (isPlacedAnew(time, stream)) {
        _origin.reset();
        if (_hasVideo && !(stream.isVideo && (packet.flags & AV_PKT_FLAG_KEY)))
            return false;
        _begin = _end;
        _origin = shown - _begin;
    }
    packet.pts = shown - *_origin;
    if (packet.pts < _begin)
        return false; // A picture that refers to those before, or sound of theirs.
    packet.dts = std::max(time - *_origin, stream.last);
    packet.pts = std::max(packet.pts, packet.dts);
    stream.last = packet.dts;
    _end = std::max(_end, packet.pts + packet.duration);
    return true;
}

bool RecordingTimeline::isPlacedAnew(std::int64_t time, Stream const& stream) const
{
    if (!_origin)
        return true;
    std::int64_t const placed = time - *_origin;
    return placed < stream.last - maximumStepBack || placed > _end + maximumGap;
}
