#pragma once

#include <QByteArray>

class QDataStream;

/// What the Stream Properties object says of sound.
///
/// On the wire: codec id, channels (u16 each), samples per second, average bytes per second (u32 each), block
/// alignment, bits per sample, codec data size (u16 each), codec data.
struct AsfAudioFormat {
    quint16 codecId = 0;
    quint16 channels = 0;
    quint32 samplesPerSecond = 0;
    quint32 averageBytesPerSecond = 0;
    quint16 blockAlignment = 0;
    quint16 bitsPerSample = 0;
    quint16 codecDataSize = 0;
    QByteArray codecData; ///< All that follows, be it fewer bytes than stated, or more.

    /// Missing bytes read as zeros.
    static AsfAudioFormat fromBytes(QByteArray const& bytes);
    void toStream(QDataStream& stream) const;
};
