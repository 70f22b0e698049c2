#include "SimpleAsfParser.h"

#include "AsfDataObject.h"
#include "AsfGuids.h"
#include "AsfHeaderObject.h"
#include "AsfObjectReader.h"
#include "ExtendedStreamPropertiesObject.h"
#include "HeaderExtensionObject.h"
#include "LanguageListObject.h"
#include "Logger.h"
#include "LoggerManager.h"
#include "MetadataObject.h"
#include "MutualExclusionObject.h"
#include "StreamBitratePropertiesObject.h"

#include <algorithm>
#include <functional>
#include <limits>

Logger* SimpleAsfParser::log = LoggerManager::logger();

namespace
{
/// Shows each object with that GUID, in order, until `use` returns true; whether it did.
bool search(AsfObjectList const& objects, QUuid const& guid, std::function<bool(SimpleAsfObject*)> const& use)
{
    for (auto const& object : objects) {
        if (object->guid == guid && use(object.get()))
            return true;
        auto const* const extension = dynamic_cast<HeaderExtensionObject const*>(object.get());
        if (extension && search(extension->objects, guid, use))
            return true;
    }
    return false;
}

int asBitrate(quint32 value)
{
    return static_cast<int>(std::min<quint32>(value, std::numeric_limits<int>::max()));
}

/// The first of the objects with that GUID which could be read.
template<typename Object>
Object* first(AsfObjectList const& objects, QUuid const& guid)
{
    Object* found = nullptr;
    search(objects, guid, [&](SimpleAsfObject* object) { return (found = dynamic_cast<Object*>(object)); });
    return found;
}
} // namespace

SimpleAsfParser::SimpleAsfParser(QByteArray const& header, QObject* parent) : QObject(parent)
{
    if (!header.isEmpty())
        ParseHeader(header);
}

SimpleAsfParser::~SimpleAsfParser() = default;

qint64 SimpleAsfParser::ParseHeader(QByteArray const& header)
{
    if (header.size() < AsfHeaderObject::bytes)
        return 0;
    LittleEndianReader in(header);
    QUuid const headerGuid = uuidFromStream(in);
    auto const headerSize = in.read<quint64>();
    if (headerGuid != asfHeaderGuid || headerSize > static_cast<quint64>(header.size() - 8))
        return 0;
    addObject<AsfHeaderObject>(headerGuid, headerSize, in);

    while (in.left() >= SimpleAsfObject::headerBytes) {
        QUuid const guid = uuidFromStream(in);
        auto const size = in.read<quint64>();
        LOG_DEBUG("ASF object %s length %lld added", qPrintable(guid.toString()), static_cast<long long>(size));
        if (guid == asfDataGuid) {
            if (in.left() < AsfDataObject::bytes - SimpleAsfObject::headerBytes)
                return 0;
            addObject<AsfDataObject>(guid, size, in);
            _streamTypes.reset();
            _numberOfStreams = static_cast<int>(streams().size());
            return in.position();
        }
        std::unique_ptr<SimpleAsfObject> object = AsfObjectReader::readBody(guid, in, size, 0);
        if (!object) {
            LOG_WARNING("ASF object %s of %llu bytes does not fit into the header", qPrintable(guid.toString()),
                        static_cast<unsigned long long>(size));
            return 0;
        }
        if (auto const* const properties = dynamic_cast<FilePropertiesObject const*>(object.get()))
            _properties = *properties;
        _objects.push_back(std::move(object));
    }
    return 0;
}

/// Of a class that is read nowhere else.
template<typename Object>
void SimpleAsfParser::addObject(QUuid const& guid, quint64 size, LittleEndianReader& in)
{
    auto object = std::make_unique<Object>();
    object->guid = guid;
    object->objectSize = size;
    object->fields(in);
    _objects.push_back(std::move(object));
}

void SimpleAsfParser::reset()
{
    _objects.clear();
    _properties = {};
    _numberOfStreams = 0;
    _incompleteFrames.clear();
    _incompleteBytes = 0;
    _streamTypes.reset();
}

SimpleAsfObject* SimpleAsfParser::findObject(QUuid const& guid) const
{
    return first<SimpleAsfObject>(_objects, guid);
}

QList<SimpleAsfObject*> SimpleAsfParser::findObjects(QUuid const& guid) const
{
    QList<SimpleAsfObject*> found;
    search(_objects, guid, [&](SimpleAsfObject* object) {
        found.append(object);
        return false;
    });
    return found;
}

QList<StreamPropertiesObject const*> SimpleAsfParser::streams() const
{
    QList<StreamPropertiesObject const*> found;
    for (SimpleAsfObject const* const object : findObjects(asfStreamPropertiesGuid))
        if (auto const* const stream = dynamic_cast<StreamPropertiesObject const*>(object))
            found.append(stream);
    for (SimpleAsfObject const* const object : findObjects(asfExtendedStreamPropertiesGuid))
        if (auto const* const extended = dynamic_cast<ExtendedStreamPropertiesObject const*>(object))
            if (StreamPropertiesObject const* const stream = extended->embeddedStream())
                found.append(stream);
    return found;
}

