#include "SimpleAsfParser.h"

#include "AsfDataObject.h"
#include "AsfGuids.h"
#include "AsfHeaderObject.h"
#include "AsfObjectReader.h"
#include "AsfStream.h"
#include "ExtendedStreamPropertiesObject.h"
#include "HeaderExtensionObject.h"
#include "LanguageListObject.h"
#include "Logger.h"
#include "LoggerManager.h"
#include "MetadataObject.h"
#include "MutualExclusionObject.h"
#include "StreamBitratePropertiesObject.h"

#include <QIODevice>

#include <algorithm>
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
    QDataStream stream(header);
    AsfStream::littleEndian(stream);
    if (uuidFromStream(stream) != asfHeaderGuid)
        return 0;
    quint64 headerSize;
    stream >> headerSize;
    if (headerSize > static_cast<quint64>(header.size() - 8))
        return 0;
    _objects.push_back(std::make_unique<AsfHeaderObject>(stream, static_cast<long long>(headerSize)));

    while (stream.device()->pos() + 23 < header.size()) {
        QUuid const guid = uuidFromStream(stream);
        quint64 size;
        stream >> size;
        LOG_DEBUG("ASF object %s length %lld added", qPrintable(guid.toString()), static_cast<long long>(size));
        if (guid == asfDataGuid) {
            if (AsfStream::left(stream) < AsfDataObject::bytes - SimpleAsfObject::headerBytes)
                return 0;
            _objects.push_back(std::make_unique<AsfDataObject>(stream, static_cast<long long>(size)));
            _streamTypes.reset();
            _numberOfStreams =
                static_cast<int>(audioStreams().size() + videoStreams().size() + otherStreams().size());
            return stream.device()->pos();
        }
        std::unique_ptr<SimpleAsfObject> object = AsfObjectReader::readBody(guid, stream, size, 0);
        if (!object) {
            LOG_WARNING("ASF object %s of %llu bytes does not fit into the header", qPrintable(guid.toString()),
                        static_cast<unsigned long long>(size));
            return 0;
        }
        if (auto const* const properties = dynamic_cast<FilePropertiesObject const*>(object.get()))
            readFileProperties(*properties);
        _objects.push_back(std::move(object));
    }
    return 0;
}

