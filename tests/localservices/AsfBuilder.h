#pragma once

#include "AsfGuids.h"

#include <QByteArray>
#include <QList>
#include <QString>

/// Builds small ASF files of known content.
class AsfBuilder
{
public:
    static constexpr quint32 packetSize = 400;
    static constexpr int msBetweenPackets = 100;
    static constexpr int packetsBetweenKeyFrames = 5;
    static constexpr int audioStream = 9;

    struct Payload {
        int stream = 1;
        bool isKeyFrame = false;
        quint8 objectNumber = 0;
        quint32 presentationTime = 0;
        QByteArray data = QByteArray(20, 'x');
    };

    /// A film of so many packets, one each 100 ms. Each holds one object of each picture stream (1 up to `pictures`,
    /// of 100,000 times its number in bits per second), whose every fifth is a key frame, and one of the sound.
    explicit AsfBuilder(int packets = 50, int pictures = 1);

    /// Leaves the bit rates out of the header.
    AsfBuilder& withoutBitrates();

    QByteArray header() const;
    QByteArray file() const;

    static QByteArray packet(quint32 sendTime, QList<Payload> const& payloads);

private:
    int const _packets;
    int const _pictures;
    bool _bitrates = true;
};
