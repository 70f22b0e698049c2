#pragma once

#include "Demuxer.h"

/// Where a live stream that is joined anywhere begins to be played: with the first key frame, and the sound that
/// belongs to it. What comes before could only delay the picture. For one thread at a time.
class LiveEntry
{
public:
    static constexpr double patience = 5.0; ///< Seconds; some streams have no key frames, or no pictures for long ...
    static constexpr int maximumPackets = 500; ///< ... and some no time stamps.

    /// Everything belongs to the stream.
    LiveEntry() = default;
    /// Pictures that are not just a cover are waited for.
    explicit LiveEntry(StreamInfo const& streams);

    /// Whether a packet, asked in the order in which they come, lies before the beginning.
    bool isAhead(AVPacket const& packet);

private:
    struct Track {
        int index = -1;
        double timeBase = 0.0;
        std::optional<double> first; ///< Seconds of its first packet.
    };

    bool isAheadOfKeyFrame(AVPacket const& packet);
    static std::optional<double> secondsOf(AVPacket const& packet, Track const& track);

    Track _video;
    Track _audio;
    bool _waitsForKeyFrame = false;
    bool _waitsForSound = false;
    int _timeless = 0;   ///< Packets before the key frame.
    double _begin = 0.0; ///< Seconds of the key frame.
};
