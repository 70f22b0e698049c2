#include "BiscottiClientId.h"

#include "FakeTickCounter.h"
#include "FixedChance.h"
#include "LogCapture.h"

#include <gtest/gtest.h>

TEST(BiscottiClientId, IsMadeOfMachineTimeAndChance)
{
    LogCapture capture;
    FixedChance random;
    random.value = 1;
    FakeTickCounter clock(1234567890123);
    // printf %s machine_1234567890123_2000000000 | openssl md5 -binary | base64
    EXPECT_EQ(BiscottiClientId::create("machine", random, clock), "87bmJDDdfd7L4Z0/IzGptA==");
    EXPECT_EQ(capture.count("[ERROR]"), 0);
    EXPECT_EQ(BiscottiClientId::create("", random, clock), "Fe6V3oZAbwAodhTDuPJDOQ==");
    EXPECT_TRUE(capture.contains("Could not retrieve Machine Id address for unique Biscotti hash."));
}
