#include "RtspTimeline.h"

extern "C" {
#include <libavutil/mathematics.h>
}

#include <algorithm>

namespace
{

constexpr AVRational microseconds{1, 1000000};
constexpr std::int64_t none = AV_NOPTS_VALUE;

std::int64_t ticksOf(std::int64_t us, AVRational timeBase)
{
    return av_rescale_q(us, microseconds, timeBase);
}

} // namespace

RtspTimeline::Stamps RtspTimeline::next(unsigned int index, AVRational timeBase, Stamps stamps)
{
    while (_streams.size() <= index)
        _streams.push_back({{}, _offset});
    Stream& stream = _streams[index];
    std::int64_t shown = stamps.pts != none ? stamps.pts : stamps.dts;
    if (shown == none) // Right after the one before.
        shown = expected(stream, timeBase) - ticksOf(stream.offset, timeBase);
    if (!_begun) {
        _begun = true;
        for (Stream& each : _streams)
            each.offset = _start + delay - av_rescale_q(shown, timeBase, microseconds);
        _offset = stream.offset;
    }
    fit(stream, timeBase, shown);

    std::int64_t const least = earliest(stream, timeBase);
    Stamps result;
    result.pts = std::max(shown + ticksOf(stream.offset, timeBase), least); // Rounding may miss by one.
    result.dts = std::max(result.pts - ticksOf(delay, timeBase), least);
    result.duration = std::max<std::int64_t>(stamps.duration, 0);
    stream.last = result;
    _end = std::max(_end, av_rescale_q(result.pts + result.duration, timeBase, microseconds));
    return result;
}

void RtspTimeline::fit(Stream& stream, AVRational timeBase, std::int64_t shown)
{
    std::int64_t const wanted = expected(stream, timeBase);
    std::int64_t const far = ticksOf(believable, timeBase);
    auto const distance = [&](std::int64_t offset) { return shown + ticksOf(offset, timeBase) - wanted; };
    auto const fits = [&](std::int64_t offset) {
        return distance(offset) <= far && wanted + distance(offset) >= earliest(stream, timeBase);
    };
    if (fits(stream.offset))
        return;
    if (fits(_offset)) { // Another stream has leapt just so.
        stream.offset = _offset;
        return;
    }
    std::int64_t const missing = av_rescale_q(-distance(stream.offset), timeBase, microseconds);
    bool const isBelieved = missing > 0 && missing <= believable;
    for (Stream& each : _streams)
        if (isBelieved || &each == &stream)
            each.offset += missing;
    _offset = stream.offset;
}

std::int64_t RtspTimeline::earliest(Stream const& stream, AVRational timeBase) const
{
    return stream.last.dts == none ? ticksOf(_start, timeBase) : stream.last.dts + 1;
}

std::int64_t RtspTimeline::expected(Stream const& stream, AVRational timeBase) const
{
    if (stream.last.pts != none)
        return stream.last.pts + stream.last.duration;
    return ticksOf(_end > _start ? _end : _start + delay, timeBase);
}
