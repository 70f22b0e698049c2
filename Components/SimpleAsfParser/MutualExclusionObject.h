#pragma once

#include "AsfGuids.h"
#include "SimpleAsfObject.h"

#include <QList>

/// What the Bitrate and the Advanced Mutual Exclusion objects share: a set of streams of which one is played at a
/// time.
///
/// Body: exclusion type (GUID), stream count (u16), stream numbers (u16 each).
class MutualExclusionObject : public ParsedAsfObject
{
public:
    /// Removes the first occurrence of a stream number and lowers the count.
    void removeStream(int streamNumber);

    QUuid exclusionType;
    quint16 streamCount = 0;
    QList<quint16> streamNumbers; ///< Those that are there; the count may promise more.

protected:
    MutualExclusionObject(QUuid const& objectGuid, QDataStream& stream, long long size);
    void writeFields(QDataStream& stream) const override;
};

/// The Bitrate Mutual Exclusion object: the same content in several bit rates.
class BitrateMutualExclusionObject : public ClonedAsfObject<BitrateMutualExclusionObject, MutualExclusionObject>
{
public:
    BitrateMutualExclusionObject(QDataStream& stream, long long size)
        : ClonedAsfObject(asfBitrateMutexGuid, stream, size)
    {
    }
};

/// The Advanced Mutual Exclusion object: the exclusion type says why, asfMutexBitrate among the reasons.
class AdvancedMutualExclusionObject : public ClonedAsfObject<AdvancedMutualExclusionObject, MutualExclusionObject>
{
public:
    AdvancedMutualExclusionObject(QDataStream& stream, long long size)
        : ClonedAsfObject(asfAdvancedMutexGuid, stream, size)
    {
    }
};
