#include "GLMovieDeinterlacer.h"

#include "TestPicture.h"

extern "C" {
#include <libavutil/rational.h>
}

#include <QList>

#include <cstdlib>
#include <cstring>
#include <gtest/gtest.h>

namespace
{

constexpr int side = 64;
constexpr AVRational timeBase{1, 25};

constexpr int step = 16; // From one field to the next, as the picture grows brighter.

/// A picture of two fields, each of one grey.
Frame picture(int number, bool interlaced)
{
    Frame frame = emptyPicture(side, side, AV_PIX_FMT_GRAY8);
    frame->interlaced_frame = interlaced ? 1 : 0;
    frame->top_field_first = 1;
    frame->best_effort_timestamp = number;
    for (int y = 0; y < side; ++y)
        std::memset(frame->data[0] + y * frame->linesize[0], (2 * number + y % 2) * step, side);
    return frame;
}

/// The largest difference between neighbouring rows, away from the edges.
int combing(AVFrame const* frame)
{
    int largest = 0;
    for (int y = 8; y < side - 8; ++y)
        largest = std::max(largest, std::abs(frame->data[0][y * frame->linesize[0] + side / 2] -
                                             frame->data[0][(y + 1) * frame->linesize[0] + side / 2]));
    return largest;
}

} // namespace

TEST(GLMovieDeinterlacer, MakesAPictureOfEachFieldWhileThePicturesSayThatTheyHaveSome)
{
    GLMovieDeinterlacer deinterlacer;
    QList<double> times;
    QList<int> combs;
    auto const take = [&](AVFrame* frame, std::optional<double> seconds) {
        times.append(seconds.value_or(-1.0));
        combs.append(combing(frame));
    };
    for (int i = 0; i < 6; ++i)
        deinterlacer.deinterlace(picture(i, i >= 1 && i < 5).get(), timeBase, take);
    deinterlacer.drain(take);
    EXPECT_EQ(times, QList<double>({0.0, 0.04, 0.06, 0.08, 0.1, 0.12, 0.14, 0.16, 0.18, 0.2}));
    ASSERT_EQ(combs.size(), 10);
    EXPECT_EQ(combs.first(), step) << "as it is";
    for (int i = 1; i < 9; ++i)
        EXPECT_LT(combs.at(i), step / 2) << i;
    EXPECT_EQ(combs.last(), step);
}
