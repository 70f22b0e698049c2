#pragma once

#include <cstdint>
#include <vector>

extern "C" {
#include <libavutil/avutil.h>
#include <libavutil/rational.h>
}

/// Makes the time stamps of a session fit for a container: they begin where the session before ended, and decoding
/// times grow with every packet of a stream and are never later than when it is shown. When a packet is shown, and
/// how the streams lie to each other, stays as the server says.
///
/// RTP tells only when a packet is shown; decoding times are made up, a fixed time before, which pictures that come
/// out of order may use up. A stream whose time leaps back by more moves all streams forward instead. A leap too long
/// to be believed, as of a server with two clocks, is taken out; streams that leap together stay together.
class RtspTimeline
{
public:
    struct Stamps {
        std::int64_t pts = AV_NOPTS_VALUE;
        std::int64_t dts = AV_NOPTS_VALUE;
        std::int64_t duration = 0;
    };

    static constexpr std::int64_t delay =
        1000000; ///< µs from decoding to showing, and from the start to the first packet.

    static constexpr std::int64_t believable = 10000000; ///< µs that a stream may leap.

    /// The first packet is shown `delay` after `start`, in microseconds; those of other streams may begin earlier by
    /// as much.
    explicit RtspTimeline(std::int64_t start) : _start(start), _end(start) {}

    /// The stamps that the next packet of a stream gets, in that stream's own time base, as are those given.
    Stamps next(unsigned int index, AVRational timeBase, Stamps stamps);

    /// Where all that has been given out ends, in microseconds.
    std::int64_t end() const { return _end; }

private:
    struct Stream {
        Stamps last;             ///< What its last packet got.
        std::int64_t offset = 0; ///< µs from the server's time to ours.
    };

    void fit(Stream& stream, AVRational timeBase, std::int64_t shown);
    std::int64_t earliest(Stream const& stream, AVRational timeBase) const;
    std::int64_t expected(Stream const& stream, AVRational timeBase) const;

    std::int64_t const _start;
    std::int64_t _end;
    bool _begun = false;
    std::int64_t _offset = 0; ///< The newest of all streams.
    std::vector<Stream> _streams;
};
