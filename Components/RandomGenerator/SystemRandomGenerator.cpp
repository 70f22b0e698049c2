#include "SystemRandomGenerator.h"

#include <cstdlib>

static_assert(RAND_MAX == 2147483647);

SystemRandomGenerator::SystemRandomGenerator(int seed)
{
    std::srand(static_cast<unsigned int>(seed));
}

qint32 SystemRandomGenerator::qint32rand(int max)
{
    return static_cast<qint32>(static_cast<long double>(max) * std::rand() / 2147483647.0L);
}

qreal SystemRandomGenerator::qrealrand()
{
    return std::rand() / 2147483647.0;
}
