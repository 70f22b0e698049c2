#pragma once

#include <QtGlobal>

/// Chance as an interface, so that tests decide it.
class RandomGenerator
{
public:
    virtual ~RandomGenerator() = default;

    /// A number from 0 up to `max`.
    virtual qint32 qint32rand(int max) = 0;

    /// A number from 0 up to 1.
    virtual qreal qrealrand() = 0;
};
