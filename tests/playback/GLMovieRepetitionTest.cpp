#include "GLMovieRepetition.h"

extern "C" {
#include <libavformat/avformat.h>
}

#include <gtest/gtest.h>

TEST(GLMovieRepetition, WhatIsSentAgainIsFoundAndNothingElse)
{
    GLMovieRepetition repetition;
    int comeback = 0;
    auto const comes = [&](int stream, int seconds, int size) {
        AVPacket packet{};
        packet.stream_index = stream;
        packet.pts = packet.dts = seconds * 1000;
        packet.size = size;
        return !repetition.contains(packet, {1, 1000}, comeback);
    };
    for (int second = 100; second < 110; ++second) {
        EXPECT_TRUE(comes(0, second, second));
        EXPECT_TRUE(comes(1, second, 7));
    }
    EXPECT_TRUE(comes(0, 109, 109));                // A sender that was never lost.
    for (comeback = 1; comeback <= 2; ++comeback) { // Lost, and lost again before its burst was over.
        for (int second = 105; second < 105 + 5 * comeback; ++second) {
            EXPECT_EQ(comes(0, second, second), second >= 110);
            EXPECT_EQ(comes(1, second, 7), second >= 110);
        }
    }
    EXPECT_TRUE(comes(0, 112, 5)); // Cut short by the loss: another packet.
    EXPECT_FALSE(comes(0, 113, 113));
    EXPECT_TRUE(comes(0, 115, 115));
    EXPECT_TRUE(comes(1, 114, 7));   // As are those whose sender's time stands still.
    EXPECT_TRUE(comes(0, 101, 101)); // A new clock.
    EXPECT_TRUE(comes(0, 102, 102));
    EXPECT_FALSE(comes(0, 101, 101)); // Once; a film of two seconds that is sent for ever is played.
    EXPECT_FALSE(comes(0, 102, 102));
    EXPECT_TRUE(comes(0, 101, 101));
    EXPECT_TRUE(comes(0, 102, 102));
}
