#include "StreamBitratePropertiesObject.h"

#include "AsfGuids.h"
#include "AsfReader.h"

StreamBitratePropertiesObject::StreamBitratePropertiesObject(QDataStream& stream, long long size)
    : ClonedAsfObject(asfBitratePropertiesGuid, size)
{
    AsfReader in(stream, size);
    recordCount = in.read<quint16>();
    for (int i = 0; i < recordCount && in.has(6); ++i) {
        BitrateRecord record;
        record.flags = in.read<quint16>();
        record.streamNumber = record.flags & 0x7F;
        record.averageBitrate = in.read<quint32>();
        records.append(record);
    }
    body = in.rest();
}

void StreamBitratePropertiesObject::removeStream(int streamNumber)
{
    recordCount -= records.removeIf([=](BitrateRecord const& record) { return record.streamNumber == streamNumber; });
}

void StreamBitratePropertiesObject::writeFields(QDataStream& stream) const
{
    stream << recordCount;
    for (BitrateRecord const& record : records)
        stream << record.flags << record.averageBitrate;
}
