#pragma once

#include <QUuid>

/// Reads a GUID as it is written in the published tables; for constants.
constexpr QUuid asfGuid(char const* text)
{
    auto const number = [text](int from, int digits) {
        unsigned int value = 0;
        for (int i = from; i < from + digits; ++i)
            value = value * 16 + static_cast<unsigned int>(text[i] <= '9' ? text[i] - '0' : text[i] - 'A' + 10);
        return value;
    };
    auto const word = [number](int from) { return static_cast<ushort>(number(from, 4)); };
    auto const byte = [number](int from) { return static_cast<uchar>(number(from, 2)); };
    return {number(0, 8), word(9),  word(14), byte(19), byte(21), byte(24),
            byte(26),     byte(28), byte(30), byte(32), byte(34)};
}

// clang-format off

// Objects of the top level.
inline constexpr QUuid asfHeaderGuid = asfGuid("75B22630-668E-11CF-A6D9-00AA0062CE6C");
inline constexpr QUuid asfDataGuid = asfGuid("75B22636-668E-11CF-A6D9-00AA0062CE6C");
inline constexpr QUuid asfSimpleIndexChunkGuid = asfGuid("33000890-E5B1-11CF-89F4-00A0C90049CB");
inline constexpr QUuid asfIndexGuid = asfGuid("D6E229D3-35DA-11D1-9034-00A0C90349BE");
inline constexpr QUuid asfMediaIndexGuid = asfGuid("FEB103F8-12AD-4C64-840F-2A1D2F7AD48C");
inline constexpr QUuid asfTimecodeIndexGuid = asfGuid("3CB73FD0-0C4A-4803-953D-EDF7B6228F0C");

// Objects in the header.
inline constexpr QUuid asfFilePropertiesGuid = asfGuid("8CABDCA1-A947-11CF-8EE4-00C00C205365");
inline constexpr QUuid asfStreamPropertiesGuid = asfGuid("B7DC0791-A9B7-11CF-8EE6-00C00C205365");
inline constexpr QUuid asfHeaderExtensionGuid = asfGuid("5FBF03B5-A92E-11CF-8EE3-00C00C205365");
inline constexpr QUuid asfCodecListGuid = asfGuid("86D15240-311D-11D0-A3A4-00A0C90348F6");
inline constexpr QUuid asfScriptCommandGuid = asfGuid("1EFB1A30-0B62-11D0-A39B-00A0C90348F6");
inline constexpr QUuid asfMarkerGuid = asfGuid("F487CD01-A951-11CF-8EE6-00C00C205365");
inline constexpr QUuid asfBitrateMutexGuid = asfGuid("D6E229DC-35DA-11D1-9034-00A0C90349BE");
inline constexpr QUuid asfErrorCorrectionGuid = asfGuid("75B22635-668E-11CF-A6D9-00AA0062CE6C");
inline constexpr QUuid asfContentDescriptionGuid = asfGuid("75B22633-668E-11CF-A6D9-00AA0062CE6C");
inline constexpr QUuid asfExtendedContentDescriptionGuid = asfGuid("D2D0A440-E307-11D2-97F0-00A0C95EA850");
inline constexpr QUuid asfContentBrandingGuid = asfGuid("2211B3FA-BD23-11D2-B4B7-00A0C955FC6E");
inline constexpr QUuid asfBitratePropertiesGuid = asfGuid("7BF875CE-468D-11D1-8D82-006097C9A2B2");
inline constexpr QUuid asfContentEncryptionGuid = asfGuid("2211B3FB-BD23-11D2-B4B7-00A0C955FC6E");
inline constexpr QUuid asfExtendedContentEncryptionGuid = asfGuid("298AE614-2622-4C17-B935-DAE07EE9289C");
inline constexpr QUuid asfDigitalSignatureGuid = asfGuid("2211B3FC-BD23-11D2-B4B7-00A0C955FC6E");
inline constexpr QUuid asfPaddingGuid = asfGuid("1806D474-CADF-4509-A4BA-9AABCB96AAE8");

