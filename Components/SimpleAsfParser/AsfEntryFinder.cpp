#include "AsfEntryFinder.h"

#include "SimpleAsfParser.h"

namespace
{

/// A field whose width is in two of these bits: none, u8, u16 or u32.
quint32 field(LittleEndianReader& in, unsigned int bits)
{
    return SimpleAsfParser::getByteWordDWordValue(static_cast<int>(bits & 3), in, 0);
}

} // namespace

AsfEntryFinder::AsfEntryFinder(QByteArray const& header)
{
    for (VideoStreamObject const& stream : SimpleAsfParser(header).videoStreams())
        _pictures.append(stream.streamNumber);
}

bool AsfEntryFinder::isEntry(QByteArray const& packet) const
{
    if (_pictures.isEmpty())
        return true;
    LittleEndianReader in(packet);
    auto const first = in.read<quint8>();
    if (!(first & 0x80))
        return false;
    in.take(first & 0x0F); // Error correction.
    auto const lengthTypes = in.read<quint8>();
    auto const properties = in.read<quint8>();
    for (int const bit : {5, 1, 3}) // Packet length, sequence, padding.
        field(in, lengthTypes >> bit);
    in.take(6); // Send time and duration.
    bool const hasMany = lengthTypes & 1;
    unsigned int const payloads = hasMany ? in.read<quint8>() : 1;
    for (unsigned int i = 0; i < (payloads & 0x3F) && in.left() > 0; ++i) {
        auto const stream = in.read<quint8>();
        field(in, properties >> 4); // The number of the media object.
        quint32 const offset = field(in, properties >> 2);
        quint32 const replicated = field(in, properties);
        bool const isCompressed = replicated == 1; // The offset is then a time.
        if ((stream & 0x80) && _pictures.contains(stream & 0x7F) && (offset == 0 || isCompressed) && in.left() > 0)
            return true;
        in.take(replicated);
        if (hasMany)
            in.take(field(in, payloads >> 6));
    }
    return false;
}
