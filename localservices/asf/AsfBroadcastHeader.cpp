#include "AsfBroadcastHeader.h"

#include "AsfGuids.h"
#include "ByteCursor.h"

namespace
{
constexpr quint32 broadcastFlag = 1;
constexpr qsizetype titleLimit = 1000; // Characters; its size with a final 0 is told in 16 bits.

void appendObject(QByteArray& bytes, AsfGuids::Guid const& guid, QByteArrayView body)
{
    bytes.append(AsfGuids::view(guid));
    appendLittleEndian<quint64>(bytes, static_cast<quint64>(body.size()) + 24);
    bytes.append(body);
}

QByteArray contentDescription(QString const& title)
{
    QString const text = title.left(titleLimit);
    QByteArray body;
    appendLittleEndian<quint16>(body, static_cast<quint16>(2 * (text.size() + 1)));
    body.append(8, '\0'); // No author, copyright, description or rating.
    for (QChar const character : text)
        appendLittleEndian<quint16>(body, character.unicode());
    body.append(2, '\0');
    return body;
}

QByteArray streamBitrates(AsfHeader const& header)
{
    QByteArray body;
    appendLittleEndian<quint16>(body, static_cast<quint16>(header.streams().size()));
    for (auto stream = header.streams().cbegin(); stream != header.streams().cend(); ++stream) {
        appendLittleEndian<quint16>(body, static_cast<quint16>(stream.key()));
        appendLittleEndian<quint32>(body, stream->bitrate);
    }
    return body;
}

QByteArray exclusion(QList<int> const& streams)
{
    QByteArray body = AsfGuids::view(AsfGuids::mutexBitrate).toByteArray();
    appendLittleEndian<quint16>(body, static_cast<quint16>(streams.size()));
    for (int const stream : streams)
        appendLittleEndian<quint16>(body, static_cast<quint16>(stream));
    return body;
}

/// File Properties without the values that no broadcast has: size, packets, durations.
QByteArray fileProperties(QByteArrayView body)
{
    QByteArray changed = body.toByteArray();
    if (changed.size() < 80)
        return changed;
    changed.replace(16, 8, QByteArray(8, '\0'));
    changed.replace(32, 24, QByteArray(24, '\0'));
    QByteArray flags;
    appendLittleEndian<quint32>(flags, broadcastFlag);
    changed.replace(64, 4, flags);
    return changed;
}
} // namespace

QByteArray AsfBroadcastHeader::make(QByteArray const& bytes, AsfHeader const& header, QString const& title)
{
    QString ignored;
    std::optional<AsfHeader> const original = AsfHeader::parse(bytes, ignored);
    QByteArray objects;
    QByteArray fileId(16, '\0');
    quint32 count = 0;
    auto const add = [&](AsfGuids::Guid const& guid, QByteArray const& body) {
        appendObject(objects, guid, body);
        ++count;
    };

    ByteCursor cursor(bytes, 30);
    while (cursor.left() >= 24) {
        QByteArrayView const guid = cursor.bytes(16);
        quint64 const size = cursor.u64();
        QByteArrayView const body = cursor.bytes(size < 24 ? 0 : size - 24);
        if (guid == AsfGuids::view(AsfGuids::contentDescription))
            continue;
        ++count;
        objects.append(guid);
        appendLittleEndian<quint64>(objects, size);
        if (guid == AsfGuids::view(AsfGuids::fileProperties)) {
            fileId = body.toByteArray().left(16);
            objects.append(fileProperties(body));
        } else {
            objects.append(body);
        }
    }
    add(AsfGuids::contentDescription, contentDescription(title));
    if (!original || !original->hasBitrates())
        add(AsfGuids::streamBitrates, streamBitrates(header));
    for (qsizetype i = original ? original->exclusions().size() : 0; i < header.exclusions().size(); ++i)
        add(AsfGuids::bitrateMutualExclusion, exclusion(header.exclusions().at(i)));

    QByteArray made = AsfGuids::view(AsfGuids::header).toByteArray();
    appendLittleEndian<quint64>(made, static_cast<quint64>(objects.size()) + 30);
    appendLittleEndian<quint32>(made, count);
    made.append("\x01\x02", 2);
    made.append(objects);
    QByteArray dataHeader = fileId;
    appendLittleEndian<quint64>(dataHeader, 0);
    appendLittleEndian<quint16>(dataHeader, 0x0101);
    appendObject(made, AsfGuids::data, dataHeader);
    return made;
}
