#pragma once

#include "RandomGenerator.h"

/// The C library's generator, whose one state the whole process shares. Any thread may ask.
/// Both ends of each range can come up.
class SystemRandomGenerator : public RandomGenerator
{
public:
    explicit SystemRandomGenerator(int seed);

    qint32 qint32rand(int max) override;
    qreal qrealrand() override;
};
