#pragma once

#include "SimpleAsfObject.h"

/// The File Properties object.
class FilePropertiesObject : public ParsedAsfObject<FilePropertiesObject>
{
public:
    /// Bytes of GUID, size and fields.
    static constexpr int bytes = 104;

    static constexpr quint32 broadcastFlag = 1U << 0;
    static constexpr quint32 seekableFlag = 1U << 1;
    static constexpr quint32 liveFlag = 1U << 3;

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

    template<typename Archive>
    void fields(Archive& archive)
    {
        archive(fileId, fileSize, creationDate, dataPacketsCount, playDuration, sendDuration, preroll, flags,
                minimumPacketSize, maximumPacketSize, maximumBitrate);
    }
};
