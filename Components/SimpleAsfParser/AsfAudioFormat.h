#pragma once

#include <QByteArray>

/// What the Stream Properties object says of sound.
struct AsfAudioFormat {
    quint16 codecId = 0;
    quint16 channels = 0;
    quint32 samplesPerSecond = 0;
    quint32 averageBytesPerSecond = 0;
    quint16 blockAlignment = 0;
    quint16 bitsPerSample = 0;
    quint16 codecDataSize = 0; ///< Bytes.
    QByteArray codecData;      ///< All that follows, be it fewer bytes than stated, or more.

    /// In wire order, as fields() always are.
    template<typename Archive>
    void fields(Archive& archive)
    {
        archive(codecId, channels, samplesPerSecond, averageBytesPerSecond, blockAlignment, bitsPerSample,
                codecDataSize);
        archive.rest(codecData);
    }
};
