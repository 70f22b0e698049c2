#include "MersenneTwisterRandomGenerator.h"

namespace
{
constexpr qint64 range = qint64{1} << 32;
} // namespace

MersenneTwisterRandomGenerator::MersenneTwisterRandomGenerator(int seed)
{
    init_genrand(static_cast<quint32>(seed));
}

qint32 MersenneTwisterRandomGenerator::qint32rand(int max)
{
    // In integers, since the product has more bits than a double.
    return static_cast<qint32>(max * qint64{genrand_int32()} / range);
}

qreal MersenneTwisterRandomGenerator::qrealrand()
{
    return static_cast<qreal>(genrand_int32()) / range;
}

void MersenneTwisterRandomGenerator::init_genrand(quint32 seed)
{
    _engine.seed(seed);
}

quint32 MersenneTwisterRandomGenerator::genrand_int32()
{
    return static_cast<quint32>(_engine());
}
