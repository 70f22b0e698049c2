#pragma once

#include "AsfAudioFormat.h"
#include "AsfVideoFormat.h"
#include "SimpleAsfObject.h"

/// The Stream Properties object: one stream of sound, pictures or something else.
///
/// Body: stream type, error correction type (GUIDs), time offset (u64), type-specific length, error correction length
/// (u32 each), flags (u16, the stream number in the low 7 bits), reserved (u32), type-specific data, error correction
/// data. The type-specific data is written from the parsed fields; that of other streams than sound and pictures is
/// not kept.
class StreamPropertiesObject : public ClonedAsfObject<StreamPropertiesObject>
{
public:
    StreamPropertiesObject(QDataStream& stream, long long size);

    bool isAudio() const;
    bool isVideo() const;

    QUuid streamType;
    QUuid errorCorrectionType;
    quint64 timeOffset = 0;
    quint16 flags = 0;
    quint32 reserved = 0;
    int streamNumber = 0;
    AsfAudioFormat audio; ///< Only of sound.
    AsfVideoFormat video; ///< Only of pictures.
    QByteArray errorCorrectionData;

protected:
    void writeFields(QDataStream& stream) const override;
};
