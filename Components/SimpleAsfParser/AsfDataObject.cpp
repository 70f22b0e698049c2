#include "AsfDataObject.h"

#include "AsfGuids.h"
#include "AsfStream.h"

AsfDataObject::AsfDataObject(QDataStream& stream, long long size)
    : ClonedAsfObject(asfDataGuid, size), fileId(AsfStream::readGuid(stream))
{
    stream >> totalDataPackets >> reserved;
}

void AsfDataObject::toStream(QDataStream& stream)
{
    AsfStream::writeGuid(stream, guid);
    stream << (objectSize ? objectSize : quint64(bytes));
    AsfStream::writeGuid(stream, fileId);
    stream << totalDataPackets << reserved;
}
