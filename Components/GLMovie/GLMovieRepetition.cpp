#include "GLMovieRepetition.h"

extern "C" {
#include <libavformat/avformat.h>
}

#include <algorithm>

bool GLMovieRepetition::contains(AVPacket const& packet, AVRational timeBase)
{
    if (packet.dts == AV_NOPTS_VALUE)
        return false;
    Stream& stream = _streams[packet.stream_index];
    std::int64_t const back = stream.latest.value_or(packet.dts) - packet.dts;
    if (static_cast<double>(back) * av_q2d(timeBase) > longest) {
        stream = {};
        std::erase_if(_recent, [&](Packet const& recent) { return recent.stream == packet.stream_index; });
    }
    Packet const key{packet.stream_index, packet.pts, packet.dts, packet.size};
    bool const goesBack = stream.latest && (back > 0 || (back == 0 && stream.isRepeating));
    stream.isRepeating = goesBack && std::find(_recent.begin(), _recent.end(), key) != _recent.end();
    if (stream.isRepeating)
        return true;
    stream.latest = std::max(packet.dts, stream.latest.value_or(packet.dts));
    _recent.push_back(key);
    if (_recent.size() > remembered)
        _recent.pop_front();
    return false;
}

void GLMovieRepetition::clear()
{
    _recent.clear();
    _streams.clear();
}
