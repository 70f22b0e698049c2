#include "GLMovieClock.h"

#include <gtest/gtest.h>

namespace
{

/// A clock whose time the test moves by hand, with sound that is heard as long as some is queued.
class GLMovieClockTest : public testing::Test
{
protected:
    void pass(double seconds) { _now += static_cast<qint64>(seconds * 1000000.0); }

    void start(double video, double sound)
    {
        _clock.reset(true, true);
        _clock.beginVideo(video);
        show(video, {});
        queue(sound, 0.5);
    }
    void show(double seconds, std::optional<double> heard)
    {
        _clock.videoDue(seconds, heard);
        _clock.videoShown(seconds);
    }
    /// Queues sound and returns where on the timeline it lies.
    double queue(double seconds, double duration)
    {
        double const at = _clock.soundDue(seconds, {}).at;
        _clock.soundQueued(seconds, at, duration);
        return at;
    }

    qint64 _now = 1000000;
    GLMovieClock _clock{[this] { return _now; }};
};

} // namespace

TEST_F(GLMovieClockTest, LateSoundWaitsForItsTimeAndPicturesFollowItThen)
{
    _clock.reset(true, true);
    _clock.beginVideo(5.0);
    EXPECT_NEAR(_clock.soundDue(5.3, {}).wait, 0.3, 1e-6);
    pass(0.3);
    EXPECT_LE(_clock.soundDue(5.3, {}).wait, 1e-6);
    EXPECT_FALSE(_clock.syncToAudio());
    queue(5.3, 0.5);
    EXPECT_TRUE(_clock.syncToAudio());
    pass(0.2);
    EXPECT_NEAR(_clock.videoDue(5.6, 5.4).wait, 0.2, 1e-6) << "what is heard counts, not what the wall says";
    pass(0.1);
    EXPECT_NEAR(_clock.videoDue(5.6, {}).wait, 0.1, 1e-6) << "and goes on where the sound has run dry";
}

TEST_F(GLMovieClockTest, AClockSetBackMovesPictureAndSoundTogether)
{
    for (bool const pictureFirst : {true, false}) {
        start(100.0, 100.0);
        show(100.4, 100.4);
        if (!pictureFirst) {
            EXPECT_NEAR(queue(20.0, 0.5), 100.5, 1e-6);
        }
        GLMovieClock::Due const due = _clock.videoDue(20.06, 100.45);
        EXPECT_TRUE(due.jumped) << pictureFirst;
        EXPECT_NEAR(due.at, pictureFirst ? 100.44 : 100.56, 1e-6);
        if (pictureFirst) {
            EXPECT_NEAR(queue(20.0, 0.5), 100.38, 1e-6);
        }
        EXPECT_NEAR(_clock.movieTime(), 0.0, 1e-6) << "film time begins anew";
        EXPECT_FALSE(_clock.videoDue(20.1, 100.5).jumped);
    }
}

TEST_F(GLMovieClockTest, AStreamJoinedWhereItBeginsAnewIsShownAtOnceAndTogetherThen)
{
    for (bool const soundFirst : {true, false}) {
        _clock.reset(true, true, true);
        if (soundFirst)
            queue(1.5, 0.5);
        _clock.beginVideo(61.5); // Before that place; nothing else of it is there.
        if (soundFirst) {
            EXPECT_NEAR(_clock.videoDue(61.5, 1.6).wait, 0.0, 1e-6);
        }
        show(61.5, soundFirst ? std::optional(1.6) : std::nullopt);
        if (!soundFirst)
            queue(1.5, 0.5);
        GLMovieClock::Due const due = _clock.videoDue(1.7, 1.65);
        EXPECT_TRUE(due.jumped);
        EXPECT_NEAR(due.wait, 0.05, 1e-6) << soundFirst;
    }
    _clock.reset(true, true, false);
    queue(1.5, 0.5);
    _clock.beginVideo(61.5);
    EXPECT_NEAR(_clock.videoDue(61.5, 1.5).wait, 60.0, 1e-6) << "a film may begin with a minute of sound";
}

TEST_F(GLMovieClockTest, ALeapAheadIsAGapWherePicturesGoOnAndANewClockWhereBothLeap)
{
    start(0.0, 0.0);
    show(0.4, 0.4);
    EXPECT_NEAR(_clock.soundDue(3.0, 0.4).wait, 2.6, 1e-6);
    EXPECT_NEAR(_clock.soundDue(60.0, 0.4).wait, 59.6, 1e-6);
    EXPECT_NEAR(_clock.videoDue(60.0, 0.4).wait, 59.6, 1e-6);
    EXPECT_NEAR(_clock.soundDue(60.0, 0.4).at, 0.5, 1e-6) << "behind what is queued";
    EXPECT_NEAR(_clock.videoDue(60.0, 0.4).at, 0.5, 1e-6);

    start(0.0, 0.0);
    EXPECT_NEAR(_clock.videoDue(2.5, 0.4).wait, 2.1, 1e-6);
    EXPECT_NEAR(_clock.soundDue(2.5, 0.4).wait, 2.1, 1e-6) << "a short gap may be meant";
    EXPECT_NEAR(_clock.videoDue(8.0, 0.4).wait, 7.6, 1e-6);
    EXPECT_NEAR(_clock.soundDue(8.0, 0.4).at, 0.5, 1e-6) << "part of a live stream was left out";
    EXPECT_NEAR(_clock.videoDue(8.0, 0.4).at, 0.5, 1e-6);
}

TEST_F(GLMovieClockTest, SoundThatDiesLeavesTheTimeToThePictures)
{
    start(0.0, 0.0);
    show(0.48, 0.48);
    EXPECT_NEAR(_clock.movieTime(), 0.0, 1e-6) << "of the sound that was queued last";
    pass(1.5);
    show(1.96, {});
    EXPECT_FALSE(_clock.syncToAudio());
    EXPECT_NEAR(_clock.movieTime(), 1.96, 1e-6);
    EXPECT_LE(_clock.videoDue(300.0, {}).wait, 1e-6) << "a leap does not freeze the picture";
    queue(300.1, 0.5);
    EXPECT_NEAR(_clock.videoDue(300.2, 2.0).wait, 0.18, 1e-6) << "it comes back in step";
    _clock.leaveSound();
    EXPECT_FALSE(_clock.syncToAudio());
}

TEST_F(GLMovieClockTest, ASeekTellsItsTargetAndKeepsTheZero)
{
    start(7.0, 7.0);
    EXPECT_NEAR(_clock.seek(20.0, 0.0), 27.0, 1e-6);
    EXPECT_NEAR(_clock.movieTime(), 20.0, 1e-6);
    EXPECT_TRUE(_clock.waitingForFirstVideo());
    pass(3.0); // Decoding up to there takes its time.
    _clock.beginVideo(27.02);
    EXPECT_LE(_clock.videoDue(27.02, {}).wait, 1e-6);
    queue(27.02, 0.5);
    EXPECT_NEAR(_clock.movieTime(), 20.02, 1e-6);
}
