#pragma once

#include "StreamPropertiesObject.h"

/// The Extended Stream Properties object. Behind its fields there is possibly a Stream Properties object.
///
/// The stream name count is taken for the length of the names in bytes, which are carried through unread. Behind
/// names the records are then not at their place; as all bytes are written as they came, nothing is lost by it.
class ExtendedStreamPropertiesObject : public ParsedAsfObject<ExtendedStreamPropertiesObject>
{
public:
    struct PayloadExtensionRecord {
        QUuid guid;
        quint16 dataSize = 0;
        QByteArray information;

        template<typename Archive>
        void fields(Archive& archive)
        {
            archive(guid, dataSize);
            archive.counted(quint32(), information);
        }
    };

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

    template<typename Archive>
    void fields(Archive& archive)
    {
        archive(startTime, endTime, dataBitrate, bufferSize, initialBufferFullness, alternateDataBitrate,
                alternateBufferSize, alternateInitialBufferFullness, maximumObjectSize, flags, streamNumber,
                languageIndex, averageTimePerFrame, streamNameCount, payloadExtensionCount);
        archive.arrayUpTo(streamNames, streamNameCount);
        archive.records(payloadExtensionCount, payloadExtensions);
        if constexpr (Archive::isReader)
            readStream(LittleEndianReader(archive.ahead()));
    }

private:
    /// Its size is not used: the object is all that is left.
    void readStream(LittleEndianReader in)
    {
        if (in.read<QUuid>() != asfStreamPropertiesGuid)
            return;
        in.read<quint64>();
        auto const stream = std::make_shared<StreamPropertiesObject>();
        stream->fields(in);
        if (!in.hasFailed())
            _embeddedStream = stream;
    }

    std::shared_ptr<StreamPropertiesObject const> _embeddedStream; ///< Read from the body; shared by copies.
};
