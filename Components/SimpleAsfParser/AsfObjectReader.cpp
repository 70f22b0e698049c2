#include "AsfObjectReader.h"

#include "CodecListObject.h"
#include "ExtendedStreamPropertiesObject.h"
#include "FilePropertiesObject.h"
#include "GroupMutualExclusionObject.h"
#include "HeaderExtensionObject.h"
#include "LanguageListObject.h"
#include "MetadataObject.h"
#include "MutualExclusionObject.h"
#include "StreamBitratePropertiesObject.h"
#include "StreamPrioritizationObject.h"

#include <array>

namespace
{
using ObjectPointer = std::unique_ptr<SimpleAsfObject>;

template<typename Object>
ObjectPointer make(LittleEndianReader& in, int depth)
{
    auto object = std::make_unique<Object>();
    if constexpr (std::same_as<Object, HeaderExtensionObject>)
        object->depth = depth;
    object->fields(in);
    in.rest(object->body);
    return object;
}

struct ObjectClass {
    QUuid guid;
    ObjectPointer (*make)(LittleEndianReader& in, int depth);
};

constexpr std::array objectClasses = {
    ObjectClass{asfFilePropertiesGuid, make<FilePropertiesObject>},
    ObjectClass{asfStreamPropertiesGuid, make<StreamPropertiesObject>},
    ObjectClass{asfHeaderExtensionGuid, make<HeaderExtensionObject>},
    ObjectClass{asfCodecListGuid, make<CodecListObject>},
    ObjectClass{asfBitrateMutexGuid, make<BitrateMutualExclusionObject>},
    ObjectClass{asfBitratePropertiesGuid, make<StreamBitratePropertiesObject>},
    ObjectClass{asfExtendedStreamPropertiesGuid, make<ExtendedStreamPropertiesObject>},
    ObjectClass{asfMetadataGuid, make<MetadataObject>},
    ObjectClass{asfStreamPrioritizationGuid, make<StreamPrioritizationObject>},
    ObjectClass{asfGroupMutexGuid, make<GroupMutualExclusionObject>},
    ObjectClass{asfLanguageListGuid, make<LanguageListObject>},
    ObjectClass{asfMetadataLibraryGuid, make<MetadataLibraryObject>},
    ObjectClass{asfAdvancedMutexGuid, make<AdvancedMutualExclusionObject>},
};

/// Null for an object that has no class of its own, or does not keep to it.
ObjectPointer readFields(QUuid const& guid, QByteArrayView body, int depth)
{
    auto const found = std::find_if(objectClasses.begin(), objectClasses.end(),
                                    [&](ObjectClass const& objectClass) { return objectClass.guid == guid; });
    bool const tooDeep = guid == asfHeaderExtensionGuid && depth >= HeaderExtensionObject::maximumDepth;
    if (found == objectClasses.end() || tooDeep)
        return nullptr;
    LittleEndianReader in(body);
    ObjectPointer object = found->make(in, depth);
    return in.hasFailed() ? nullptr : std::move(object);
}
} // namespace

ObjectPointer AsfObjectReader::readObject(LittleEndianReader& in, int depth)
{
    if (in.left() < SimpleAsfObject::headerBytes)
        return nullptr;
    auto const guid = in.read<QUuid>();
    auto const size = in.read<quint64>();
    return readBody(guid, in, size, depth);
}

ObjectPointer AsfObjectReader::readBody(QUuid const& guid, LittleEndianReader& in, quint64 size, int depth)
{
    if (size < SimpleAsfObject::headerBytes || size - SimpleAsfObject::headerBytes > static_cast<quint64>(in.left()))
        return nullptr;
    QByteArrayView const body = in.take(static_cast<qint64>(size) - SimpleAsfObject::headerBytes);
    ObjectPointer object = readFields(guid, body, depth);
    if (!object) {
        object = std::make_unique<SimpleAsfObject>();
        object->body = body.toByteArray();
    }
    object->guid = guid;
    object->objectSize = size;
    return object;
}
