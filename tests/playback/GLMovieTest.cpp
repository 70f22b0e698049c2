#include "GLMovie.h"

#include "AudioDevice.h"
#include "EventLoop.h"
#include "GLMovieAudioSource.h"
#include "GLMovieTexture.h"
#include "LogCapture.h"
#include "ScriptedMovieSource.h"
#include "SignalRecorder.h"

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
}

#include <QElapsedTimer>

#include <gmock/gmock.h>
#include <thread>

namespace
{

/// A movie on a scripted source, with OpenAL's null device, which keeps time as a sound card does.
class GLMovieTest : public testing::Test
{
protected:
    GLMovieTest()
    {
        qputenv("ALSOFT_DRIVERS", "null");
        EXPECT_TRUE(_device.openDevice("default"));
    }

    /// Recorders come and go with the threads at rest.
    ~GLMovieTest() override { _movie.close(false); }

    void play(bool video, bool audio, double seconds)
    {
        addStreams(video, audio);
        _source.scriptClip(seconds, video, audio);
        _source.open();
    }

    void addStreams(bool video, bool audio)
    {
        if (video)
            _source.addVideo();
        if (audio)
            _source.addAudio(AV_CODEC_ID_PCM_S16LE, 2);
    }

    /// The first film time that is told and is later than that; what a thread was about to tell may come before.
    double firstTimeAfter(double seconds)
    {
        for (int i = 0; _times.wait(i + 1); ++i)
            if (double const time = _times.at(i).constFirst().toDouble(); time > seconds)
                return time;
        return -1.0;
    }

    AudioDevice _device;
    ScriptedMovieSource _source;
    GLMovie _movie{&_source, false};
    SignalRecorder _opened{&_movie, &GLMovie::opened};
    SignalRecorder _completed{&_movie, &GLMovie::completed};
    SignalRecorder _looped{&_movie, &GLMovie::looped};
    SignalRecorder _error{&_movie, &GLMovie::error};
    SignalRecorder _pictures{&_movie, &GLMovie::pictureUpdated};
    SignalRecorder _firstKeyFrames{&_movie, &GLMovie::firstKeyFrameReceived};
    SignalRecorder _sound{&_movie, &GLMovie::audioDataReceived};
    SignalRecorder _times{&_movie, &GLMovie::movieTimeUpdated};
};

} // namespace

TEST_F(GLMovieTest, PlaysEveryPictureAtItsTime)
{
    QElapsedTimer timer;
    timer.start();
    play(true, false, 0.4);
    ASSERT_TRUE(_completed.wait());
    EXPECT_EQ(_opened.count(), 1);
    EXPECT_EQ(_pictures.count(), 10);
    EXPECT_EQ(_firstKeyFrames.count(), 1);
    EXPECT_GE(timer.elapsed(), 350);
    EXPECT_EQ(_times.count(), 10);
    EXPECT_NEAR(_times.last().constFirst().toDouble(), 0.36, 0.001);
    EXPECT_EQ(_movie.packetStatistics().videoCount, 0) << "a movie that is over starts to count anew";
}

TEST_F(GLMovieTest, ALossIsNoEndAndLeavesItsWordsStanding)
{
    SignalRecorder errors(&_source, &GLMovieDataSource::error);
    _movie.setLoop(true);
    addStreams(true, false);
    _source.scriptClip(0.2, true, false);
    _source.setLost(true);
    _source.open();
    ASSERT_TRUE(_completed.wait());
    processPendingEvents();
    EXPECT_EQ(_pictures.count(), 5) << "what had come is shown";
    EXPECT_TRUE(_looped.isEmpty());
    ASSERT_EQ(errors.count(), 1);
    EXPECT_EQ(errors.last().at(1).toString(), "Stream unavailable");
}

TEST_F(GLMovieTest, ClosesInEveryState)
{
    addStreams(true, true);
    _source.scriptClip(0.2, true, true);
    _source.append({true, 3600.0}); // A picture that is due in an hour.
    _source.setLive(true);
    for (int round = 0; round < 10; ++round) {
        _source.open();
        if (round % 2 == 0)
            _pictures.wait(_pictures.count() + round % 5 + 1);
        _movie.close(true);
        EXPECT_EQ(_movie.texture(), nullptr);
        _source.seekFrame(nullptr, 0, 0);
    }
}

