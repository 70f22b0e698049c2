#include "AsfObjectReader.h"

#include "AsfGuids.h"
#include "AsfRawObjects.h"
#include "AsfStream.h"
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
#include "StreamPropertiesObject.h"

#include <QIODevice>

#include <array>

namespace
{
using ObjectPointer = std::unique_ptr<SimpleAsfObject>;

template<typename Object>
ObjectPointer make(QDataStream& stream, long long size, int)
{
    return std::make_unique<Object>(stream, size);
}

ObjectPointer makeHeaderExtension(QDataStream& stream, long long size, int depth)
{
    return std::make_unique<HeaderExtensionObject>(stream, size, depth);
}

struct ObjectClass {
    QUuid guid;
    ObjectPointer (*make)(QDataStream& stream, long long size, int depth);
};

constexpr std::array objectClasses = {
    ObjectClass{asfFilePropertiesGuid, make<FilePropertiesObject>},
    ObjectClass{asfStreamPropertiesGuid, make<StreamPropertiesObject>},
    ObjectClass{asfHeaderExtensionGuid, makeHeaderExtension},
    ObjectClass{asfCodecListGuid, make<CodecListObject>},
    ObjectClass{asfScriptCommandGuid, make<ScriptCommandObject>},
    ObjectClass{asfMarkerGuid, make<MarkerObject>},
    ObjectClass{asfBitrateMutexGuid, make<BitrateMutualExclusionObject>},
    ObjectClass{asfErrorCorrectionGuid, make<ErrorCorrectionObject>},
    ObjectClass{asfContentDescriptionGuid, make<ContentDescriptionObject>},
    ObjectClass{asfExtendedContentDescriptionGuid, make<ExtendedContentDescriptionObject>},
    ObjectClass{asfContentBrandingGuid, make<ContentBrandingObject>},
    ObjectClass{asfBitratePropertiesGuid, make<StreamBitratePropertiesObject>},
    ObjectClass{asfContentEncryptionGuid, make<ContentEncryptionObject>},
    ObjectClass{asfExtendedContentEncryptionGuid, make<ExtendedContentEncryptionObject>},
    ObjectClass{asfDigitalSignatureGuid, make<DigitalSignatureObject>},
    ObjectClass{asfPaddingGuid, make<PaddingObject>},
    ObjectClass{asfExtendedStreamPropertiesGuid, make<ExtendedStreamPropertiesObject>},
    ObjectClass{asfMetadataGuid, make<MetadataObject>},
    ObjectClass{asfStreamPrioritizationGuid, make<StreamPrioritizationObject>},
    ObjectClass{asfGroupMutexGuid, make<GroupMutualExclusionObject>},
    ObjectClass{asfLanguageListGuid, make<LanguageListObject>},
    ObjectClass{asfMetadataLibraryGuid, make<MetadataLibraryObject>},
    ObjectClass{asfAdvancedMutexGuid, make<AdvancedMutualExclusionObject>},
};
} // namespace

ObjectPointer AsfObjectReader::readObject(QDataStream& stream, int depth)
{
    if (AsfStream::left(stream) < SimpleAsfObject::headerBytes)
        return nullptr;
    QUuid const guid = AsfStream::readGuid(stream);
    quint64 size;
    stream >> size;
    return readBody(guid, stream, size, depth);
}

ObjectPointer AsfObjectReader::readBody(QUuid const& guid, QDataStream& stream, quint64 size, int depth)
{
    if (size < SimpleAsfObject::headerBytes ||
        size - SimpleAsfObject::headerBytes > static_cast<quint64>(AsfStream::left(stream)))
        return nullptr;
    auto const length = static_cast<long long>(size);
    bool const tooDeep = guid == asfHeaderExtensionGuid && depth >= HeaderExtensionObject::maximumDepth;
    for (ObjectClass const& objectClass : objectClasses) {
        if (objectClass.guid != guid || tooDeep)
            continue;
        qint64 const position = stream.device()->pos();
        ObjectPointer object = objectClass.make(stream, length, depth);
        if (stream.status() == QDataStream::Ok)
            return object;
        stream.resetStatus();
        stream.device()->seek(position);
        break;
    }
    return std::make_unique<SimpleAsfObject>(guid, stream, length);
}
