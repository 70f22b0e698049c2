#pragma once

#include "SimpleAsfObject.h"

/// What the Bitrate and the Advanced Mutual Exclusion objects share: a set of streams of which one is played at a
/// time.
class MutualExclusionObject : public SimpleAsfObject
{
public:
    /// Removes the first occurrence of the number.
    void removeStream(int streamNumber) override
    {
        auto const found = std::find(streamNumbers.cbegin(), streamNumbers.cend(), streamNumber);
        if (found == streamNumbers.cend())
            return;
        streamNumbers.erase(found);
        --streamCount;
    }

    QUuid exclusionType;
    quint16 streamCount = 0;
    QList<quint16> streamNumbers; ///< Those that are there; the count may promise more.

    template<typename Archive>
    void fields(Archive& archive)
    {
        archive(exclusionType, streamCount);
        archive.records(streamCount, streamNumbers);
    }
};

/// The Bitrate Mutual Exclusion object: the same content in several bit rates.
class BitrateMutualExclusionObject : public ParsedAsfObject<BitrateMutualExclusionObject, MutualExclusionObject>
{
};

/// The Advanced Mutual Exclusion object: the exclusion type says why, asfMutexBitrate among the reasons.
class AdvancedMutualExclusionObject : public ParsedAsfObject<AdvancedMutualExclusionObject, MutualExclusionObject>
{
};
