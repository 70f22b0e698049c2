#pragma once

#include <atomic>
#include <cstdint>
#include <deque>
#include <memory>

struct AVFormatContext;
struct AVPacket;
struct AVStream;

/// Seeks one format context to where pictures can be decoded from: a key frame.
///
/// A format with an index seeks to one by itself. One without, such as an MPEG transport stream, only finds a packet
/// of about that time; then the key frame before it is looked for in ever longer steps back. For the demuxer's
/// thread.
class KeyFrameSeek
{
public:
    static constexpr double firstStep = 2.0; ///< Seconds; each further step is twice as long.

    /// Gives up as soon as `cancelled` is set.
    KeyFrameSeek(AVFormatContext& context, std::atomic<bool> const& cancelled);
    ~KeyFrameSeek();
    KeyFrameSeek(KeyFrameSeek const&) = delete;
    KeyFrameSeek& operator=(KeyFrameSeek const&) = delete;

    /// Seeks a stream to a time stamp of its own time base. Of pictures, and with AVSEEK_FLAG_BACKWARD, the key frame
    /// before it is found; a cover, which has no time, is sought by the other streams. Returns FFmpeg's result,
    /// AVERROR_EXIT when cancelled.
    int seek(int stream, std::int64_t timestamp, int flags);

    /// What was read on the way and is to be played before the next that is read, the key frame first. The caller
    /// owns it.
    AVPacket* takePacket();

private:
    struct Deleter {
        void operator()(AVPacket* packet) const;
    };
    using Packet = std::unique_ptr<AVPacket, Deleter>;

    bool isAtKeyFrame(AVStream const& stream);
    int seekBefore(AVStream const& stream, std::int64_t timestamp, int flags);
    /// Reads on to the decoding time `end`, and keeps what comes from the last key frame on.
    bool findKeyFrame(AVStream const& stream, std::int64_t end, std::int64_t target);
    int read(Packet& packet);

    AVFormatContext& _context;
    std::atomic<bool> const& _cancelled;
    bool _flagsKeys = true; ///< Until a long search to the very beginning has found none.
    std::deque<Packet> _packets;
};
