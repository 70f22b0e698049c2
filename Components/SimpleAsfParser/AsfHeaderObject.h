#pragma once

#include "SimpleAsfObject.h"

/// The Header object, which the other objects of the header are in and counted with; here it stands for its own
/// fields alone.
class AsfHeaderObject : public ParsedAsfObject<AsfHeaderObject>
{
public:
    /// Bytes of GUID, size and fields.
    static constexpr int bytes = 30;

    quint32 objectCount = 0;

    template<typename Archive>
    void fields(Archive& archive)
    {
        quint8 first = 1; // Reserved: whatever came, these are written.
        quint8 second = 2;
        archive(objectCount, first, second);
    }

    void toStream(LittleEndianWriter& out) override
    {
        out(guid, objectSize);
        fields(out);
    }
};
