#pragma once

extern "C" {
#include <libavutil/rational.h>
}

#include <cstdint>
#include <deque>
#include <map>
#include <optional>

struct AVPacket;

/// Finds the packets that a live server sends once more to whoever comes back to it: it begins shortly before now,
/// and what was received before the loss plays still. Played twice, they would hold the picture until their time has
/// come again. Only packets that are the same, and that go back in their stream, count: a sender that has set its
/// clock back sends something else. Each is found once for each return: a film that begins anew for ever is no loss.
/// For one thread.
class GLMovieRepetition
{
public:
    static constexpr std::size_t remembered = 4096; ///< Packets: half a minute of picture and sound, or more.
    static constexpr double longest = 10.0;         ///< Seconds back; further belongs to a new clock.

    /// Whether this packet, whose times count in units of `timeBase`, has come before, and comes again because of the
    /// sender's return of that number; remembers it otherwise. The number 0 stands for none, so that nothing is
    /// found.
    bool contains(AVPacket const& packet, AVRational timeBase, std::int64_t comeback);

    /// Forgets everything: what comes next was asked for.
    void clear();

private:
    struct Packet {
        int stream;
        std::int64_t pts;
        std::int64_t dts;
        int size;
        bool operator==(Packet const&) const = default;
    };
    struct Entry {
        Packet packet;
        std::int64_t comeback = 0; ///< For which it was found last.
    };
    struct Stream {
        std::optional<std::int64_t> latest; ///< Decoding time.
        bool isRepeating = false;
    };

    std::deque<Entry> _recent;
    std::map<int, Stream> _streams; ///< By index.
};
