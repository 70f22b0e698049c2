#pragma once

#include "RandomGenerator.h"

#include <random>

/// The Mersenne Twister MT19937 of Matsumoto and Nishimura (1998), with its 2002 initialisation; the two routines
/// bear their published names. Each object has a state of its own, for one thread at a time. The upper ends of the
/// ranges never come up.
class MersenneTwisterRandomGenerator : public RandomGenerator
{
public:
    explicit MersenneTwisterRandomGenerator(int seed);

    qint32 qint32rand(int max) override;
    qreal qrealrand() override;

    /// Begins the sequence of this seed.
    void init_genrand(quint32 seed);

    /// The next 32 random bits.
    quint32 genrand_int32();

private:
    std::mt19937 _engine;
};
