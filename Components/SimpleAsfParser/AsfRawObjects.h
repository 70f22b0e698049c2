#pragma once

#include "AsfGuids.h"
#include "SimpleAsfObject.h"

/// An object that is carried through byte for byte: nothing here looks into it.
template<typename Object, QUuid const& objectGuid>
class RawAsfObject : public ClonedAsfObject<Object, SimpleAsfObject>
{
public:
    RawAsfObject(QDataStream& stream, long long size)
        : ClonedAsfObject<Object, SimpleAsfObject>(objectGuid, stream, size)
    {
    }
};

// clang-format off
struct ScriptCommandObject : RawAsfObject<ScriptCommandObject, asfScriptCommandGuid> { using RawAsfObject::RawAsfObject; };
struct MarkerObject : RawAsfObject<MarkerObject, asfMarkerGuid> { using RawAsfObject::RawAsfObject; };
struct ErrorCorrectionObject : RawAsfObject<ErrorCorrectionObject, asfErrorCorrectionGuid> { using RawAsfObject::RawAsfObject; };
struct ContentDescriptionObject : RawAsfObject<ContentDescriptionObject, asfContentDescriptionGuid> { using RawAsfObject::RawAsfObject; };
struct ExtendedContentDescriptionObject : RawAsfObject<ExtendedContentDescriptionObject, asfExtendedContentDescriptionGuid> { using RawAsfObject::RawAsfObject; };
struct ContentBrandingObject : RawAsfObject<ContentBrandingObject, asfContentBrandingGuid> { using RawAsfObject::RawAsfObject; };
struct ContentEncryptionObject : RawAsfObject<ContentEncryptionObject, asfContentEncryptionGuid> { using RawAsfObject::RawAsfObject; };
struct ExtendedContentEncryptionObject : RawAsfObject<ExtendedContentEncryptionObject, asfExtendedContentEncryptionGuid> { using RawAsfObject::RawAsfObject; };
struct DigitalSignatureObject : RawAsfObject<DigitalSignatureObject, asfDigitalSignatureGuid> { using RawAsfObject::RawAsfObject; };
struct PaddingObject : RawAsfObject<PaddingObject, asfPaddingGuid> { using RawAsfObject::RawAsfObject; };
struct BandwidthSharingObject : RawAsfObject<BandwidthSharingObject, asfBandwidthSharingGuid> { using RawAsfObject::RawAsfObject; };
struct IndexParametersObject : RawAsfObject<IndexParametersObject, asfIndexParametersGuid> { using RawAsfObject::RawAsfObject; };
struct MediaObjectIndexParametersObject : RawAsfObject<MediaObjectIndexParametersObject, asfMediaIndexParametersGuid> { using RawAsfObject::RawAsfObject; };
struct TimecodeIndexParametersObject : RawAsfObject<TimecodeIndexParametersObject, asfTimecodeIndexParametersGuid> { using RawAsfObject::RawAsfObject; };
struct CompabilityObject : RawAsfObject<CompabilityObject, asfCompabilityGuid> { using RawAsfObject::RawAsfObject; };
struct AdvancedContentEncryptionObject : RawAsfObject<AdvancedContentEncryptionObject, asfAdvancedContentEncryptionGuid> { using RawAsfObject::RawAsfObject; };
// clang-format on
