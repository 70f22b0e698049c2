#include "GLMovieDeinterlacer.h"

extern "C" {
#include <libavutil/frame.h>
#include <libavutil/pixfmt.h>
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
struct TestFrame {
    explicit TestFrame(qint64 number, bool interlaced) : frame(av_frame_alloc())
    {
        frame->format = AV_PIX_FMT_GRAY8;
        frame->width = frame->height = side;
        frame->interlaced_frame = interlaced ? 1 : 0;
        frame->top_field_first = 1;
        frame->best_effort_timestamp = number;
        av_frame_get_buffer(frame, 0);
        for (int y = 0; y < side; ++y)
            std::memset(frame->data[0] + y * frame->linesize[0], static_cast<int>(2 * number + y % 2) * step, side);
    }
    ~TestFrame() { av_frame_free(&frame); }
    TestFrame(TestFrame const&) = delete;
    TestFrame& operator=(TestFrame const&) = delete;

    AVFrame* frame;
};

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
    for (int i = 0; i < 6; ++i) {
        TestFrame const picture(i, i >= 1 && i < 5);
        deinterlacer.deinterlace(picture.frame, timeBase, take);
    }
    deinterlacer.drain(take);
    EXPECT_EQ(times, QList<double>({0.0, 0.04, 0.06, 0.08, 0.1, 0.12, 0.14, 0.16, 0.18, 0.2}));
    ASSERT_EQ(combs.size(), 10);
    EXPECT_EQ(combs.first(), step) << "as it is";
    for (int i = 1; i < 9; ++i)
        EXPECT_LT(combs.at(i), step / 2) << i;
    EXPECT_EQ(combs.last(), step);
}
