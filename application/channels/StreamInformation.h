#pragma once

#include <QSize>
#include <QString>

/// What an open stream is and how it plays, at a moment. A plain value; what is not known is 0, empty or negative as
/// said.
struct StreamInformation {
    QString channel;    ///< Its title.
    QString address;    ///< Without user and password.
    QString transport;  ///< How its bytes come, for people.
    QString videoCodec; ///< The decoder's name.
    QSize size;         ///< As coded, pixels.
    double aspectRatio = 0.0;
    double frameRate = 0.0; ///< Pictures per second.
    int videoBitrate = 0;   ///< Bits per second, as the stream says.
    QString audioCodec;
    int sampleRate = 0;
    int audioChannels = 0;
    int audioBitrate = 0;
    qint64 picturesShown = 0;
    qint64 picturesDropped = 0; ///< Too late to be shown.
    qint64 videoLost = 0;       ///< Packets; estimated from gaps.
    qint64 audioLost = 0;
    quint64 bytesRead = 0;    ///< Since it was opened, growing.
    qint64 buffered = -1;     ///< Bytes; negative where nothing is gathered.
    qint64 bufferSize = -1;   ///< Bytes wanted.
    double time = 0.0;        ///< Seconds.
    double duration = 0.0;    ///< Seconds; 0 for what is live.
    double soundOffset = 0.0; ///< Seconds by which the sound is before the picture; negative: after it.
    bool hasSoundOffset = false;

    /// All of it in lines "name: value", in English, for the support.
    QString asText() const;
};
