#include "MersenneTwisterRandomGenerator.h"
#include "SystemRandomGenerator.h"

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
