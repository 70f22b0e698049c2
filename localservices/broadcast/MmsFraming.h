#pragma once

#include <QByteArray>
#include <QList>

/// How pieces of a broadcast are framed by both MMS protocols. All numbers are little-endian.
class MmsFraming
{
public:
    /// The 8 bytes before a piece: location id u32, incarnation u8, flags u8, then its size with these bytes, u16.
    struct Record {
        quint32 locationId = 0;
        quint8 incarnation = 0;
        quint8 flags = 0;
    };

    static constexpr qsizetype maximumPayload = 65527;
    static constexpr int packetOfCut = 10; ///< A connection that is to be cut ends after so many packets.

    /// Flags of the pieces of a header.
    static constexpr quint8 moreFollows = 0x04;
    static constexpr quint8 lastPiece = 0x08;
    static constexpr quint8 onlyPiece = 0x0C;

    /// A piece of at most maximumPayload bytes with its record.
    static QByteArray record(Record const& record, QByteArray const& payload);

    /// A chunk of MMS over HTTP: "$", the type, the size of the rest as u16, the record, the payload.
    static QByteArray chunk(char type, Record const& record, QByteArray const& payload);

    /// A chunk without a record: "$", the type, the size 4 as u16, a reason u32.
    static QByteArray notice(char type, quint32 reason);

    /// A header in pieces of at most `pieceSize` bytes, each with its flags and counting location ids.
    struct Piece {
        Record record;
        QByteArray payload;
    };
    static QList<Piece> pieces(QByteArray const& header, qsizetype pieceSize, quint8 incarnation);
};
