#pragma once

#include "SimpleAsfObject.h"
#include "StreamPropertiesObject.h"

#include <QList>

/// The Extended Stream Properties object.
///
/// Body: start time, end time (u64 each), data bit rate, buffer size, initial buffer fullness, alternate data bit
/// rate, alternate buffer size, alternate initial buffer fullness, maximum object size, flags (u32 each), stream
/// number, language index (u16 each), average time per frame (u64), stream name count, payload extension count (u16
/// each), stream names, payload extension records (GUID, data size u16, information length u32, information), and to
/// the end possibly a Stream Properties object.
///
/// The stream name count is taken for the length of the names in bytes, which are carried through unread. Behind
/// names the records are then not at their place; as all bytes are written as they came, nothing is lost by it.
class ExtendedStreamPropertiesObject : public ClonedAsfObject<ExtendedStreamPropertiesObject>
{
public:
    struct PayloadExtensionRecord {
        QUuid guid;
        quint16 dataSize = 0;
        QByteArray information;
    };

    ExtendedStreamPropertiesObject(QDataStream& stream, long long size);

    /// The Stream Properties object at the end, or null.
    StreamPropertiesObject const* embeddedStream() const { return _embeddedStream.get(); }

    quint64 startTime = 0; ///< Milliseconds, as the end time and the buffer sizes.
    quint64 endTime = 0;
    quint32 dataBitrate = 0;
    quint32 bufferSize = 0;
    quint32 initialBufferFullness = 0;
    quint32 alternateDataBitrate = 0;
    quint32 alternateBufferSize = 0;
    quint32 alternateInitialBufferFullness = 0;
    quint32 maximumObjectSize = 0;
    quint32 flags = 0;
    quint16 streamNumber = 0;
    quint16 languageIndex = 0;
    quint64 averageTimePerFrame = 0; ///< 100 ns.
    quint16 streamNameCount = 0;
    quint16 payloadExtensionCount = 0;
    QByteArray streamNames;
    QList<PayloadExtensionRecord> payloadExtensions; ///< Those that are whole; the rest is in the body.

protected:
    void writeFields(QDataStream& stream) const override;

private:
    std::shared_ptr<StreamPropertiesObject const> _embeddedStream; ///< Read from the body; shared by copies.
};
