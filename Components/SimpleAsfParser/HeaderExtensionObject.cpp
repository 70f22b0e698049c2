#include "HeaderExtensionObject.h"

#include "AsfObjectReader.h"

HeaderExtensionObject::HeaderExtensionObject(HeaderExtensionObject const& other)
    : ParsedAsfObject(other), depth(other.depth), reservedGuid(other.reservedGuid), reserved(other.reserved),
      unreadData(other.unreadData)
{
    objects.reserve(other.objects.size());
    for (auto const& object : other.objects)
        objects.push_back(object->clone());
}

QByteArray HeaderExtensionObject::objectBytes() const
{
    LittleEndianWriter out;
    for (auto const& object : objects)
        object->toStream(out);
    out.rest(unreadData);
    return out.bytes();
}

void HeaderExtensionObject::readObjects(QByteArray const& data)
{
    LittleEndianReader in(data);
    qint64 position = 0;
    while (std::unique_ptr<SimpleAsfObject> object = AsfObjectReader::readObject(in, depth + 1)) {
        objects.push_back(std::move(object));
        position = in.position();
    }
    unreadData = data.mid(position);
}
