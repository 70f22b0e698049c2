#include "RtspTimeline.h"

#include <gtest/gtest.h>
#include <vector>

namespace
{

constexpr AVRational picture{1, 90000};
constexpr AVRational sound{1, 8000};
constexpr std::int64_t none = AV_NOPTS_VALUE;

} // namespace

TEST(RtspTimeline, PicturesOutOfOrderKeepTheirTimes)
{
    RtspTimeline timeline(0);
    std::int64_t last = -1;
    for (std::int64_t frame : {0, 3, 1, 2, 6, 4, 5}) {
        // What FFmpeg says of decoding times is no more than a guess.
        auto const stamps = timeline.next(0, picture, {500000 + frame * 3600, frame % 2 ? none : 7, 3600});
        EXPECT_EQ(stamps.pts, 90000 + frame * 3600);
        EXPECT_GT(stamps.dts, last);
        EXPECT_LE(stamps.dts, stamps.pts);
        last = stamps.dts;
    }
    EXPECT_EQ(timeline.end(), 1000000 + 7 * 40000);
}

TEST(RtspTimeline, StreamsKeepTheirDistance)
{
    RtspTimeline timeline(5000000);
    EXPECT_EQ(timeline.next(0, picture, {0, none, 3600}).pts, 6 * 90000);
    EXPECT_EQ(timeline.next(1, sound, {-4000, none, 160}).pts, 6 * 8000 - 4000); // Half a second earlier.
    // The server's report ties the sound to the picture: it is later than it seemed.
    EXPECT_EQ(timeline.next(1, sound, {4000, none, 160}).pts, 6 * 8000 + 4000);
    // Now it leaps far back: everything goes on after what has been, at the same distance.
    std::int64_t const leapt = timeline.next(1, sound, {-80000, none, 160}).pts;
    EXPECT_EQ(leapt, 6 * 8000 + 4000 + 160);
    EXPECT_EQ(timeline.next(0, picture, {-10 * 90000, none, 3600}).pts, leapt * 90000 / 8000);
    EXPECT_EQ(timeline.next(1, sound, {none, none, 160}).pts, leapt + 160); // Right after the one before.
}

TEST(RtspTimeline, ALeapTooLongToBeBelievedIsTakenOut)
{
    for (std::int64_t const leap : {4353 * 8000, -4353 * 8000}) {
        RtspTimeline timeline(0);
        timeline.next(0, picture, {0, none, 3600});
        EXPECT_EQ(timeline.next(1, sound, {0, none, 160}).pts, 8000);
        EXPECT_EQ(timeline.next(1, sound, {leap, none, 160}).pts, 8160); // As a server with two clocks may make it.
        EXPECT_EQ(timeline.next(0, picture, {3600, none, 3600}).pts, 93600);
        EXPECT_EQ(timeline.next(1, sound, {leap + 320, none, 160}).pts, 8480);
    }
}

TEST(RtspTimeline, WhateverComesDecodingTimesGrow)
{
    std::vector<std::int64_t> const stamps = {none, 0, 0, 5, -1000000000000, 1000000000000, none, none};
    RtspTimeline timeline(0);
    std::int64_t last = -1;
    for (std::int64_t pts : stamps)
        for (std::int64_t dts : stamps) {
            auto const result = timeline.next(0, sound, {pts, dts, -1});
            ASSERT_GT(result.dts, last);
            ASSERT_GE(result.pts, result.dts);
            last = result.dts;
        }
}
