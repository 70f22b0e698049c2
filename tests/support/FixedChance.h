#pragma once

#include "RandomGenerator.h"

/// Chance that always comes out the same: in the middle, unless told otherwise.
struct FixedChance : RandomGenerator {
    qint32 qint32rand(int max) override { return static_cast<qint32>(value * max); }
    qreal qrealrand() override { return value; }

    qreal value = 0.5; ///< From 0 to 1.
};
