// Data packets: checked, and their payloads put together to media objects.

#include "IAsfPacketListener.h"
#include "Logger.h"
#include "SimpleAsfParser.h"

struct SimpleAsfParser::Packet {
    LittleEndianReader in;
    quint8 propertyFlags = 0;
    quint32 length = 0;
    quint32 padding = 0;
    quint32 sendTime = 0;
    quint16 duration = 0;
    bool multiplePayloads = false;
    int payloadCount = 1;
    int payloadLengthType = 0;

    explicit Packet(QByteArray const& bytes) : in(bytes) {}

    /// A field whose type is in the property flags from that bit on.
    quint32 field(int bit) { return getByteWordDWordValue((propertyFlags >> bit) & 3, in, 0); }
};

qint64 SimpleAsfParser::ParseFrame(QByteArray const& bytes)
{
    if (bytes.isEmpty())
        return 0;
    Packet packet(bytes);
    if (!readPacketStart(packet))
        return 1;

    qint64 lastPosition = 1;
    for (int i = 0; i < packet.payloadCount && lastPosition < maxPacketSize(); ++i) {
        PayloadResult const result = readPayload(packet);
        if (result != PayloadResult::Read)
            return result == PayloadResult::Bad ? 0 : lastPosition;
        lastPosition = packet.in.position();
    }
    packet.in.take(packet.padding);
    return packet.in.position();
}

/// Reads up to the first payload; whether the packet is of the form that is understood here.
bool SimpleAsfParser::readPacketStart(Packet& packet) const
{
    qint64 const size = packet.in.left();
    auto const first = packet.in.read<quint8>();
    int const errorCorrectionLength = first & 0x80 ? first & 0x0F : 0;
    if (errorCorrectionLength >= size)
        return false;
    packet.in.take(errorCorrectionLength);
    if (first != 0x82) {
        LOG_DEBUG("Skipping the bytes.....");
        return false;
    }

    auto const lengthTypeFlags = packet.in.read<quint8>();
    packet.in(packet.propertyFlags);
    packet.multiplePayloads = lengthTypeFlags & 1;
    packet.length = getByteWordDWordValue((lengthTypeFlags >> 5) & 3, packet.in, 0);
    getByteWordDWordValue((lengthTypeFlags >> 1) & 3, packet.in, 0); // The sequence.
    packet.padding = getByteWordDWordValue((lengthTypeFlags >> 3) & 3, packet.in, 0);
    if (packet.length > maxPacketSize() || packet.padding > maxPacketSize())
        return false;
    packet.in(packet.sendTime, packet.duration);
    if (packet.multiplePayloads) {
        auto const payloadFlags = packet.in.read<quint8>();
        packet.payloadCount = payloadFlags & 0x3F;
        packet.payloadLengthType = payloadFlags >> 6;
    }
    return true;
}

SimpleAsfParser::PayloadResult SimpleAsfParser::readPayload(Packet& packet)
{
    auto const streamByte = packet.in.read<quint8>();
    packet.field(4); // The media object's number,
    packet.field(2); // and the offset in it: payloads come in order.
    qint64 const replicatedLength = packet.field(0);
    if (replicatedLength == 0 || replicatedLength > maxPacketSize() ||
        replicatedLength + packet.padding > maxPacketSize())
        return PayloadResult::End;
    if (replicatedLength == 1)
        return skipCompressedPayload(packet) ? PayloadResult::Read : PayloadResult::Bad;

    // With multiple payloads, the length is behind the replicated data.
    qint64 length = packet.multiplePayloads ? 0 : singlePayloadLength(packet, replicatedLength);
    QByteArrayView const replicated = packet.in.take(replicatedLength);
    if (packet.multiplePayloads)
        length = multiplePayloadLength(packet);
    if (length < 0 || length > packet.in.left() || replicated.size() < replicatedLength)
        return PayloadResult::Bad;
    addPayload(packet, streamByte, replicated, packet.in.take(length));
    return PayloadResult::Read;
}

/// Bytes of the one payload, negative when there is no room for it.
qint64 SimpleAsfParser::singlePayloadLength(Packet const& packet, qint64 replicatedLength) const
{
    qint64 const before = packet.in.position() + replicatedLength + packet.padding;
    qint64 const byMaximum = maxPacketSize() - before;
    if (packet.length == 0)
        return byMaximum;
    return byMaximum < packet.length ? packet.length - before : packet.length;
}

/// Bytes of one of several payloads, negative when they cannot be that many.
qint64 SimpleAsfParser::multiplePayloadLength(Packet& packet) const
{
    qint64 const length = getByteWordDWordValue(packet.payloadLengthType, packet.in, 0);
    return length > maxPacketSize() ? -1 : length;
}

/// Walks over several media objects in one payload, which are not put together; false when they run past the packet.
bool SimpleAsfParser::skipCompressedPayload(Packet& packet) const
{
    packet.in.read<quint8>(); // The difference of presentation times.
    qint64 const length = packet.multiplePayloads ? multiplePayloadLength(packet) : singlePayloadLength(packet, 0);
    if (length < 0)
        return false;
    qint64 const end = packet.in.position() + length;
    while (packet.in.position() < end && packet.in.left() > 0)
        packet.in.take(packet.in.read<quint8>());
    return true;
}

void SimpleAsfParser::addPayload(Packet const& packet, quint8 streamByte, QByteArrayView replicated,
                                 QByteArrayView payload)
{
    LittleEndianReader in(replicated);
    auto const objectSize = in.read<quint32>();
    auto const presentationTime = in.read<quint32>();

    int const streamNumber = streamByte & 0x7F;
    makeRoom(_incompleteFrames[streamNumber], payload.size());
    QMap<quint64, MediaFrame>& frames = _incompleteFrames[streamNumber];
    MediaFrame& frame = frames[presentationTime];
    frame.data.append(payload);
    _incompleteBytes += payload.size();
    if (frame.objectSize == 0) {
        frame.sendTime = packet.sendTime;
        frame.duration = packet.duration;
        frame.presentationTime = presentationTime;
        frame.objectSize = static_cast<quint16>(objectSize);
        frame.streamNumber = static_cast<quint8>(streamNumber);
        frame.keyFrame = streamByte & 0x80;
        frame.streamType = getStreamType(streamNumber);
    }
    if (frame.objectSize > frame.data.size())
        return;
    MediaFrame const complete = frames.take(presentationTime);
    _incompleteBytes -= complete.data.size();
    emit onPacket(complete);
    if (_packetListener)
        _packetListener->onPacket(complete);
}

/// Gives up media objects whose rest has not come, so that there is room for one more of so many bytes.
void SimpleAsfParser::makeRoom(QMap<quint64, MediaFrame>& frames, qsizetype bytes)
{
    if (frames.size() >= maximumIncompleteFrames)
        _incompleteBytes -= frames.take(frames.firstKey()).data.size();
    if (_incompleteBytes + bytes <= maximumIncompleteBytes)
        return;
    LOG_WARNING("%lld bytes of incomplete media objects given up", static_cast<long long>(_incompleteBytes));
    _incompleteFrames.clear();
    _incompleteBytes = 0;
}
