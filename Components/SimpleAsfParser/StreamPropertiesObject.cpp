#include "StreamPropertiesObject.h"

#include "AsfGuids.h"
#include "AsfReader.h"
#include "AsfStream.h"

#include <QIODevice>

StreamPropertiesObject::StreamPropertiesObject(QDataStream& stream, long long size)
    : ClonedAsfObject(asfStreamPropertiesGuid, size)
{
    AsfReader in(stream, size);
    streamType = in.readGuid();
    errorCorrectionType = in.readGuid();
    timeOffset = in.read<quint64>();
    auto const typeSpecificLength = in.read<quint32>();
    auto const errorCorrectionLength = in.read<quint32>();
    flags = in.read<quint16>();
    reserved = in.read<quint32>();
    streamNumber = flags & 0x7F;
    QByteArray const typeSpecific = in.readBytes(typeSpecificLength);
    if (isAudio())
        audio = AsfAudioFormat::fromBytes(typeSpecific);
    else if (isVideo())
        video = AsfVideoFormat::fromBytes(typeSpecific);
    errorCorrectionData = in.readBytes(errorCorrectionLength);
    body = in.rest();
}

bool StreamPropertiesObject::isAudio() const
{
    return streamType == asfAudioMediaGuid;
}

bool StreamPropertiesObject::isVideo() const
{
    return streamType == asfVideoMediaGuid;
}

void StreamPropertiesObject::writeFields(QDataStream& stream) const
{
    QByteArray typeSpecific;
    QDataStream typeStream(&typeSpecific, QIODevice::WriteOnly);
    AsfStream::littleEndian(typeStream);
    if (isAudio())
        audio.toStream(typeStream);
    else if (isVideo())
        video.toStream(typeStream);

    AsfStream::writeGuid(stream, streamType);
    AsfStream::writeGuid(stream, errorCorrectionType);
    stream << timeOffset << static_cast<quint32>(typeSpecific.size())
           << static_cast<quint32>(errorCorrectionData.size()) << flags << reserved;
    AsfStream::writeBytes(stream, typeSpecific);
    AsfStream::writeBytes(stream, errorCorrectionData);
}