TEST_F(GLMovieTest, TimeStampsThatLeapBackLoseNoPicture)
{
    addStreams(true, true);
    for (double const begin : {100.0, 20.0})
        for (int i = 0; i < 30; ++i) {
            _source.append({false, begin + i * 0.02});
            if (i % 2 == 0)
                _source.append({true, begin + i * 0.02});
        }
    _source.open();
    ASSERT_TRUE(_completed.wait());
    EXPECT_EQ(_firstKeyFrames.count(), 2);
    EXPECT_EQ(_pictures.count(), 30);
    EXPECT_EQ(_sound.count(), 60);
    EXPECT_NEAR(_times.last().constFirst().toDouble(), 0.58, 0.05) << "film time begins anew";
}

TEST_F(GLMovieTest, PicturesMuchTooLateAreDroppedWithThoseThatBuildOnThem)
{
    LogCapture capture;
    _source.addVideo(AV_CODEC_ID_ZMBV);
    addStreams(false, true);
    for (int i = 0; i < 30; ++i)
        _source.append({false, 10.0 + i * 0.02});
    for (int i = 0; i < 15; ++i) // Three amid the others are nine seconds late.
        _source.append({true, (i >= 5 && i < 8 ? 1.0 : 10.0) + i * 0.04, i == 0 || i == 12});
    _source.open();
    ASSERT_TRUE(_completed.wait());
    EXPECT_EQ(capture.count("Dropped video packet with pts"), 3);
    EXPECT_EQ(_pictures.count(), 5 + 3) << "before the late ones, and from the next key frame on";
}

TEST_F(GLMovieTest, PicturesThatAreFarApartMayComeLater)
{
    LogCapture capture;
    addStreams(true, true);
    for (int i = 0; i < 30; ++i)
        _source.append({false, 100.0 + i * 0.02});
    for (double const seconds : {100.0, 94.0, 100.0, 94.0}) // By the third it shows that there are six seconds.
        _source.append({true, seconds});
    _source.open();
    ASSERT_TRUE(_completed.wait());
    EXPECT_EQ(capture.count("Dropped video packet with pts"), 1);
    EXPECT_EQ(_pictures.count(), 3);
}

TEST_F(GLMovieTest, SoundOfAnyFormatIsConverted)
{
    struct Case {
        int codec;
        int channels;
        char const* text; ///< Why it is converted.
        int bytes;
    };
    for (Case const& c : {Case{AV_CODEC_ID_PCM_S16LE, 6, "We do not support 6 channel audio", 3840},
                          Case{AV_CODEC_ID_PCM_F32LE, 2, "Audio format: Stereo floating point", 3840}}) {
        LogCapture capture;
        ScriptedMovieSource source;
        GLMovie movie(&source, false);
        SignalRecorder pictures(&movie, &GLMovie::pictureUpdated);
        SignalRecorder completed(&movie, &GLMovie::completed);
        SignalRecorder sound(&movie, &GLMovie::audioDataReceived);
        source.addVideo();
        source.addAudio(c.codec, c.channels);
        source.scriptClip(0.2, true, true);
        source.open();
        ASSERT_TRUE(completed.wait()) << c.text;
        EXPECT_EQ(pictures.count(), 5) << c.text;
        EXPECT_EQ(capture.count(c.text), 1);
        ASSERT_EQ(sound.count(), 10) << c.text;
        EXPECT_EQ(sound.first().constFirst().toByteArray().size(), c.bytes) << c.text;
    }
}

