#include "MersenneTwisterRandomGenerator.h"
#include "SystemRandomGenerator.h"
#include "UuidGenerator.h"

#include <gtest/gtest.h>
#include <limits>

TEST(RandomGenerator, KeepsToItsRange)
{
    MersenneTwisterRandomGenerator twister(7);
    SystemRandomGenerator system(7);
    for (RandomGenerator* const random : std::initializer_list<RandomGenerator*>{&twister, &system})
        for (int const max : {11, std::numeric_limits<int>::max()}) {
            int upper = 0;
            for (int i = 0; i < 1000; ++i) {
                qint32 const number = random->qint32rand(max);
                ASSERT_TRUE(number >= 0 && number <= max) << number;
                upper += number > max / 2 ? 1 : 0;
            }
            EXPECT_NEAR(upper, 500, 100);
        }
}

TEST(UuidGenerator, FillsTheWordsFromTheLastToTheFirst)
{
    struct : RandomGenerator {
        qint32 qint32rand(int) override { return numbers.takeFirst(); }
        qreal qrealrand() override { return 0; }
        QList<qint32> numbers{0x0F0E0D0C, 1, 0x0B0A0908, 0, 0x47560504, 1, 0x03020100, 0};
    } random;
    EXPECT_EQ(UuidGenerator::generateRandomUuid(random).toString(), "{03020100-0504-4756-8809-0a0b0c0d0e8f}");
}
