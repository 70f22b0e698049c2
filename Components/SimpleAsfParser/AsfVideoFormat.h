#pragma once

#include <QByteArray>

class QDataStream;

/// What the Stream Properties object says of pictures.
///
/// On the wire: encoded width, encoded height (u32 each), reserved (u8), format data size (u16), then the bitmap
/// header: size, width, height (u32 each), planes, bit count (u16 each), compression, image size, horizontal and
/// vertical pixels per metre, colours used, important colours (u32 each), then codec data.
struct AsfVideoFormat {
    quint32 encodedWidth = 0;
    quint32 encodedHeight = 0;
    quint8 reserved = 0;
    quint16 formatDataSize = 0;
    quint32 headerSize = 0;
    quint32 width = 0;
    quint32 height = 0;
    quint16 planes = 0;
    quint16 bitCount = 0;
    quint32 compression = 0;
    quint32 imageSize = 0;
    quint32 horizontalPixelsPerMetre = 0;
    quint32 verticalPixelsPerMetre = 0;
    quint32 coloursUsed = 0;
    quint32 importantColours = 0;
    QByteArray codecData; ///< All that follows.

    /// Missing bytes read as zeros.
    static AsfVideoFormat fromBytes(QByteArray const& bytes);
    void toStream(QDataStream& stream) const;
};