TEST_F(GLMovieTest, WhatCannotBeConvertedOrHasDiedLeavesTheClockToThePictures)
{
    for (int const channels : {9, 2}) {
        ScriptedMovieSource source;
        GLMovie movie(&source, false);
        SignalRecorder times(&movie, &GLMovie::movieTimeUpdated);
        source.addVideo();
        source.addAudio(AV_CODEC_ID_PCM_S16LE, channels);
        source.scriptClip(0.1, true, true);
        for (int i = 3; i < 3000; ++i)
            source.append({true, i * 0.04});
        source.open();
        ASSERT_TRUE(times.wait(20)) << channels;
        EXPECT_GT(movie.movieTime(), 0.5) << channels;
        EXPECT_LT(source.framesServed(), 300) << "without sound that paces it, the reader brings a few seconds only";
    }
}

TEST_F(GLMovieTest, LateSoundDoesNotHoldUpTheKeyFrameThatItWaitsFor)
{
    addStreams(true, true);
    _source.videoStream()->start_time = 0;
    _source.audioStream()->start_time = 300;
    for (int i = 0; i < 400; ++i) {
        ScriptedMovieSource::Packet picture{true, i * 0.02};
        picture.isEmpty = i < 200; // Joined amid a group of pictures: nothing comes of these.
        if (i % 2 == 0)
            _source.append(picture);
        if (i >= 15)
            _source.append({false, i * 0.02});
    }
    _source.open();
    EXPECT_TRUE(_sound.wait(40));
    EXPECT_TRUE(_pictures.isEmpty());
}

TEST_F(GLMovieTest, AnEmptyPacketIsNotTheEnd)
{
    addStreams(true, true);
    for (bool const isVideo : {true, false})
        for (bool const isEmpty : {false, true, false})
            _source.append({isVideo, isVideo ? 0.02 : 0.0, true, isEmpty});
    _source.open();
    ASSERT_TRUE(_completed.wait());
    EXPECT_EQ(_pictures.count(), 2);
    EXPECT_EQ(_sound.count(), 2);
}

TEST_F(GLMovieTest, WithOrWithoutASoundDeviceThePicturePlays)
{
    LogCapture capture;
    play(true, true, 0.2);
    ASSERT_TRUE(_completed.wait());
    EXPECT_EQ(_pictures.count(), 5);
    EXPECT_EQ(_sound.count(), 10);
    EXPECT_TRUE(_error.isEmpty());
    _device.closeDevice();
    _movie.close(false);
    _source.seekFrame(nullptr, 0, 0);
    _source.open();
    ASSERT_TRUE(_completed.wait(2));
    EXPECT_EQ(_pictures.count(), 10);
    EXPECT_TRUE(capture.contains("No audio device present."));
    EXPECT_TRUE(capture.contains(
        "Audio stream failed but video stream is ok so ignoring audio stream and playing video only"));
}

TEST_F(GLMovieTest, WhatCannotBePlayedIsAnErrorInWords)
{
    for (bool const isVideo : {true, false}) {
        ScriptedMovieSource source;
        GLMovie movie(&source, false);
        SignalRecorder errors(&movie, &GLMovie::error);
        isVideo ? source.addVideo() : source.addAudio(AV_CODEC_ID_PCM_S16LE, 9);
        if (isVideo)
            source.videoStream()->codecpar->codec_id = AV_CODEC_ID_NONE;
        source.scriptClip(0.1, isVideo, !isVideo);
        source.open();
        ASSERT_TRUE(errors.wait());
        EXPECT_EQ(errors.first().at(1).toInt(), isVideo ? GLMovie::NoVideoDecoder : GLMovie::UnsupportedAudioFormat);
        EXPECT_FALSE(GLMovie::errorText(errors.first().at(1).toInt()).isEmpty());
    }
}

TEST_F(GLMovieTest, AStarvedSourceIsStartedAgain)
{
    LogCapture capture;
    addStreams(false, true);
    for (int i = 0; i < 5; ++i)
        _source.append({false, i * 0.02});
    _source.setLive(true);
    _source.open();
    ASSERT_TRUE(_sound.wait(5));
    EXPECT_GE(capture.count("Source was starved of audio data"), 1);
}

