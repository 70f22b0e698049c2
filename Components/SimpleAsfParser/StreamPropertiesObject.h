#pragma once

#include "AsfAudioFormat.h"
#include "AsfGuids.h"
#include "AsfVideoFormat.h"
#include "SimpleAsfObject.h"

/// The Stream Properties object: one stream of sound, pictures or something else. The type-specific data is written
/// from what was read of it; that of other streams than sound and pictures is not kept.
class StreamPropertiesObject : public ParsedAsfObject<StreamPropertiesObject>
{
public:
    bool isAudio() const { return streamType == asfAudioMediaGuid; }
    bool isVideo() const { return streamType == asfVideoMediaGuid; }
    int streamNumber() const { return flags & 0x7F; }

    QUuid streamType;
    QUuid errorCorrectionType;
    quint64 timeOffset = 0; ///< 100 ns.
    quint16 flags = 0;
    quint32 reserved = 0;
    AsfAudioFormat audio; ///< Only of sound.
    AsfVideoFormat video; ///< Only of pictures.
    QByteArray errorCorrectionData;

    template<typename Archive>
    void fields(Archive& archive)
    {
        LittleEndianWriter format;
        formatFields(format);
        QByteArray typeSpecific = format.bytes();
        auto typeSpecificLength = static_cast<quint32>(typeSpecific.size());
        auto errorCorrectionLength = static_cast<quint32>(errorCorrectionData.size());
        archive(streamType, errorCorrectionType, timeOffset, typeSpecificLength, errorCorrectionLength, flags,
                reserved);
        archive.arrayUpTo(typeSpecific, typeSpecificLength);
        archive.arrayUpTo(errorCorrectionData, errorCorrectionLength);
        if constexpr (Archive::isReader) {
            LittleEndianReader in(typeSpecific);
            formatFields(in);
        }
    }

private:
    template<typename Archive>
    void formatFields(Archive& archive)
    {
        if (isAudio())
            archive(audio);
        else if (isVideo())
            archive(video);
    }
};
