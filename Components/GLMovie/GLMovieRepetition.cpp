#include "GLMovieRepetition.h"

extern "C" {
#include <libavformat/avformat.h>
}

#include <algorithm>

bool GLMovieRepetition::contains(AVPacket const& packet, AVRational timeBase, std::int64_t comeback)
{
    if (packet.dts == AV_NOPTS_VALUE)
        return false;
    Stream& stream = _streams[packet.stream_index];
    double const back = static_cast<double>(stream.latest.value_or(packet.dts)) - static_cast<double>(packet.dts);
    if (back * av_q2d(timeBase) > longest) {
        stream = {};
        std::erase_if(_recent, [&](Entry const& entry) { return entry.packet.stream == packet.stream_index; });
    }
    Packet const key{packet.stream_index, packet.pts, packet.dts, packet.size};
    bool const goesBack = stream.latest && (back > 0 || (back == 0 && stream.isRepeating));
    auto const isDue = [&](Entry const& entry) { return entry.packet == key && entry.comeback != comeback; };
    auto const found =
        goesBack && comeback != 0 ? std::find_if(_recent.begin(), _recent.end(), isDue) : _recent.end();
    stream.isRepeating = found != _recent.end();
    if (stream.isRepeating) {
        found->comeback = comeback;
        return true;
    }
    stream.latest = std::max(packet.dts, stream.latest.value_or(packet.dts));
    bool const isHere =
        back > 0 && std::erase_if(_recent, [&](Entry const& entry) { return entry.packet == key; }) > 0;
    _recent.push_back({key, isHere ? comeback : 0});
    if (_recent.size() > remembered)
        _recent.pop_front();
    return false;
}

void GLMovieRepetition::clear()
{
    _recent.clear();
    _streams.clear();
}
