#pragma once

#include "AsfRecordsObject.h"

/// What one stream takes.
struct BitrateRecord {
    quint16 flags = 0;
    quint32 averageBitrate = 0; ///< Bits a second.

    int streamNumber() const { return flags & 0x7F; }

    template<typename Archive>
    void fields(Archive& archive)
    {
        archive(flags, averageBitrate);
    }
};

/// The Stream Bitrate Properties object.
class StreamBitratePropertiesObject
    : public ParsedAsfObject<StreamBitratePropertiesObject, AsfRecordsObject<BitrateRecord>>
{
public:
    void removeStream(int streamNumber) override
    {
        removeIf([&](BitrateRecord const& record) { return record.streamNumber() == streamNumber; });
    }
};
