#include "ReconnectionPolicy.h"

#include "FakeTickCounter.h"
#include "FixedChance.h"

#include <gtest/gtest.h>

TEST(ReconnectionPolicy, WaitsGrowUntilPlayHasLasted)
{
    FakeTickCounter clock;
    FixedChance chance;
    ReconnectionPolicy policy(clock, chance);
    for (int const expected : {1000, 2000, 4000, 8000, 16000, 24000, 24000}) {
        policy.succeeded();
        clock.advance(ReconnectionPolicy::lastingPlay - 1);
        policy.succeeded(); // Plays on: that is no new beginning.
        EXPECT_EQ(policy.nextDelay(), expected);
        clock.advance(1000000);
    }
    chance.value = 1;
    EXPECT_EQ(policy.nextDelay(), ReconnectionPolicy::maximumDelay);
    chance.value = 0;
    EXPECT_EQ(policy.nextDelay(), 18000);
    policy.succeeded();
    clock.advance(ReconnectionPolicy::lastingPlay);
    EXPECT_EQ(policy.nextDelay(), 0);
    EXPECT_EQ(policy.nextDelay(), 750);
    policy.reset();
    for (int const expected : {750, 750, 750, 1125, 1125, 1125}) // Three addresses, twice round.
        EXPECT_EQ(policy.nextDelay(3), expected);
}

TEST(ReconnectionPolicy, WhatIsBackWithinTwentySecondsIsFoundSoon)
{
    FakeTickCounter clock;
    FixedChance chance;
    ReconnectionPolicy policy(clock, chance);
    EXPECT_EQ(policy.nextDelay(), 1000);
    for (clock.advance(1000); policy.isEarly(); clock.advance(1500))
        EXPECT_EQ(policy.nextDelay(), 1500);
    for (int const expected : {3000, 6000, 12000, 24000, 24000})
        EXPECT_EQ(policy.nextDelay(), expected);
}

TEST(ReconnectionPolicy, RedirectionsAreBounded)
{
    FakeTickCounter clock;
    FixedChance chance;
    ReconnectionPolicy policy(clock, chance);
    for (bool const lasts : {false, true}) {
        for (int i = 0; i < ReconnectionPolicy::maximumRedirections; ++i)
            EXPECT_TRUE(policy.mayRedirect());
        EXPECT_FALSE(policy.mayRedirect());
        policy.succeeded();
        clock.advance(ReconnectionPolicy::lastingPlay - (lasts ? 0 : 1));
        EXPECT_EQ(policy.mayRedirect(), lasts);
        policy.reset();
    }
}
