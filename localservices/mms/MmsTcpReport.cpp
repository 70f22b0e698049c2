#include "MmsTcpReport.h"

#include "AsfFile.h"
#include "Broadcast.h"
#include "ByteCursor.h"

namespace
{
constexpr quint32 measureMark = 0xF0F0F0F0;
constexpr quint32 macToViewerVersion = 0x0004000B;
constexpr quint32 viewerToMacVersion = 0x0003001C;
constexpr quint32 blockBytes = 0x8000;
constexpr quint32 maximumBitrate = 10'000'000;
constexpr quint32 broadcastAttribute = 0x02000000;

void append(QByteArray& bytes, std::initializer_list<quint32> numbers)
{
    for (quint32 const number : numbers)
        appendLittleEndian(bytes, number);
}

/// With the final 0 that its length counts.
QByteArray utf16(QString const& text)
{
    QByteArray bytes;
    for (QChar const character : text)
        appendLittleEndian<quint16>(bytes, character.unicode());
    return bytes.append(2, '\0');
}
} // namespace

QByteArray MmsTcpReport::message(Type type, quint16 sequence, QByteArray const& body)
{
    QByteArray const padded = body + QByteArray((8 - body.size() % 8) % 8, '\0');
    auto const size = static_cast<quint32>(headerSize + padded.size());
    QByteArray bytes;
    bytes.reserve(size);
    append(bytes, {1, sessionId, size - 16, seal, (size - 16) / 8});
    appendLittleEndian(bytes, sequence);
    appendLittleEndian<quint16>(bytes, 0);
    append(bytes, {0, 0, (size - 32) / 8, type});
    return bytes.append(padded);
}

QByteArray MmsTcpReport::connectedEx(quint32 result)
{
    QByteArray const version = utf16(QStringLiteral(OMBRAVISION_VERSION));
    QByteArray const empty = utf16({});
    // The last text takes what is left to a multiple of 8, so that nothing but texts follows the lengths.
    QByteArray last = empty;
    while ((version.size() + 2 * empty.size() + last.size()) % 8 != 0)
        last += empty;
    QByteArray body;
    append(body,
           {result, measureMark, macToViewerVersion, viewerToMacVersion, 0, 0, 1, 1, blockBytes, maximumBitrate});
    for (QByteArray const& text : {version, empty, empty, last})
        appendLittleEndian<quint32>(body, static_cast<quint32>(text.size() / 2));
    return body + version + empty + empty + last;
}

QByteArray MmsTcpReport::connectedFunnel(quint32 result, quint32 incarnation)
{
    QByteArray body;
    append(body, {result, incarnation, 0});
    return body + utf16(QStringLiteral("Funnel Of The Gods"));
}

QByteArray MmsTcpReport::funnelInfo(quint32 result)
{
    QByteArray body;
    append(body, {result, 0, 8, 1, 0x10000, 0, 0, 1, 0, 0});
    return body;
}

QByteArray MmsTcpReport::openFile(quint32 result, quint32 incarnation, Broadcast const* broadcast)
{
    quint32 bitrate = 0;
    if (broadcast) {
        for (AsfHeader::Stream const& stream : broadcast->film().header().streams())
            bitrate += stream.bitrate;
    }
    QByteArray body;
    append(body, {result, incarnation, broadcast ? fileId : 0, 0, 0, broadcast ? broadcastAttribute : 0, 0, 0, 0});
    body.append(16, '\0');
    append(body, {broadcast ? broadcast->film().header().packetSize() : 0, 0, 0, bitrate,
                  broadcast ? static_cast<quint32>(broadcast->header().size()) : 0});
    return body.append(32, '\0');
}

QByteArray MmsTcpReport::plain(quint32 result, quint32 incarnation, int numbers)
{
    QByteArray body;
    append(body, {result, incarnation});
    return body.leftJustified(4 * numbers, '\0', true);
}
