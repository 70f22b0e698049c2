#pragma once

#include <QUuid>

class RandomGenerator;

/// Makes UUIDs (RFC 4122).
class UuidGenerator
{
public:
    /// A random UUID, version 4, from eight numbers of the generator: the same numbers give the same UUID everywhere.
    static QUuid generateRandomUuid(RandomGenerator& randomGenerator);

    /// The null UUID.
    static QUuid generateMicrosoftUuid() { return {}; }
};
