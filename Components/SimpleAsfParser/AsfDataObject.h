#pragma once

#include "SimpleAsfObject.h"

/// The head of the Data object; the data packets that follow it on the wire do not belong to the header. Its size
/// counts them, and is 0 when the server does not know how many there will be.
class AsfDataObject : public ParsedAsfObject<AsfDataObject>
{
public:
    /// Bytes of GUID, size and fields.
    static constexpr int bytes = 50;

    QUuid fileId;
    quint64 totalDataPackets = 0;
    quint16 reserved = 0;

    template<typename Archive>
    void fields(Archive& archive)
    {
        archive(fileId, totalDataPackets, reserved);
    }

    /// A size of 0 is written as 50.
    void toStream(LittleEndianWriter& out) override
    {
        out(guid, objectSize ? objectSize : quint64(bytes));
        fields(out);
    }
};
