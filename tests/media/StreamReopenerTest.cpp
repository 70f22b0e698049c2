#include "StreamReopener.h"

#include "FakeTimerFactory.h"
#include "FixedChance.h"

#include <QList>

#include <gtest/gtest.h>

namespace
{

/// A stream that is opened by words, and what it is told to do, by seconds of a clock that is moved by hand.
class Stream
{
public:
    explicit Stream(bool mayRetry = true)
    {
        QObject::connect(&reopener, &StreamReopener::attemptDue, [this] { attempts << seconds(); });
        QObject::connect(&reopener, &StreamReopener::retrying, [this] { ++retrying; });
        QObject::connect(&reopener, &StreamReopener::givenUp, [this] { givenUp << seconds(); });
        reopener.begin(mayRetry);
    }

    double seconds() { return static_cast<double>(_clock.msSinceEpoch() - _begin) / 1000.0; }
    void wait(int ms) { _timers.advance(ms); }
    /// Lets attempts fail, each as soon as it begins, until it is given up or the time is over.
    void refuse(int ms)
    {
        for (int i = 0; i < ms && givenUp.isEmpty(); i += 10) {
            reopener.failed(false);
            wait(10);
        }
    }

private:
    FakeTickCounter _clock;
    qint64 const _begin = _clock.msSinceEpoch();
    FakeTimerFactory _timers{_clock};
    FixedChance _chance;

public:
    bool isAnswered = false;
    QList<double> attempts;
    QList<double> givenUp;
    int retrying = 0;
    StreamReopener reopener{{&_clock, &_timers, ReconnectionPolicy(_clock, _chance)}, [this] { return isAnswered; }};
};

} // namespace

TEST(StreamReopener, WhatIsLostAfterPlayIsTriedAtOnceThenAfterWaitsAndGivenUpAfterTwoMinutes)
{
    Stream stream;
    stream.reopener.succeeded();
    stream.wait(ReconnectionPolicy::lastingPlay);
    stream.reopener.lost();
    stream.wait(0);
    stream.refuse(200000);
    EXPECT_EQ(stream.retrying, 1);
    ASSERT_EQ(stream.givenUp.size(), 1);
    EXPECT_NEAR(stream.givenUp.first(), 130, 0.1);
    ASSERT_GT(stream.attempts.size(), 10);
    EXPECT_EQ(stream.attempts.at(1), 10);
    for (qsizetype i = 2; i < stream.attempts.size() && stream.attempts.at(i) < 30; ++i)
        EXPECT_LT(stream.attempts.at(i) - stream.attempts.at(i - 1), 3);
    stream.reopener.begin(true); // The viewer asks for it: all anew.
    stream.reopener.failed(false);
    EXPECT_EQ(stream.retrying, 2);
}

TEST(StreamReopener, OnlyWhatIsRefusedForGoodAtFirstIsGivenUpAtOnce)
{
    Stream refused;
    refused.reopener.failed(true);
    EXPECT_EQ(refused.givenUp.size(), 1);
    Stream busy;
    busy.reopener.failed(false);
    busy.wait(1000);
    busy.reopener.failed(true); // Not there yet.
    busy.wait(2000);
    EXPECT_EQ(busy.attempts, (QList<double>{0, 1, 2.5}));
    Stream file(false);
    file.reopener.failed(false);
    EXPECT_EQ(file.givenUp.size(), 1);
}

TEST(StreamReopener, AnAttemptThatIsNotAnsweredMakesRoomForTheNext)
{
    Stream stream;
    stream.reopener.succeeded();
    stream.wait(ReconnectionPolicy::lastingPlay);
    stream.reopener.lost();
    stream.wait(6000); // Silence has been waited for enough.
    EXPECT_EQ(stream.attempts, (QList<double>{0, 10, 12, 14, 16}));
    stream.isAnswered = true;
    stream.wait(StreamReopener::earlyAnswer + StreamReopener::earlyOpening - 1);
    EXPECT_EQ(stream.attempts.size(), 5);
    stream.wait(1);
    EXPECT_EQ(stream.attempts.size(), 6);
    stream.reopener.succeeded();
    stream.wait(300000);
    EXPECT_EQ(stream.attempts.size(), 6);
    EXPECT_TRUE(stream.givenUp.isEmpty());
}

TEST(StreamReopener, PlayThatBringsNothingNewEndsNoOutage)
{
    Stream stream;
    stream.reopener.succeeded();
    stream.wait(ReconnectionPolicy::lastingPlay);
    stream.reopener.lost();
    for (int i = 0; i < 100 && stream.givenUp.isEmpty(); ++i) {
        stream.reopener.succeeded();
        stream.wait(ReconnectionPolicy::lastingPlay);
        stream.reopener.lost(false);
        stream.wait(1500);
    }
    ASSERT_EQ(stream.givenUp.size(), 1);
    EXPECT_NEAR(stream.givenUp.first(), 130, 15);
}

TEST(StreamReopener, ShortPlayIsNoStormAndCountsForLittle)
{
    Stream stream;
    for (int i = 0; i < 1000 && stream.givenUp.isEmpty(); ++i) {
        qsizetype const attempts = stream.attempts.size();
        stream.reopener.succeeded();
        stream.reopener.lost();
        stream.wait(749);
        EXPECT_EQ(stream.attempts.size(), attempts);
        stream.wait(31000);
    }
    EXPECT_LT(stream.attempts.size(), 20);
    EXPECT_FALSE(stream.givenUp.isEmpty());
}