// Objects in the header extension.
inline constexpr QUuid asfExtendedStreamPropertiesGuid = asfGuid("14E6A5CB-C672-4332-8399-A96952065B5A");
inline constexpr QUuid asfAdvancedMutexGuid = asfGuid("A08649CF-4775-4670-8A16-6E35357566CD");
inline constexpr QUuid asfGroupMutexGuid = asfGuid("D1465A40-5A79-4338-B71B-E36B8FD6C249");
inline constexpr QUuid asfStreamPrioritizationGuid = asfGuid("D4FED15B-88D3-454F-81F0-ED5C45999E24");
inline constexpr QUuid asfBandwidthSharingGuid = asfGuid("A69609E6-517B-11D2-B6AF-00C04FD908E9");
inline constexpr QUuid asfLanguageListGuid = asfGuid("7C4346A9-EFE0-4BFC-B229-393EDE415C85");
inline constexpr QUuid asfMetadataGuid = asfGuid("C5F8CBEA-5BAF-4877-8467-AA8C44FA4CCA");
inline constexpr QUuid asfMetadataLibraryGuid = asfGuid("44231C94-9498-49D1-A141-1D134E457054");
inline constexpr QUuid asfIndexParametersGuid = asfGuid("D6E229DF-35DA-11D1-9034-00A0C90349BE");
inline constexpr QUuid asfMediaIndexParametersGuid = asfGuid("6B203BAD-3F11-48E4-ACA8-D7613DE2CFA7");
inline constexpr QUuid asfTimecodeIndexParametersGuid = asfGuid("F55E496D-9797-4B5D-8C8B-604DFE9BFB24");
inline constexpr QUuid asfCompabilityGuid = asfHeaderGuid; // Not the published one: none of ours reads that object.
inline constexpr QUuid asfAdvancedContentEncryptionGuid = asfGuid("43058533-6981-49E6-9B74-AD12CB86D58C");

// Kinds of streams.
inline constexpr QUuid asfAudioMediaGuid = asfGuid("F8699E40-5B4D-11CF-A8FD-00805F5C442B");
inline constexpr QUuid asfVideoMediaGuid = asfGuid("BC19EFC0-5B4D-11CF-A8FD-00805F5C442B");
inline constexpr QUuid asfCommandMediaGuid = asfGuid("59DACFC0-59E6-11D0-A3AC-00A0C90348F6");
inline constexpr QUuid asfFileTransferMediaGuid = asfGuid("91BD222C-F21C-497A-8B6D-5AA86BFC0185");
inline constexpr QUuid asfBinaryMediaGuid = asfGuid("3AFB65E2-47EF-40F2-AC2C-70A90D71D343");

// Kinds of error correction.
inline constexpr QUuid asfAudioConcealNone = asfGuid("20FB5700-5B55-11CF-A8FD-00805F5C442B");
inline constexpr QUuid asfVideoConcealNone = asfAudioConcealNone;
inline constexpr QUuid asfAudioConcealSpread = asfGuid("BFC3CD50-618F-11CF-8BB2-00AA00B4E220");

// Reasons why streams exclude each other.
inline constexpr QUuid asfMutexLanguage = asfGuid("D6E22A00-35DA-11D1-9034-00A0C90349BE");
inline constexpr QUuid asfMutexBitrate = asfGuid("D6E22A01-35DA-11D1-9034-00A0C90349BE");
inline constexpr QUuid asfMutexUnknown = asfGuid("D6E22A02-35DA-11D1-9034-00A0C90349BE");

// Reserved fields, and others that headers are seen to hold.
inline constexpr QUuid asfHeader2_0Guid = asfGuid("D6E229D1-A9B7-11CF-8EE6-00C00C205365");
inline constexpr QUuid asfCodecListReservedGuid = asfGuid("86D15241-311D-11D0-A3A4-00A0C90348F6");
inline constexpr QUuid asfReservedGuid = asfGuid("ABD3D211-A9BA-11CF-8EE6-00C00C205365");
inline constexpr QUuid asfWMGuid1 = asfLanguageListGuid;
inline constexpr QUuid asfWMGuid3 = asfGuid("26F18B5D-4584-47EC-9F5F-0E651F0452C9");
inline constexpr QUuid asfWMGuid4 = asfPaddingGuid;
inline constexpr QUuid asfWMGuid5 = asfExtendedContentDescriptionGuid;

// clang-format on
