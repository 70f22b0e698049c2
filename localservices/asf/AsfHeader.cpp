#include "AsfHeader.h"

#include "AsfGuids.h"
#include "ByteCursor.h"

#include <algorithm>

namespace
{
constexpr int objectHeaderSize = 24;
constexpr int topHeaderSize = 30;
constexpr quint16 streamNumberMask = 0x7F;
} // namespace

std::optional<AsfHeader> AsfHeader::parse(QByteArray const& bytes, QString& error)
{
    AsfHeader header;
    int objectsLeft = maximumObjects;
    if (bytes.size() < topHeaderSize || !bytes.startsWith(AsfGuids::view(AsfGuids::header)))
        error = QStringLiteral("it is no ASF file");
    else if (!header.parseObjects(QByteArrayView(bytes).sliced(topHeaderSize), objectsLeft, false))
        error = QStringLiteral("its ASF header is damaged");
    else if (header._packetSize == 0 || header._packetSize > maximumPacketSize)
        error = QStringLiteral("its data packets are %1 bytes long; 1 to %2 can be sent")
                    .arg(header._packetSize)
                    .arg(maximumPacketSize);
    else if (header._streams.isEmpty())
        error = QStringLiteral("its ASF header names no stream");
    else
        return header;
    return std::nullopt;
}

/// The objects of one level; those of the header extension are one level deeper, and there is no third.
bool AsfHeader::parseObjects(QByteArrayView bytes, int& objectsLeft, bool extension)
{
    ByteCursor cursor(bytes);
    while (cursor.left() >= objectHeaderSize) {
        QByteArrayView const guid = cursor.bytes(16);
        quint64 const size = cursor.u64();
        if (size < objectHeaderSize || --objectsLeft < 0)
            return false;
        QByteArrayView const body = cursor.bytes(size - objectHeaderSize);
        if (!cursor.isValid())
            return false;
        auto const is = [&](AsfGuids::Guid const& known) { return guid == AsfGuids::view(known); };
        if (is(AsfGuids::fileProperties))
            parseFileProperties(body);
        else if (is(AsfGuids::streamProperties))
            parseStreamProperties(body);
        else if (is(AsfGuids::extendedStreamProperties))
            parseExtendedStreamProperties(body);
        else if (is(AsfGuids::streamBitrates))
            parseBitrates(body);
        else if (is(AsfGuids::bitrateMutualExclusion) || is(AsfGuids::advancedMutualExclusion))
            parseExclusion(body);
        else if (is(AsfGuids::headerExtension) && !extension && body.size() > 22 &&
                 !parseObjects(body.sliced(22), objectsLeft, true))
            return false;
    }
    return true;
}

void AsfHeader::parseFileProperties(QByteArrayView body)
{
    ByteCursor cursor(body, 56);
    quint64 const preroll = cursor.u64();
    cursor.skip(4);
    quint32 const smallest = cursor.u32();
    quint32 const largest = cursor.u32();
    if (!cursor.isValid() || smallest != largest)
        return;
    _preroll = static_cast<quint32>(std::min<quint64>(preroll, 600'000));
    _packetSize = largest;
}

void AsfHeader::parseStreamProperties(QByteArrayView body)
{
    ByteCursor cursor(body);
    QByteArrayView const type = cursor.bytes(16);
    cursor.skip(32);
    int const number = cursor.u16() & streamNumberMask;
    if (!cursor.isValid() || number == 0)
        return;
    _streams[number].kind = type == AsfGuids::view(AsfGuids::videoMedia)   ? Kind::Video
                            : type == AsfGuids::view(AsfGuids::audioMedia) ? Kind::Audio
                                                                           : Kind::Other;
}

void AsfHeader::parseExtendedStreamProperties(QByteArrayView body)
{
    ByteCursor cursor(body, 16);
    quint32 const bitrate = cursor.u32();
    cursor.skip(28);
    int const number = cursor.u16() & streamNumberMask;
    if (cursor.isValid() && number != 0 && bitrate != 0 && _streams.value(number).bitrate == 0)
        _streams[number].bitrate = bitrate;
}

void AsfHeader::parseBitrates(QByteArrayView body)
{
    ByteCursor cursor(body);
    for (int count = cursor.u16(); count > 0; --count) {
        int const number = cursor.u16() & streamNumberMask;
        quint32 const bitrate = cursor.u32();
        if (!cursor.isValid())
            return;
        _hasBitrates = true;
        _streams[number].bitrate = bitrate;
    }
}

void AsfHeader::parseExclusion(QByteArrayView body)
{
    ByteCursor cursor(body);
    if (cursor.bytes(16) != AsfGuids::view(AsfGuids::mutexBitrate))
        return; // Languages and the like: the client's choice.
    QList<int> streams;
    for (int count = cursor.u16(); count > 0 && cursor.isValid(); --count)
        streams.append(cursor.u16() & streamNumberMask);
    if (cursor.isValid() && streams.size() > 1)
        _exclusions.append(streams);
}
