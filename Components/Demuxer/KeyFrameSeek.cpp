#include "KeyFrameSeek.h"

extern "C" {
#include <libavcodec/packet.h>
#include <libavformat/avformat.h>
}

#include <algorithm>
#include <cmath>

namespace
{

constexpr double longSearch = 60.0; ///< Seconds without a key frame, of a stream that may not tell them.
constexpr std::int64_t maximumBytesWithout = std::int64_t(8) << 20; ///< To keep while no picture comes.
constexpr std::int64_t maximumBytes = std::int64_t(64) << 20;       ///< To keep between a key frame and the target.

bool isPicture(AVPacket const& packet, AVStream const& stream)
{
    return packet.stream_index == stream.index;
}

bool isKey(AVPacket const& packet)
{
    return (packet.flags & AV_PKT_FLAG_KEY) != 0;
}

} // namespace

void KeyFrameSeek::Deleter::operator()(AVPacket* packet) const
{
    av_packet_free(&packet);
}

KeyFrameSeek::KeyFrameSeek(AVFormatContext& context, std::atomic<bool> const& cancelled)
    : _context(context), _cancelled(cancelled)
{
}

KeyFrameSeek::~KeyFrameSeek() = default;

int KeyFrameSeek::seek(int index, std::int64_t timestamp, int flags)
{
    _packets.clear();
    AVStream const& stream = *_context.streams[index];
    if (stream.disposition & AV_DISPOSITION_ATTACHED_PIC)
        return av_seek_frame(&_context, -1, av_rescale_q(timestamp, stream.time_base, {1, AV_TIME_BASE}), flags);
    int const result = av_seek_frame(&_context, index, timestamp, flags);
    bool const needsKey = stream.codecpar->codec_type == AVMEDIA_TYPE_VIDEO && (flags & AVSEEK_FLAG_BACKWARD) != 0 &&
                          (flags & (AVSEEK_FLAG_ANY | AVSEEK_FLAG_BYTE | AVSEEK_FLAG_FRAME)) == 0;
    if (result < 0 || !needsKey || !_flagsKeys || isAtKeyFrame(stream))
        return _cancelled ? AVERROR_EXIT : result;
    int const found = seekBefore(stream, timestamp, flags);
    return _cancelled ? AVERROR_EXIT : found;
}

bool KeyFrameSeek::isAtKeyFrame(AVStream const& stream)
{
    Packet packet;
    for (std::int64_t bytes = 0; bytes < maximumBytesWithout && read(packet) >= 0;) {
        bytes += packet->size;
        _packets.push_back(std::move(packet));
        if (isPicture(*_packets.back(), stream))
            return isKey(*_packets.back());
    }
    return true; // Behind the last picture, or far from the next: there is nothing to decode.
}

int KeyFrameSeek::seekBefore(AVStream const& stream, std::int64_t timestamp, int flags)
{
    std::int64_t const first = stream.start_time == AV_NOPTS_VALUE ? 0 : stream.start_time;
    double const second = 1.0 / av_q2d(stream.time_base);
    std::int64_t from = timestamp;
    for (double step = firstStep; from > first && !_cancelled; step *= 2.0) {
        _packets.clear();
        std::int64_t const end = from;
        from = std::max<std::int64_t>(first, end - std::llround(step * second));
        if (av_seek_frame(&_context, stream.index, from, flags) < 0)
            break;
        if (findKeyFrame(stream, end, timestamp))
            return 0;
    }
    _flagsKeys = _cancelled || timestamp - first < std::llround(longSearch * second);
    _packets.clear();
    return av_seek_frame(&_context, stream.index, timestamp, flags);
}

bool KeyFrameSeek::findKeyFrame(AVStream const& stream, std::int64_t end, std::int64_t target)
{
    std::int64_t bytes = 0;
    Packet packet;
    while (bytes < maximumBytes && read(packet) >= 0) {
        bool const picture = isPicture(*packet, stream);
        std::int64_t const time = packet->dts;
        if (picture && isKey(*packet) && (packet->pts == AV_NOPTS_VALUE || packet->pts <= target)) {
            _packets.clear(); // A later one is better.
            bytes = 0;
            _packets.push_back(std::move(packet));
        } else if (!_packets.empty()) {
            bytes += packet->size;
            _packets.push_back(std::move(packet));
        }
        if (picture && time != AV_NOPTS_VALUE && time >= end)
            break;
    }
    return !_packets.empty() && !_cancelled;
}

int KeyFrameSeek::read(Packet& packet)
{
    packet.reset(av_packet_alloc());
    if (!packet || _cancelled)
        return packet ? AVERROR_EXIT : AVERROR(ENOMEM);
    return av_read_frame(&_context, packet.get());
}

AVPacket* KeyFrameSeek::takePacket()
{
    if (_packets.empty())
        return nullptr;
    AVPacket* const packet = _packets.front().release();
    _packets.pop_front();
    return packet;
}
