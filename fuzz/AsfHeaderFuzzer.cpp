#include "AsfStreamFilter.h"

#include <QSet>

#include <cstdint>
#include <cstdlib>

namespace
{
/// Copies of all objects of the header at the top level, written again.
class Rewriter : public SimpleAsfParser
{
public:
    using SimpleAsfParser::SimpleAsfParser;

    QByteArray rewritten() const
    {
        SimpleAsfEncoder encoder;
        for (auto const& object : objects())
            encoder.addObject(object.get());
        return encoder.createHeader();
    }
};
} // namespace

/// Whatever a server sends, what is written of it can be read, whole, and writing that again changes nothing; the
/// selected streams are those that the header has.
extern "C" int LLVMFuzzerTestOneInput(uint8_t const* data, size_t size)
{
    QByteArray const header(reinterpret_cast<char const*>(data), static_cast<qsizetype>(size));
    QMap<int, int> selection;
    QByteArray result = "?";
    AsfStreamFilter filter(header);
    filter.useBandwidthLimit(512000, selection, result);
    filter.usePrioritization(selection, result);
    if (!result.isEmpty() && SimpleAsfParser().ParseHeader(result) != result.size())
        std::abort();
    QSet<int> streams;
    for (StreamObject const& stream : filter.audioStreams())
        streams.insert(stream.streamNumber);
    for (StreamObject const& stream : filter.videoStreams())
        streams.insert(stream.streamNumber);
    for (StreamObject const& stream : filter.otherStreams())
        streams.insert(stream.streamNumber);
    for (int const stream : selection.keys()) {
        if (!streams.contains(stream) || filter.streamBitrate(stream) < 0)
            std::abort();
        static_cast<void>(filter.streamLanguage(stream));
    }

    Rewriter parser;
    qint64 const consumed = parser.ParseHeader(header);
    if (consumed < 0 || consumed > header.size())
        std::abort();
    if (consumed == 0)
        return 0;
    QByteArray const once = parser.rewritten();
    if (!once.isEmpty() && Rewriter(once).rewritten() != once)
        std::abort();
    return 0;
}
