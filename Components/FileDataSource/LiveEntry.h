#pragma once

#include "Demuxer.h"

/// Where a live stream that is joined anywhere begins to be played: with the first key frame, and the sound that
/// belongs to it. What comes before could only delay the picture. For one thread at a time.
class LiveEntry
{
public:
    static constexpr double patience = 5.0; ///< Seconds of pictures; some streams have no key frames at all.

    /// Everything belongs to the stream.
    LiveEntry() = default;
    /// Pictures that are not just a cover are waited for.
    explicit LiveEntry(StreamInfo const& streams);

    /// Whether a packet, asked in the order in which they come, lies before the beginning.
    bool isAhead(AVPacket const& packet);

private:
    bool isAheadOfKeyFrame(AVPacket const& packet);

    int _video = -1;
    int _audio = -1;
    AVRational _videoBase{0, 1};
    AVRational _audioBase{0, 1};
    bool _waitsForKeyFrame = false;
    bool _waitsForSound = false;
    std::optional<std::int64_t> _first; ///< Time of the first picture, and of that which it begins with.
    std::int64_t _begin = 0;
};
