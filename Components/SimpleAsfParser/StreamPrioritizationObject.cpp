#include "StreamPrioritizationObject.h"

#include "AsfGuids.h"
#include "AsfReader.h"

StreamPrioritizationObject::StreamPrioritizationObject(QDataStream& stream, long long size)
    : ClonedAsfObject(asfStreamPrioritizationGuid, size)
{
    AsfReader in(stream, size);
    recordCount = in.read<quint16>();
    for (int i = 0; i < recordCount && in.has(4); ++i) {
        StreamPriorityRecord record;
        record.streamNumber = in.read<quint16>();
        record.mandatory = in.read<quint16>() & 1;
        records.append(record);
    }
    body = in.rest();
}

void StreamPrioritizationObject::writeFields(QDataStream& stream) const
{
    stream << recordCount;
    for (StreamPriorityRecord const& record : records)
        stream << record.streamNumber << static_cast<quint16>(record.mandatory ? 1 : 0);
}
