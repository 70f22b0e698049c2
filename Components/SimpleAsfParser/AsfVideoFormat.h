#pragma once

#include <QByteArray>

/// What the Stream Properties object says of pictures; from the header size on it is a bitmap header.
struct AsfVideoFormat {
    quint32 encodedWidth = 0;
    quint32 encodedHeight = 0;
    quint8 reserved = 0;
    quint16 formatDataSize = 0; ///< Bytes of all that follows, as the header size.
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

    template<typename Archive>
    void fields(Archive& archive)
    {
        archive(encodedWidth, encodedHeight, reserved, formatDataSize, headerSize, width, height, planes, bitCount,
                compression, imageSize, horizontalPixelsPerMetre, verticalPixelsPerMetre, coloursUsed,
                importantColours);
        archive.rest(codecData);
    }
};
