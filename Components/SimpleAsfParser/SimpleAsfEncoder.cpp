#include "SimpleAsfEncoder.h"

#include "AsfDataObject.h"
#include "AsfHeaderObject.h"
#include "AsfStream.h"
#include "ExtendedStreamPropertiesObject.h"
#include "FilePropertiesObject.h"
#include "HeaderExtensionObject.h"
#include "MetadataObject.h"
#include "MutualExclusionObject.h"
#include "StreamBitratePropertiesObject.h"
#include "StreamPropertiesObject.h"

#include <QIODevice>

#include <algorithm>

namespace
{
template<typename Object>
Object* firstOf(AsfObjectList const& objects)
{
    for (auto const& object : objects)
        if (auto* const found = dynamic_cast<Object*>(object.get()))
            return found;
    return nullptr;
}

bool describes(SimpleAsfObject const& object, int streamNumber)
{
    auto const* const extended = dynamic_cast<ExtendedStreamPropertiesObject const*>(&object);
    if (!extended || extended->streamNumber == streamNumber)
        return extended != nullptr;
    std::unique_ptr<StreamPropertiesObject> const embedded = extended->embeddedStream();
    return embedded && embedded->streamNumber == streamNumber;
}

void removeStream(AsfObjectList& objects, int streamNumber)
{
    auto const stream = std::find_if(objects.begin(), objects.end(), [=](auto const& object) {
        auto const* const properties = dynamic_cast<StreamPropertiesObject const*>(object.get());
        return properties && properties->streamNumber == streamNumber;
    });
    if (stream != objects.end())
        objects.erase(stream);
    std::erase_if(objects, [=](auto const& object) { return describes(*object, streamNumber); });
    for (auto const& object : objects) {
        if (auto* const bitrates = dynamic_cast<StreamBitratePropertiesObject*>(object.get()))
            bitrates->removeStream(streamNumber);
        else if (auto* const mutex = dynamic_cast<MutualExclusionObject*>(object.get()))
            mutex->removeStream(streamNumber);
        else if (auto* const metadata = dynamic_cast<MetadataObject*>(object.get()))
            metadata->removeStream(streamNumber);
    }
}
} // namespace

SimpleAsfEncoder::SimpleAsfEncoder(QVector<SimpleAsfObject*> const& objects, QObject* parent) : QObject(parent)
{
    for (SimpleAsfObject const* const object : objects)
        addObject(object);
}

SimpleAsfEncoder::~SimpleAsfEncoder() = default;

void SimpleAsfEncoder::addObject(SimpleAsfObject const* object)
{
    _objects.push_back(object->clone());
}

void SimpleAsfEncoder::clearObjects()
{
    _objects.clear();
}

void SimpleAsfEncoder::filterObjects(QUuid const& guid)
{
    std::erase_if(_objects, [&](auto const& object) { return object->guid == guid; });
}

void SimpleAsfEncoder::filterStream(int streamNumber)
{
    AsfObjectList* objects = &_objects;
    while (objects) {
        removeStream(*objects, streamNumber);
        auto* const extension = firstOf<HeaderExtensionObject>(*objects);
        objects = extension ? &extension->objects : nullptr;
    }
}

QByteArray SimpleAsfEncoder::createHeader()
{
    auto* const header = firstOf<AsfHeaderObject>(_objects);
    auto* const data = firstOf<AsfDataObject>(_objects);
    auto* const fileProperties = firstOf<FilePropertiesObject>(_objects);
    if (!header || !data || !fileProperties)
        return {};

    QByteArray others;
    QDataStream otherStream(&others, QIODevice::WriteOnly);
    AsfStream::littleEndian(otherStream);
    header->objectCount = 1;
    for (auto const& object : _objects) {
        if (object.get() == header || object.get() == data || object.get() == fileProperties)
            continue;
        object->toStream(otherStream);
        ++header->objectCount;
    }
    header->objectSize = static_cast<quint64>(others.size() + AsfHeaderObject::bytes + FilePropertiesObject::bytes);
    fileProperties->objectSize = FilePropertiesObject::bytes;
    fileProperties->fileSize = header->objectSize + AsfDataObject::bytes;

    QByteArray result;
    QDataStream stream(&result, QIODevice::WriteOnly);
    AsfStream::littleEndian(stream);
    header->toStream(stream);
    fileProperties->toStream(stream);
    AsfStream::writeBytes(stream, others);
    data->toStream(stream);
    return result;
}

void SimpleAsfEncoder::writeFrame(int, unsigned int, unsigned short, unsigned long long, bool, QByteArray const&) {}

void SimpleAsfEncoder::uuidToStream(QUuid const& uuid, QDataStream& stream)
{
    AsfStream::writeGuid(stream, uuid);
}

void SimpleAsfEncoder::unicodeStringToStream(QString const& text, QDataStream& stream)
{
    AsfStream::writeUnits(stream, text);
    if (!text.endsWith(QChar(0)))
        stream << quint16(0);
}
