#pragma once

#include "SimpleAsfObject.h"

/// The Stream Bitrate Properties object.
class StreamBitratePropertiesObject : public ParsedAsfObject<StreamBitratePropertiesObject>
{
public:
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

    void removeStream(int streamNumber) override
    {
        auto const isOfStream = [&](BitrateRecord const& record) { return record.streamNumber() == streamNumber; };
        recordCount -= static_cast<quint16>(records.removeIf(isOfStream));
    }

    quint16 recordCount = 0;
    QList<BitrateRecord> records; ///< Those that are whole.

    template<typename Archive>
    void fields(Archive& archive)
    {
        archive(recordCount);
        archive.records(recordCount, records);
    }
};
