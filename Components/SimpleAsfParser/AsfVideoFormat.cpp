#include "AsfVideoFormat.h"

#include "AsfReader.h"
#include "AsfStream.h"

AsfVideoFormat AsfVideoFormat::fromBytes(QByteArray const& bytes)
{
    AsfReader in(bytes);
    AsfVideoFormat format;
    format.encodedWidth = in.read<quint32>();
    format.encodedHeight = in.read<quint32>();
    format.reserved = in.read<quint8>();
    format.formatDataSize = in.read<quint16>();
    format.headerSize = in.read<quint32>();
    format.width = in.read<quint32>();
    format.height = in.read<quint32>();
    format.planes = in.read<quint16>();
    format.bitCount = in.read<quint16>();
    format.compression = in.read<quint32>();
    format.imageSize = in.read<quint32>();
    format.horizontalPixelsPerMetre = in.read<quint32>();
    format.verticalPixelsPerMetre = in.read<quint32>();
    format.coloursUsed = in.read<quint32>();
    format.importantColours = in.read<quint32>();
    format.codecData = in.rest();
    return format;
}

void AsfVideoFormat::toStream(QDataStream& stream) const
{
    stream << encodedWidth << encodedHeight << reserved << formatDataSize << headerSize << width << height << planes
           << bitCount << compression << imageSize << horizontalPixelsPerMetre << verticalPixelsPerMetre
           << coloursUsed << importantColours;
    AsfStream::writeBytes(stream, codecData);
}