template<typename View, typename Fill>
QList<View> SimpleAsfParser::streamViews(Fill const& fill) const
{
    QMap<int, int> bitrates;
    if (auto const* const object = first<StreamBitratePropertiesObject>(_objects, asfBitratePropertiesGuid))
        for (auto record = object->records.crbegin(); record != object->records.crend(); ++record)
            bitrates.insert(record->streamNumber(), asBitrate(record->averageBitrate));

    QList<View> views;
    for (StreamPropertiesObject const* const stream : streams()) {
        View view;
        if (!fill(view, *stream))
            continue;
        view.streamNumber = stream->streamNumber();
        view.bitrate = std::max(1, bitrates.value(view.streamNumber));
        view.flags = stream->flags;
        view.streamType = stream->streamType;
        view.errorCorrectionType = stream->errorCorrectionType;
        view.timeOffset = stream->timeOffset;
        view.errorCorrectionData = stream->errorCorrectionData;
        views.append(view);
    }
    return views;
}

QList<AudioStreamObject> SimpleAsfParser::audioStreams() const
{
    return streamViews<AudioStreamObject>([](AudioStreamObject& view, StreamPropertiesObject const& stream) {
        view.format = stream.audio;
        return stream.isAudio();
    });
}

QList<VideoStreamObject> SimpleAsfParser::videoStreams() const
{
    return streamViews<VideoStreamObject>([](VideoStreamObject& view, StreamPropertiesObject const& stream) {
        view.format = stream.video;
        return stream.isVideo();
    });
}

QList<StreamObject> SimpleAsfParser::otherStreams() const
{
    return streamViews<StreamObject>([](StreamObject const&, StreamPropertiesObject const& stream) {
        return !stream.isAudio() && !stream.isVideo();
    });
}

int SimpleAsfParser::streamBitrate(int streamNumber) const
{
    if (auto const* const object = first<StreamBitratePropertiesObject>(_objects, asfBitratePropertiesGuid))
        for (auto const& record : object->records)
            if (record.streamNumber() == streamNumber)
                return asBitrate(record.averageBitrate);
    return 0;
}

QString SimpleAsfParser::streamLanguage(int streamNumber) const
{
    auto const* const library = first<MetadataLibraryObject>(_objects, asfMetadataLibraryGuid);
    auto const* const languages = first<LanguageListObject>(_objects, asfLanguageListGuid);
    if (library && languages)
        for (auto const& record : library->records)
            if (record.streamNumber == streamNumber && record.languageIndex != 0)
                return languages->language(record.languageIndex);
    return {};
}

QList<StreamPriorityRecord> SimpleAsfParser::streamPrioritization() const
{
    auto const* const object = first<StreamPrioritizationObject>(_objects, asfStreamPrioritizationGuid);
    return object ? object->records : QList<StreamPriorityRecord>();
}

QList<int> SimpleAsfParser::inBitrateMutex(int streamNumber) const
{
    MutualExclusionObject const* found = nullptr;
    auto const lists = [&](SimpleAsfObject const* object, bool ofBitrates) {
        auto const* const mutex = dynamic_cast<MutualExclusionObject const*>(object);
        if (mutex && std::ranges::count(mutex->streamNumbers, streamNumber) > 0 &&
            (!ofBitrates || mutex->exclusionType == asfMutexBitrate))
            found = mutex;
        return found != nullptr;
    };
    search(_objects, asfBitrateMutexGuid, [&](SimpleAsfObject* object) { return lists(object, false); }) ||
        search(_objects, asfAdvancedMutexGuid, [&](SimpleAsfObject* object) { return lists(object, true); });

    QList<int> others;
    if (found)
        for (quint16 const number : found->streamNumbers)
            if (number != streamNumber)
                others.append(number);
    return others;
}

QUuid SimpleAsfParser::getStreamType(int streamNumber)
{
    if (!_streamTypes) {
        _streamTypes.emplace();
        for (StreamPropertiesObject const* const stream : streams())
            _streamTypes->insert(stream->streamNumber(), stream->streamType);
    }
    return _streamTypes->value(streamNumber);
}

void SimpleAsfParser::setProperty(quint32 FilePropertiesObject::*property, quint32 value)
{
    _properties.*property = value;
    if (auto* const object = first<FilePropertiesObject>(_objects, asfFilePropertiesGuid))
        object->*property = value;
}

void SimpleAsfParser::setFlag(quint32 flag, bool on)
{
    setProperty(&FilePropertiesObject::flags, on ? _properties.flags | flag : _properties.flags & ~flag);
}

QUuid SimpleAsfParser::uuidFromStream(LittleEndianReader& in)
{
    return in.read<QUuid>();
}

quint32 SimpleAsfParser::getByteWordDWordValue(int type, LittleEndianReader& in, quint32 defaultValue)
{
    switch (type) {
    case 0:
        return defaultValue;
    case 1:
        return in.read<quint8>();
    case 2:
        return in.read<quint16>();
    case 3:
        return in.read<quint32>();
    default:
        return 0;
    }
}

QString SimpleAsfParser::unicodeStringFromStream(LittleEndianReader& in, quint32 units)
{
    QString text;
    in.arrayUpTo(text, units);
    return text;
}
