#pragma once

#include "SimpleAsfObject.h"

/// The head of the Data object; the data packets that follow it on the wire do not belong to the header.
///
/// Body: file id (GUID), total data packets (u64), reserved (u16). The size counts the packets, and is 0 when the
/// server does not know how many there will be.
class AsfDataObject : public ClonedAsfObject<AsfDataObject, SimpleAsfObject>
{
public:
    /// Bytes of GUID, size and fields.
    static constexpr int bytes = 50;

    AsfDataObject(QDataStream& stream, long long size);

    /// A size of 0 is written as 50.
    void toStream(QDataStream& stream) override;

    QUuid fileId;
    quint64 totalDataPackets = 0;
    quint16 reserved = 0;
};
