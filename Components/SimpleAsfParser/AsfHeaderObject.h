#pragma once

#include "SimpleAsfObject.h"

/// The Header object, which the other objects of the header are in; here it stands for its own fields alone.
///
/// Body: object count (u32), two reserved bytes, 1 and 2.
class AsfHeaderObject : public ClonedAsfObject<AsfHeaderObject, SimpleAsfObject>
{
public:
    /// Bytes of GUID, size and fields.
    static constexpr int bytes = 30;

    AsfHeaderObject(QDataStream& stream, long long size);
    void toStream(QDataStream& stream) override;

    quint32 objectCount = 0;
};
