#include "AsfAudioFormat.h"

#include "AsfReader.h"
#include "AsfStream.h"

AsfAudioFormat AsfAudioFormat::fromBytes(QByteArray const& bytes)
{
    AsfReader in(bytes);
    AsfAudioFormat format;
    format.codecId = in.read<quint16>();
    format.channels = in.read<quint16>();
    format.samplesPerSecond = in.read<quint32>();
    format.averageBytesPerSecond = in.read<quint32>();
    format.blockAlignment = in.read<quint16>();
    format.bitsPerSample = in.read<quint16>();
    format.codecDataSize = in.read<quint16>();
    format.codecData = in.rest();
    return format;
}

void AsfAudioFormat::toStream(QDataStream& stream) const
{
    stream << codecId << channels << samplesPerSecond << averageBytesPerSecond << blockAlignment << bitsPerSample
           << codecDataSize;
    AsfStream::writeBytes(stream, codecData);
}
