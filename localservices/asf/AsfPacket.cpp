#include "AsfPacket.h"

#include "ByteCursor.h"

#include <QtEndian>

#include <algorithm>

namespace
{
constexpr quint8 errorCorrectionPresent = 0x80;
constexpr quint8 multiplePayloads = 0x01;
constexpr quint8 keyFrame = 0x80;
constexpr int compressedReplicatedData = 1;
constexpr int wordLength = 2;

int lengthType(quint8 flags, int shift)
{
    return (flags >> shift) & 3;
}

int widthOf(int type)
{
    return type == 3 ? 4 : type;
}
} // namespace

std::optional<AsfPacket> AsfPacket::parse(QByteArray const& bytes)
{
    AsfPacket packet;
    packet._bytes = bytes;
    ByteCursor cursor(bytes);
    quint8 flags = cursor.u8();
    if (flags & errorCorrectionPresent) {
        cursor.skip(flags & 0x0F);
        flags = cursor.u8();
    }
    packet._flagsPosition = cursor.position() - 1;
    packet._propertyFlags = cursor.u8();
    quint32 const packetLength = cursor.ofLengthType(lengthType(flags, 5));
    qsizetype const sequenceStart = cursor.position();
    cursor.ofLengthType(lengthType(flags, 1));
    if (!cursor.isValid())
        return std::nullopt;
    packet._sequence = bytes.mid(sequenceStart, cursor.position() - sequenceStart);
    qsizetype paddingSize = cursor.ofLengthType(lengthType(flags, 3));
    packet._sendTime = {cursor.position(), 4, cursor.u32()};
    packet._duration = cursor.u16();
    if (packetLength != 0 && packetLength < bytes.size())
        paddingSize += bytes.size() - packetLength; // What follows a short packet is padding too.

    packet._multiple = flags & multiplePayloads;
    int count = 1;
    int payloadLengthType = 0;
    if (packet._multiple) {
        packet._payloadFlags = cursor.u8();
        count = packet._payloadFlags & 0x3F;
        payloadLengthType = lengthType(packet._payloadFlags, 6);
    }
    if (!cursor.isValid() || paddingSize > cursor.left())
        return std::nullopt;
    for (; count > 0; --count) {
        if (!packet.parsePayload(cursor, payloadLengthType, paddingSize))
            return std::nullopt;
    }
    return packet;
}

bool AsfPacket::parsePayload(ByteCursor& cursor, int payloadLengthType, qsizetype paddingSize)
{
    Payload payload;
    payload.position = cursor.position();
    quint8 const stream = cursor.u8();
    payload.stream = stream & 0x7F;
    payload.isKeyFrame = stream & keyFrame;
    int const numberType = lengthType(_propertyFlags, 4);
    payload.objectNumber = {cursor.position(), widthOf(numberType), cursor.ofLengthType(numberType)};
    int const offsetType = lengthType(_propertyFlags, 2);
    Field const offset = {cursor.position(), widthOf(offsetType), cursor.ofLengthType(offsetType)};
    quint32 const replicated = cursor.ofLengthType(lengthType(_propertyFlags, 0));
    qsizetype const replicatedStart = cursor.position();
    ByteCursor replicatedData(cursor.bytes(replicated));
    if (replicated == compressedReplicatedData) {
        payload.presentationTime = offset;
        payload.startsObject = true;
    } else {
        payload.startsObject = offset.value == 0;
        if (replicated >= 8) {
            replicatedData.skip(4);
            payload.presentationTime = {replicatedStart + 4, 4, replicatedData.u32()};
        }
    }
    qsizetype size = cursor.left() - paddingSize;
    if (_multiple)
        size = static_cast<qsizetype>(cursor.ofLengthType(payloadLengthType));
    if (!cursor.isValid() || size < 0 || size > cursor.left() - paddingSize ||
        !cursor.skip(static_cast<quint64>(size)))
        return false;
    payload.dataSize = size;
    payload.size = cursor.position() - payload.position;
    _payloads.append(payload);
    return true;
}

void AsfPacket::shift(quint32 ms, QMap<int, quint32> const& objects)
{
    write(_sendTime, _sendTime.value + ms);
    for (Payload& payload : _payloads) {
        if (payload.presentationTime.width != 0)
            write(payload.presentationTime, payload.presentationTime.value + ms);
        write(payload.objectNumber, payload.objectNumber.value + objects.value(payload.stream));
    }
}

void AsfPacket::write(Field& field, quint32 value)
{
    if (field.width == 0)
        return;
    quint32 const raw = qToLittleEndian(value);
    std::copy_n(reinterpret_cast<char const*>(&raw), field.width, _bytes.data() + field.position);
    field.value = field.width == 4 ? value : value & ((1U << 8 * field.width) - 1);
}

QByteArray AsfPacket::filtered(std::function<bool(Payload const&)> const& wanted) const
{
    QList<Payload> kept;
    std::copy_if(_payloads.cbegin(), _payloads.cend(), std::back_inserter(kept), wanted);
    if (kept.isEmpty())
        return {};
    return kept.size() == _payloads.size() ? _bytes : rebuilt(kept);
}

/// The layout of the original, save that the packet length is left out and the padding length has 16 bits.
QByteArray AsfPacket::rebuilt(QList<Payload> const& kept) const
{
    QByteArray made;
    made.reserve(_bytes.size());
    made.append(_bytes.constData(), _flagsPosition);
    auto const flags = static_cast<quint8>(_bytes.at(_flagsPosition));
    made.append(static_cast<char>((flags & 0x07) | wordLength << 3));
    made.append(static_cast<char>(_propertyFlags));
    made.append(_sequence);
    qsizetype const paddingPosition = made.size();
    made.append(2, '\0');
    appendLittleEndian<quint32>(made, _sendTime.value);
    appendLittleEndian<quint16>(made, _duration);
    made.append(static_cast<char>((_payloadFlags & 0xC0) | kept.size()));
    for (Payload const& payload : kept)
        made.append(_bytes.constData() + payload.position, payload.size);
    qsizetype const padding = _bytes.size() - made.size();
    if (padding < 0)
        return _bytes; // A payload smaller than the two bytes of the padding length went.
    quint16 const raw = qToLittleEndian(static_cast<quint16>(padding));
    std::copy_n(reinterpret_cast<char const*>(&raw), 2, made.data() + paddingPosition);
    made.append(padding, '\0');
    return made;
}
