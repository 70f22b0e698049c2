#pragma once

#include "AsfAudioFormat.h"
#include "AsfVideoFormat.h"

#include <QByteArray>
#include <QUuid>

/// One stream as the header describes it in several objects; a copyable view.
struct StreamObject {
    int streamNumber = 0;
    int bitrate = 0; ///< Bits a second; 1 where the header does not say.
    quint16 flags = 0;
    QUuid streamType;
    QUuid errorCorrectionType;
    quint64 timeOffset = 0;
    QByteArray errorCorrectionData;
};

/// A stream of sound.
struct AudioStreamObject : StreamObject {
    AsfAudioFormat format;
};

/// A stream of pictures.
struct VideoStreamObject : StreamObject {
    AsfVideoFormat format;
};