TEST_F(GLMovieTest, SeeksToTheMomentAndNotToTheKeyFrameBeforeIt)
{
    addStreams(true, true);
    for (int i = 0; i < 1500; ++i) {
        if (i % 2 == 0)
            _source.append({true, i * 0.02, i == 0});
        _source.append({false, i * 0.02});
    }
    _source.open();
    ASSERT_TRUE(_pictures.wait(3));
    ASSERT_TRUE(_movie.setMovieTime(20.0));
    EXPECT_EQ(_movie.movieTime(), 20.0) << "a second step counts from the first one's target";
    EXPECT_NEAR(firstTimeAfter(2.0), 20.0, 0.05);
    ASSERT_TRUE(_movie.setMovieTime(29.6));
    ASSERT_TRUE(_completed.wait());
    EXPECT_NEAR(_times.last().constFirst().toDouble(), 29.98, 0.05);
    EXPECT_TRUE(_error.isEmpty());
}

TEST_F(GLMovieTest, ACoverBelongsToNoTime)
{
    addStreams(true, true);
    _source.videoStream()->disposition = AV_DISPOSITION_ATTACHED_PIC;
    _source.append({true, 0.0});
    _source.scriptClip(2.0, false, true);
    _source.open();
    ASSERT_TRUE(_pictures.wait());
    ASSERT_TRUE(_sound.wait(2));
    ASSERT_TRUE(_movie.setMovieTime(1.8));
    EXPECT_NEAR(firstTimeAfter(1.0), 1.8, 0.03);
    ASSERT_TRUE(_completed.wait());
    EXPECT_EQ(_firstKeyFrames.count(), 1);
}

TEST_F(GLMovieTest, WhereTheSourceCannotSeekNothingIsLost)
{
    LogCapture capture;
    _movie.setLoop(true);
    _source.setSeekable(false);
    play(true, false, 0.2);
    ASSERT_TRUE(_pictures.wait(2));
    EXPECT_FALSE(_movie.setMovieTime(10.0));
    ASSERT_TRUE(_completed.wait());
    EXPECT_EQ(_pictures.count(), 5);
    EXPECT_TRUE(capture.contains("Seeking failed so movie cannot loop."));
}

TEST_F(GLMovieTest, LoopsFromTheBeginningAndASeekBetweenTwoGoesOnPlaying)
{
    _movie.setLoop(true);
    play(true, false, 0.2);
    ASSERT_TRUE(_pictures.wait(5));
    while (_movie.isPlaying())
        std::this_thread::yield();
    _times.clear();
    ASSERT_TRUE(_movie.setMovieTime(0.1));
    ASSERT_TRUE(_times.wait());
    EXPECT_NEAR(_times.first().constFirst().toDouble(), 0.12, 0.03) << "film time counts from the same zero";
    EXPECT_TRUE(_looped.isEmpty());
    EXPECT_TRUE(_movie.isPlaying());
    _times.clear();
    ASSERT_TRUE(_looped.wait());
    ASSERT_TRUE(_times.wait(3));
    EXPECT_TRUE(_completed.isEmpty());
}

TEST_F(GLMovieTest, SoundThatIsPausedIsNotOver)
{
    GLMovieAudioSource sound;
    ASSERT_EQ(sound.open(), GLMovieAudioSource::OpenResult::Opened);
    ASSERT_TRUE(sound.bufferAudioData({QByteArray(60 * 2 * 8000, '\0'), {1, 8000}, {}}, 0.0)); // A minute.
    EXPECT_TRUE(sound.isDrained()) << "nobody has begun to play it";
    ASSERT_TRUE(sound.ensureAudioPlaying());
    sound.setPaused(true);
    EXPECT_FALSE(sound.isDrained());
    sound.stop();
    EXPECT_TRUE(sound.isDrained());
}

TEST_F(GLMovieTest, AShapeOfPixelsThatMakesNoSenseIsSquare)
{
    addStreams(true, false);
    _source.setLive(true); // Before the first picture.
    for (auto const& [shape, ratio] : {std::pair(AVRational{4, 3}, 4.0 / 3.0), {{1, 0}, 1.0}, {{0, 1}, 1.0}}) {
        _source.videoStream()->sample_aspect_ratio = shape;
        _source.open();
        EXPECT_DOUBLE_EQ(_movie.aspectRatio(), ratio);
        _movie.close(false);
    }
}
