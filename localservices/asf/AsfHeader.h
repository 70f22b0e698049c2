#pragma once

#include <QByteArray>
#include <QList>
#include <QMap>
#include <QString>

#include <optional>

/// What a server has to know of an ASF header. A value.
class AsfHeader
{
public:
    enum class Kind { Audio, Video, Other };

    struct Stream {
        Kind kind = Kind::Other;
        quint32 bitrate = 0; ///< Bits per second; 0 when the header does not tell.
    };

    static constexpr qsizetype maximumSize = 1 << 20; ///< Bytes of the Header object.
    static constexpr int maximumObjects = 10000;      ///< In all levels together.
    static constexpr quint32 maximumPacketSize =
        65527; ///< A data chunk tells its length, with 8 bytes more, in 16 bits.

    /// Parses a Header object. Nothing, and a text that tells why, when it is damaged or cannot be broadcast.
    static std::optional<AsfHeader> parse(QByteArray const& bytes, QString& error);

    quint32 packetSize() const { return _packetSize; }
    quint32 preroll() const { return _preroll; } ///< ms.
    QMap<int, Stream> const& streams() const { return _streams; }

    /// Groups of streams of which one is sent at a time: the same content at several bit rates.
    QList<QList<int>> const& exclusions() const { return _exclusions; }
    bool hasBitrates() const { return _hasBitrates; }

    /// For a file whose header does not tell.
    void setBitrate(int stream, quint32 bitrate) { _streams[stream].bitrate = bitrate; }
    void addExclusion(QList<int> const& streams) { _exclusions.append(streams); }

private:
    bool parseObjects(QByteArrayView bytes, int& objectsLeft, bool extension);
    void parseFileProperties(QByteArrayView body);
    void parseStreamProperties(QByteArrayView body);
    void parseExtendedStreamProperties(QByteArrayView body);
    void parseBitrates(QByteArrayView body);
    void parseExclusion(QByteArrayView body);

    quint32 _packetSize = 0;
    quint32 _preroll = 0;
    QMap<int, Stream> _streams;
    QList<QList<int>> _exclusions;
    bool _hasBitrates = false;
};
