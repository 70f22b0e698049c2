#include "RtspTimeline.h"

extern "C" {
#include <libavutil/mathematics.h>
}

#include <algorithm>

namespace
{

constexpr AVRational microseconds{1, 1000000};
constexpr std::int64_t none = AV_NOPTS_VALUE;

} // namespace

RtspTimeline::Stamps RtspTimeline::next(unsigned int stream, AVRational timeBase, Stamps stamps)
{
    if (stream >= _last.size())
        _last.resize(stream + 1);
    Stamps& last = _last[stream];
    auto const toTicks = [timeBase](std::int64_t us) { return av_rescale_q(us, microseconds, timeBase); };
    auto const toMicroseconds = [timeBase](std::int64_t ticks) {
        return av_rescale_q(ticks, timeBase, microseconds);
    };

    std::int64_t shown = stamps.pts != none ? stamps.pts : stamps.dts;
    if (shown == none) // Right after the one before.
        shown = last.pts == none ? toTicks(_start + delay - _offset) : last.pts + last.duration - toTicks(_offset);
    if (!_begun) {
        _begun = true;
        _offset = _start + delay - toMicroseconds(shown);
    }
    std::int64_t const earliest = last.dts == none ? toTicks(_start) : last.dts + 1;
    if (shown + toTicks(_offset) < earliest) {
        std::int64_t const wanted = last.pts == none ? earliest : last.pts + last.duration;
        _offset = toMicroseconds(wanted - shown);
    }
    Stamps result;
    result.pts = std::max(shown + toTicks(_offset), earliest); // Rounding may miss by one.
    result.dts = std::max(result.pts - toTicks(delay), earliest);
    result.duration = std::max<std::int64_t>(stamps.duration, 0);
    last = result;
    _end = std::max(_end, toMicroseconds(result.pts + result.duration));
    return result;
}
