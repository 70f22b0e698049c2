#include "ExtendedStreamPropertiesObject.h"

#include "AsfGuids.h"
#include "AsfReader.h"
#include "AsfStream.h"

namespace
{
std::shared_ptr<StreamPropertiesObject const> readStream(QByteArray const& bytes)
{
    if (bytes.size() < SimpleAsfObject::headerBytes)
        return nullptr;
    QDataStream stream(bytes);
    AsfStream::littleEndian(stream);
    if (AsfStream::readGuid(stream) != asfStreamPropertiesGuid)
        return nullptr;
    quint64 statedSize; // Not used: the object is all that is left.
    stream >> statedSize;
    auto object = std::make_shared<StreamPropertiesObject const>(stream, bytes.size());
    return stream.status() == QDataStream::Ok ? object : nullptr;
}
} // namespace

ExtendedStreamPropertiesObject::ExtendedStreamPropertiesObject(QDataStream& stream, long long size)
    : ClonedAsfObject(asfExtendedStreamPropertiesGuid, size)
{
    AsfReader in(stream, size);
    startTime = in.read<quint64>();
    endTime = in.read<quint64>();
    for (quint32* const field : {&dataBitrate, &bufferSize, &initialBufferFullness, &alternateDataBitrate,
                                 &alternateBufferSize, &alternateInitialBufferFullness, &maximumObjectSize, &flags})
        *field = in.read<quint32>();
    streamNumber = in.read<quint16>();
    languageIndex = in.read<quint16>();
    averageTimePerFrame = in.read<quint64>();
    streamNameCount = in.read<quint16>();
    payloadExtensionCount = in.read<quint16>();
    streamNames = in.readBytes(streamNameCount);

    for (int i = 0; i < payloadExtensionCount && in.has(22); ++i) {
        qint64 const left = in.left();
        PayloadExtensionRecord record;
        record.guid = in.readGuid();
        record.dataSize = in.read<quint16>();
        auto const informationLength = in.read<quint32>();
        if (!in.has(informationLength)) {
            in.returnTo(left);
            break;
        }
        record.information = in.readBytes(informationLength);
        payloadExtensions.append(record);
    }
    body = in.rest();
    _embeddedStream = readStream(body);
}

void ExtendedStreamPropertiesObject::writeFields(QDataStream& stream) const
{
    stream << startTime << endTime << dataBitrate << bufferSize << initialBufferFullness << alternateDataBitrate
           << alternateBufferSize << alternateInitialBufferFullness << maximumObjectSize << flags << streamNumber
           << languageIndex << averageTimePerFrame << streamNameCount << payloadExtensionCount;
    AsfStream::writeBytes(stream, streamNames);
    for (PayloadExtensionRecord const& record : payloadExtensions) {
        AsfStream::writeGuid(stream, record.guid);
        stream << record.dataSize << static_cast<quint32>(record.information.size());
        AsfStream::writeBytes(stream, record.information);
    }
}
