#pragma once

#include <QByteArray>
#include <QList>
#include <QMap>

#include <functional>
#include <optional>

/// One ASF data packet, taken apart: error correction data, length types, send time, and payloads. It can be moved in
/// time and freed of payloads. A value.
class AsfPacket
{
public:
    /// A number in the packet: where it is and how many bytes it has; absent with width 0.
    struct Field {
        qsizetype position = 0;
        int width = 0;
        quint32 value = 0;
    };

    struct Payload {
        int stream = 0;
        bool isKeyFrame = false;
        qsizetype position = 0; ///< Of the payload's header in the packet.
        qsizetype size = 0;     ///< With its header.
        qsizetype dataSize = 0;
        Field objectNumber;
        bool startsObject = false;
        Field presentationTime; ///< ms; absent in a payload without replicated data.
    };

    /// Takes a packet apart; nothing when a length in it goes beyond what is there. A packet without error correction
    /// data and one shorter than the file's packet size are good.
    static std::optional<AsfPacket> parse(QByteArray const& bytes);

    QByteArray const& bytes() const { return _bytes; }
    quint32 sendTime() const { return _sendTime.value; } ///< ms.
    QList<Payload> const& payloads() const { return _payloads; }

    /// Moves send time and presentation times on by so many milliseconds, and the number of each media object by
    /// what `objects` holds for its stream. All of them wrap around at their width.
    void shift(quint32 ms, QMap<int, quint32> const& objects);

    /// The packet with only those payloads that `wanted` accepts, filled up with padding to its size. Empty when no
    /// payload is left.
    QByteArray filtered(std::function<bool(Payload const&)> const& wanted) const;

private:
    bool parsePayload(class ByteCursor& cursor, int lengthType, qsizetype paddingSize);
    void write(Field& field, quint32 value);
    QByteArray rebuilt(QList<Payload> const& kept) const;

    QByteArray _bytes;
    qsizetype _flagsPosition = 0; ///< Of the length type flags, after the error correction data.
    quint8 _propertyFlags = 0;
    QByteArray _sequence;
    Field _sendTime;
    quint16 _duration = 0;
    bool _multiple = false;
    quint8 _payloadFlags = 0;
    QList<Payload> _payloads;
};
