#include "HeaderExtensionObject.h"

#include "AsfGuids.h"
#include "AsfObjectReader.h"
#include "AsfReader.h"
#include "AsfStream.h"

#include <QIODevice>

HeaderExtensionObject::HeaderExtensionObject(QDataStream& stream, long long size, int depth)
    : ClonedAsfObject(asfHeaderExtensionGuid, size)
{
    AsfReader in(stream, size);
    reservedGuid = in.readGuid();
    reserved = in.read<quint16>();
    auto const dataSize = in.read<quint32>();
    QByteArray const data = in.readBytes(dataSize);
    body = in.rest();

    QDataStream dataStream(data);
    AsfStream::littleEndian(dataStream);
    qint64 position = 0;
    while (std::unique_ptr<SimpleAsfObject> object = AsfObjectReader::readObject(dataStream, depth + 1)) {
        objects.push_back(std::move(object));
        position = dataStream.device()->pos();
    }
    unreadData = data.mid(position);
}

HeaderExtensionObject::HeaderExtensionObject(HeaderExtensionObject const& other)
    : ClonedAsfObject(other), reservedGuid(other.reservedGuid), reserved(other.reserved), unreadData(other.unreadData)
{
    objects.reserve(other.objects.size());
    for (auto const& object : other.objects)
        objects.push_back(object->clone());
}

void HeaderExtensionObject::writeFields(QDataStream& stream) const
{
    QByteArray data;
    QDataStream dataStream(&data, QIODevice::WriteOnly);
    AsfStream::littleEndian(dataStream);
    for (auto const& object : objects)
        object->toStream(dataStream);
    AsfStream::writeBytes(dataStream, unreadData);

    AsfStream::writeGuid(stream, reservedGuid);
    stream << reserved << static_cast<quint32>(data.size());
    AsfStream::writeBytes(stream, data);
}
