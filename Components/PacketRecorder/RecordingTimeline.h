#pragma once

#include "Demuxer.h"

#include <cstdint>
#include <optional>
#include <vector>

struct AVPacket;

/// Gives the packets of a film their times in a recording of it, which begins with a key frame at 0 and goes on
/// without a gap where the film is sought or begins anew: at the next key frame. For one thread.
class RecordingTimeline
{
public:
    static constexpr std::int64_t maximumStepBack = 500000; ///< µs against the stream's own order; more is a seek.
    static constexpr std::int64_t maximumGap = 10000000;    ///< µs beyond the end; more is a seek.

    explicit RecordingTimeline(std::vector<StreamSnapshot> const& streams);

    /// Whether a packet, with times of its stream, given by its place in the list, is part of the recording; its
    /// times are microseconds of the recording then.
    bool place(AVPacket& packet, std::size_t stream);

private:
    struct Stream {
        AVRational timeBase;
        bool isVideo;
        std::int64_t last = 0; ///< The last decoding time, in the recording.
        std::int64_t next = 0; ///< Where a packet without a time stands, in the film.
    };

    bool isPlacedAnew(std::int64_t time, Stream const& stream) const;

    std::vector<Stream> _streams;
    bool _hasVideo = false;
    std::optional<std::int64_t> _origin; ///< Of the recording, in the film, in µs; null while a key frame is awaited.
    std::int64_t _begin = 0;             ///< Of the part since then, in the recording, in µs.
    std::int64_t _end = 0;               ///< Of what is recorded, in µs.
};
