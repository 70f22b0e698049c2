#include "SimpleAsfEncoder.h"

#include "AsfDataObject.h"
#include "AsfHeaderObject.h"
#include "ExtendedStreamPropertiesObject.h"
#include "FilePropertiesObject.h"
#include "HeaderExtensionObject.h"

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

bool describesOneOf(QSet<int> const& streams, SimpleAsfObject const& object)
{
    auto const* const extended = dynamic_cast<ExtendedStreamPropertiesObject const*>(&object);
    if (!extended || streams.contains(extended->streamNumber))
        return extended != nullptr;
    StreamPropertiesObject const* const embedded = extended->embeddedStream();
    return embedded && streams.contains(embedded->streamNumber());
}

void removeStreams(AsfObjectList& objects, QSet<int> const& streams)
{
    QSet<int> left = streams; // Only the first object of each number goes.
    std::erase_if(objects, [&](auto const& object) {
        auto const* const properties = dynamic_cast<StreamPropertiesObject const*>(object.get());
        return properties ? left.remove(properties->streamNumber()) : describesOneOf(streams, *object);
    });
    for (auto const& object : objects)
        for (int const stream : streams)
            object->removeStream(stream);
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
    filterStreams({streamNumber});
}

void SimpleAsfEncoder::filterStreams(QSet<int> const& streamNumbers)
{
    AsfObjectList* objects = &_objects;
    while (objects) {
        removeStreams(*objects, streamNumbers);
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

    LittleEndianWriter others;
    header->objectCount = 1;
    for (auto const& object : _objects) {
        if (object.get() == header || object.get() == data || object.get() == fileProperties)
            continue;
        object->toStream(others);
        ++header->objectCount;
    }
    header->objectSize =
        static_cast<quint64>(others.bytes().size() + AsfHeaderObject::bytes + FilePropertiesObject::bytes);
    fileProperties->fileSize = header->objectSize + AsfDataObject::bytes;
    fileProperties->body.clear();

    LittleEndianWriter out;
    header->toStream(out);
    fileProperties->toStream(out);
    out.rest(others.bytes());
    data->toStream(out);
    return out.bytes();
}

void SimpleAsfEncoder::writeFrame(int, unsigned int, unsigned short, unsigned long long, bool, QByteArray const&) {}

void SimpleAsfEncoder::uuidToStream(QUuid const& uuid, LittleEndianWriter& out)
{
    out(uuid);
}

void SimpleAsfEncoder::unicodeStringToStream(QString const& text, LittleEndianWriter& out)
{
    out.array(text.endsWith(QChar(0)) ? text : text + QChar(0));
}
