#include "AsfHeaderObject.h"

#include "AsfGuids.h"
#include "AsfStream.h"

AsfHeaderObject::AsfHeaderObject(QDataStream& stream, long long size) : ClonedAsfObject(asfHeaderGuid, size)
{
    quint8 reserved;
    stream >> objectCount >> reserved >> reserved;
}

void AsfHeaderObject::toStream(QDataStream& stream)
{
    AsfStream::writeGuid(stream, guid);
    stream << objectSize << objectCount << quint8(1) << quint8(2);
}
