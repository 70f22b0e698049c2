#include "BiscottiClientId.h"

#include "FakeTickCounter.h"
#include "LogCapture.h"
#include "RandomGenerator.h"

#include <gtest/gtest.h>

namespace
{

class ConstantRandomGenerator : public RandomGenerator
{
public:
    qint32 qint32rand(int max) override { return max; }
    qreal qrealrand() override { return 0; }
};

} // namespace

TEST(BiscottiClientId, IsMadeOfMachineTimeAndChance)
{
    LogCapture capture;
    ConstantRandomGenerator random;
    FakeTickCounter clock(1234567890123);
    // printf %s machine_1234567890123_2000000000 | openssl md5 -binary | base64
    EXPECT_EQ(BiscottiClientId::create("machine", random, clock), "87bmJDDdfd7L4Z0/IzGptA==");
    EXPECT_EQ(capture.count("[ERROR]"), 0);
    EXPECT_EQ(BiscottiClientId::create("", random, clock), "Fe6V3oZAbwAodhTDuPJDOQ==");
    EXPECT_TRUE(capture.contains("Could not retrieve Machine Id address for unique Biscotti hash."));
}