void SimpleAsfParser::reset()
{
    _objects.clear();
    _flags = _minPacketSize = _maxPacketSize = _maxBitrate = 0;
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

void SimpleAsfParser::forEachStream(std::function<void(StreamPropertiesObject const&)> const& use) const
{
    for (SimpleAsfObject const* const object : findObjects(asfStreamPropertiesGuid))
        if (auto const* const stream = dynamic_cast<StreamPropertiesObject const*>(object))
            use(*stream);
    for (SimpleAsfObject const* const object : findObjects(asfExtendedStreamPropertiesGuid))
        if (auto const* const extended = dynamic_cast<ExtendedStreamPropertiesObject const*>(object))
            if (StreamPropertiesObject const* const stream = extended->embeddedStream())
                use(*stream);
}

template<typename View, typename Fill>
QList<View> SimpleAsfParser::streamViews(Fill const& fill) const
{
    QMap<int, int> bitrates;
    if (auto const* const object = first<StreamBitratePropertiesObject>(_objects, asfBitratePropertiesGuid))
        for (auto record = object->records.crbegin(); record != object->records.crend(); ++record)
            bitrates.insert(record->streamNumber, asBitrate(record->averageBitrate));

    QList<View> views;
    forEachStream([&](StreamPropertiesObject const& stream) {
        View view;
        if (!fill(view, stream))
            return;
        view.streamNumber = stream.streamNumber;
        view.bitrate = std::max(1, bitrates.value(stream.streamNumber));
        view.flags = stream.flags;
        view.streamType = stream.streamType;
        view.errorCorrectionType = stream.errorCorrectionType;
        view.timeOffset = stream.timeOffset;
        view.errorCorrectionData = stream.errorCorrectionData;
        views.append(view);
    });
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
            if (record.streamNumber == streamNumber)
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

QList<StreamPrioritizationObject::StreamPriorityRecord> SimpleAsfParser::streamPrioritization() const
{
    auto const* const object = first<StreamPrioritizationObject>(_objects, asfStreamPrioritizationGuid);
    return object ? object->records : QList<StreamPrioritizationObject::StreamPriorityRecord>();
}

QList<int> SimpleAsfParser::inBitrateMutex(int streamNumber) const
{
    MutualExclusionObject const* found = nullptr;
    auto const lists = [&](SimpleAsfObject const* object, bool ofBitrates) {
        auto const* const mutex = dynamic_cast<MutualExclusionObject const*>(object);
        if (mutex && streamNumber >= 0 && mutex->streamNumbers.contains(static_cast<quint16>(streamNumber)) &&
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
        for (AudioStreamObject const& stream : audioStreams())
            _streamTypes->insert(stream.streamNumber, asfAudioMediaGuid);
        for (VideoStreamObject const& stream : videoStreams())
            _streamTypes->insert(stream.streamNumber, asfVideoMediaGuid);
        for (StreamObject const& stream : otherStreams())
            _streamTypes->insert(stream.streamNumber, stream.streamType);
    }
    return _streamTypes->value(streamNumber);
}

void SimpleAsfParser::readFileProperties(FilePropertiesObject const& properties)
{
    _flags = properties.flags;
    _minPacketSize = properties.minimumPacketSize;
    _maxPacketSize = properties.maximumPacketSize;
    _maxBitrate = properties.maximumBitrate;
}

FilePropertiesObject* SimpleAsfParser::fileProperties() const
{
    return first<FilePropertiesObject>(_objects, asfFilePropertiesGuid);
}

void SimpleAsfParser::setFlag(quint32 flag, bool on)
{
    _flags = on ? _flags | flag : _flags & ~flag;
    if (FilePropertiesObject* const properties = fileProperties())
        properties->flags = _flags;
}

void SimpleAsfParser::setLive(bool live)
{
    setFlag(FilePropertiesObject::liveFlag, live);
}

void SimpleAsfParser::setBroadcast(bool broadcast)
{
    setFlag(FilePropertiesObject::broadcastFlag, broadcast);
}

void SimpleAsfParser::setSeekable(bool seekable)
{
    setFlag(FilePropertiesObject::seekableFlag, seekable);
}

void SimpleAsfParser::setMinPacketSize(quint32 size)
{
    _minPacketSize = size;
    if (FilePropertiesObject* const properties = fileProperties())
        properties->minimumPacketSize = size;
}

void SimpleAsfParser::setMaxPacketSize(quint32 size)
{
    _maxPacketSize = size;
    if (FilePropertiesObject* const properties = fileProperties())
        properties->maximumPacketSize = size;
}

void SimpleAsfParser::setMaxBitrate(quint32 bitrate)
{
    _maxBitrate = bitrate;
    if (FilePropertiesObject* const properties = fileProperties())
        properties->maximumBitrate = bitrate;
}

QUuid SimpleAsfParser::uuidFromStream(QDataStream& stream)
{
    return AsfStream::readGuid(stream);
}

quint32 SimpleAsfParser::getByteWordDWordValue(int type, QDataStream& stream, quint32 defaultValue)
{
    auto const read = [&stream](auto value) {
        stream >> value;
        return static_cast<quint32>(value);
    };
    switch (type) {
    case 0:
        return defaultValue;
    case 1:
        return read(quint8());
    case 2:
        return read(quint16());
    case 3:
        return read(quint32());
    default:
        return 0;
    }
}

QString SimpleAsfParser::unicodeStringFromStream(QDataStream& stream, quint32 units)
{
    QString text(std::min<qint64>(units, AsfStream::left(stream) / 2), Qt::Uninitialized);
    for (QChar& unit : text) {
        quint16 value;
        stream >> value;
        unit = QChar(value);
    }
    return text;
}
