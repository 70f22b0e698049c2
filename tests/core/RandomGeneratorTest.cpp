#include "RandomGenerator.h"

#include "MersenneTwisterRandomGenerator.h"
#include "SystemRandomGenerator.h"
#include "UuidGenerator.h"

#include <array>
#include <gmock/gmock.h>
#include <limits>

namespace
{

constexpr int maximum = std::numeric_limits<int>::max();

/// Gives the numbers it was told, one after the other.
class ScriptedRandomGenerator : public RandomGenerator
{
public:
    explicit ScriptedRandomGenerator(std::array<qint32, 8> const& numbers) : _numbers(numbers) {}

    qint32 qint32rand(int max) override
    {
        EXPECT_EQ(max, 0x7FFFFFFF);
        return _numbers.at(_next++);
    }
    qreal qrealrand() override { return 0; }

private:
    std::array<qint32, 8> _numbers;
    size_t _next = 0;
};

/// Draws, and expects the numbers to keep to the range and half of them to lie in its middle half.
void expectRange(RandomGenerator& random, int max)
{
    int middle = 0;
    for (int i = 0; i < 1000; ++i) {
        qint32 const number = random.qint32rand(max);
        ASSERT_THAT(number, testing::AllOf(testing::Ge(0), testing::Le(max)));
        ASSERT_THAT(random.qrealrand(), testing::AllOf(testing::Ge(0), testing::Le(1)));
        middle += number >= max / 4 && number < max / 4 + max / 2;
    }
    EXPECT_NEAR(middle, 500, 100);
}

} // namespace

TEST(MersenneTwisterRandomGenerator, GivesThePublishedNumbers)
{
    MersenneTwisterRandomGenerator first(5489);
    MersenneTwisterRandomGenerator second(1);
    EXPECT_EQ(first.genrand_int32(), 3499211612U);
    EXPECT_EQ(second.genrand_int32(), 1791095845U);
    EXPECT_EQ(first.genrand_int32(), 581869302U);
    EXPECT_EQ(second.genrand_int32(), 4282876139U);
    for (int i = 2; i < 9999; ++i)
        first.genrand_int32();
    EXPECT_EQ(first.genrand_int32(), 4123659995U);
    first.init_genrand(1);
    EXPECT_EQ(first.qint32rand(1000), 417); // 1791095845 of 2^32.
    EXPECT_DOUBLE_EQ(first.qrealrand(), 4282876139 / 4294967296.0);
}

TEST(RandomGenerator, KeepsToItsRange)
{
    MersenneTwisterRandomGenerator twister(7);
    SystemRandomGenerator system(7);
    for (RandomGenerator* const random :
         {static_cast<RandomGenerator*>(&twister), static_cast<RandomGenerator*>(&system)})
        for (int const max : {12, 1000, maximum})
            expectRange(*random, max);
    EXPECT_EQ(twister.qint32rand(0), 0);
    EXPECT_EQ(system.qint32rand(0), 0);
}

TEST(UuidGenerator, FillsTheWordsFromTheLastToTheFirst)
{
    struct {
        std::array<qint32, 8> numbers;
        char const* uuid;
    } const cases[] = {
        {{0x0F0E0D0C, 1, 0x0B0A0908, 0, 0x47560504, 1, 0x03020100, 0}, "{03020100-0504-4756-8809-0a0b0c0d0e8f}"},
        {{0, 0, 0, 0, 0, 0, 0, 0}, "{00000000-0000-4000-8000-000000000000}"},
        {{maximum, maximum, maximum, maximum, maximum, maximum, maximum, maximum},
         "{ffffffff-ffff-4fff-bfff-ffffffffffff}"},
    };
    for (auto const& [numbers, uuid] : cases) {
        ScriptedRandomGenerator random(numbers);
        QUuid const generated = UuidGenerator::generateRandomUuid(random);
        EXPECT_EQ(generated.toString().toStdString(), uuid);
        EXPECT_EQ(generated.version(), QUuid::Random);
        EXPECT_EQ(generated.variant(), QUuid::DCE);
    }
}
