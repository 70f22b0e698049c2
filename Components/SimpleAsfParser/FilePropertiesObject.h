#pragma once

#include "SimpleAsfObject.h"

/// The File Properties object.
///
/// Body: file id (GUID), file size, creation date, data packets count, play duration, send duration, preroll (u64
/// each), flags, minimum packet size, maximum packet size, maximum bit rate (u32 each).
class FilePropertiesObject : public ClonedAsfObject<FilePropertiesObject, SimpleAsfObject>
{
public:
    /// Bytes of GUID, size and fields.
    static constexpr int bytes = 104;

    static constexpr quint32 broadcastFlag = 1U << 0;
    static constexpr quint32 seekableFlag = 1U << 1;
    static constexpr quint32 liveFlag = 1U << 3;

    FilePropertiesObject(QDataStream& stream, long long size);

    /// A size of 0 is written as 104.
    void toStream(QDataStream& stream) override;

    QUuid fileId;
    quint64 fileSize = 0;
    quint64 creationDate = 0;
    quint64 dataPacketsCount = 0;
    quint64 playDuration = 0; ///< 100 ns each, as the next one.
    quint64 sendDuration = 0;
    quint64 preroll = 0; ///< Milliseconds.
    quint32 flags = 0;
    quint32 minimumPacketSize = 0;
    quint32 maximumPacketSize = 0;
    quint32 maximumBitrate = 0; ///< Bits a second.
};
