#include "LiveEntry.h"

extern "C" {
#include <libavcodec/packet.h>
#include <libavformat/avformat.h>
}

#include <gtest/gtest.h>

TEST(LiveEntry, BeginsWithAKeyFrameAndItsSound)
{
    struct Packet {
        char kind; ///< A key frame, a picture that is none, sound.
        std::int64_t ms;
        bool isPlayed;
    };
    struct Case {
        char const* what;
        std::vector<Packet> packets;
    };
    std::int64_t const none = AV_NOPTS_VALUE;
    Case const cases[] = {
        {"in between",
         {{'s', 0, false}, {'p', 40, false}, {'k', 900, true}, {'s', 880, false}, {'s', 901, true}, {'s', 10, true}}},
        {"at once", {{'k', 0, true}, {'p', 40, true}, {'s', 0, true}}},
        {"no key frames",
         {{'p', 0, false}, {'p', 5000, false}, {'s', 5001, false}, {'p', 5040, true}, {'s', 5100, true}}},
        {"sound only", {{'s', 0, false}, {'s', 5000, false}, {'s', 5001, true}}},
        {"no times", {{'s', none, false}, {'p', none, false}, {'k', none, true}, {'s', none, true}}},
        {"another clock", {{'k', 900000, true}, {'s', 10, true}}},
        {"sound without time", {{'k', 900, true}, {'s', none, true}}},
    };
    AVStream stream = {};
    StreamInfo info;
    info.video = info.audio = &stream;
    info.videoSnapshot.index = 1;
    info.videoSnapshot.timeBase = {1, 1000};
    info.audioSnapshot.index = 0;
    info.audioSnapshot.timeBase = {1, 44100};
    for (Case const& c : cases) {
        LiveEntry entry(info);
        for (Packet const& p : c.packets) {
            AVPacket* const packet = av_packet_alloc();
            packet->stream_index = p.kind == 's' ? 0 : 1;
            packet->flags = p.kind == 'k' ? AV_PKT_FLAG_KEY : 0;
            packet->pts = p.ms == none ? none : p.kind == 's' ? p.ms * 441 / 10 : p.ms;
            EXPECT_EQ(entry.isAhead(*packet), !p.isPlayed) << c.what << ' ' << p.kind << p.ms;
            AVPacket* old = packet;
            av_packet_free(&old);
        }
    }
}
