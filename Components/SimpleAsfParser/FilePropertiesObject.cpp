#include "FilePropertiesObject.h"

#include "AsfGuids.h"
#include "AsfReader.h"
#include "AsfStream.h"

FilePropertiesObject::FilePropertiesObject(QDataStream& stream, long long size)
    : ClonedAsfObject(asfFilePropertiesGuid, size)
{
    AsfReader in(stream, size);
    fileId = in.readGuid();
    for (quint64* const field : {&fileSize, &creationDate, &dataPacketsCount, &playDuration, &sendDuration, &preroll})
        *field = in.read<quint64>();
    for (quint32* const field : {&flags, &minimumPacketSize, &maximumPacketSize, &maximumBitrate})
        *field = in.read<quint32>();
}

void FilePropertiesObject::toStream(QDataStream& stream)
{
    AsfStream::writeGuid(stream, guid);
    stream << (objectSize ? objectSize : quint64(bytes));
    AsfStream::writeGuid(stream, fileId);
    stream << fileSize << creationDate << dataPacketsCount << playDuration << sendDuration << preroll;
    stream << flags << minimumPacketSize << maximumPacketSize << maximumBitrate;
}
