#include "CodecListObject.h"

#include "AsfGuids.h"
#include "AsfReader.h"
#include "AsfStream.h"

#include <optional>

namespace
{
std::optional<QString> readText(AsfReader& in)
{
    if (!in.has(2))
        return std::nullopt;
    auto const units = in.read<quint16>();
    return in.has(2 * units) ? std::optional(in.readUnits(units)) : std::nullopt;
}

std::optional<CodecListObject::CodecEntry> readEntry(AsfReader& in)
{
    if (!in.has(2))
        return std::nullopt;
    CodecListObject::CodecEntry entry;
    entry.type = in.read<quint16>();
    std::optional<QString> const name = readText(in);
    std::optional<QString> const description = name ? readText(in) : std::nullopt;
    if (!description || !in.has(2))
        return std::nullopt;
    entry.name = *name;
    entry.description = *description;
    auto const informationLength = in.read<quint16>();
    if (!in.has(informationLength))
        return std::nullopt;
    entry.information = in.readBytes(informationLength);
    return entry;
}
} // namespace

CodecListObject::CodecListObject(QDataStream& stream, long long size) : ClonedAsfObject(asfCodecListGuid, size)
{
    AsfReader in(stream, size);
    reservedGuid = in.readGuid();
    entryCount = in.read<quint32>();
    for (quint32 i = 0; i < entryCount; ++i) {
        qint64 const left = in.left();
        std::optional<CodecEntry> const entry = readEntry(in);
        if (!entry) {
            in.returnTo(left);
            break;
        }
        entries.append(*entry);
    }
    body = in.rest();
}

void CodecListObject::writeFields(QDataStream& stream) const
{
    AsfStream::writeGuid(stream, reservedGuid);
    stream << entryCount;
    for (CodecEntry const& entry : entries) {
        stream << entry.type << static_cast<quint16>(entry.name.size());
        AsfStream::writeUnits(stream, entry.name);
        stream << static_cast<quint16>(entry.description.size());
        AsfStream::writeUnits(stream, entry.description);
        stream << static_cast<quint16>(entry.information.size());
        AsfStream::writeBytes(stream, entry.information);
    }
}
