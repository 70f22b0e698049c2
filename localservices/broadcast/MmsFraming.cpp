#include "MmsFraming.h"

#include "ByteCursor.h"

QByteArray MmsFraming::record(Record const& record, QByteArray const& payload)
{
    Q_ASSERT(payload.size() <= maximumPayload);
    QByteArray bytes;
    bytes.reserve(payload.size() + 8);
    appendLittleEndian(bytes, record.locationId);
    appendLittleEndian(bytes, record.incarnation);
    appendLittleEndian(bytes, record.flags);
    appendLittleEndian(bytes, static_cast<quint16>(payload.size() + 8));
    return bytes.append(payload);
}

QByteArray MmsFraming::chunk(char type, Record const& head, QByteArray const& payload)
{
    QByteArray bytes;
    bytes.reserve(payload.size() + 12);
    bytes.append('$').append(type);
    appendLittleEndian(bytes, static_cast<quint16>(payload.size() + 8));
    return bytes.append(record(head, payload));
}

QByteArray MmsFraming::notice(char type, quint32 reason)
{
    QByteArray bytes;
    bytes.append('$').append(type);
    appendLittleEndian<quint16>(bytes, 4);
    appendLittleEndian(bytes, reason);
    return bytes;
}

QList<MmsFraming::Piece> MmsFraming::pieces(QByteArray const& header, qsizetype pieceSize, quint8 incarnation)
{
    QList<Piece> made;
    for (qsizetype start = 0; start < header.size(); start += pieceSize) {
        bool const isFirst = start == 0;
        bool const isLast = start + pieceSize >= header.size();
        quint8 const flags = !isLast ? moreFollows : isFirst ? onlyPiece : lastPiece;
        made.append({{static_cast<quint32>(made.size()), incarnation, flags}, header.mid(start, pieceSize)});
    }
    return made;
}
