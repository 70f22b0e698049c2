#pragma once

#include "SimpleAsfObject.h"

#include <QList>

/// The Stream Bitrate Properties object.
///
/// Body: record count (u16), then for each record: flags (u16, the stream number in the low 7 bits), average bit rate
/// (u32, bits a second).
class StreamBitratePropertiesObject : public ClonedAsfObject<StreamBitratePropertiesObject>
{
public:
    struct BitrateRecord {
        quint16 flags = 0;
        int streamNumber = 0;
        quint32 averageBitrate = 0;
    };

    StreamBitratePropertiesObject(QDataStream& stream, long long size);

    /// Removes what is said of that stream and lowers the count.
    void removeStream(int streamNumber);

    quint16 recordCount = 0;
    QList<BitrateRecord> records; ///< Those that are whole.

protected:
    void writeFields(QDataStream& stream) const override;
};
