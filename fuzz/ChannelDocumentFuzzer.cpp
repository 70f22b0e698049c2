#include "ChannelDocumentReader.h"
#include "ChannelFileReader.h"
#include "ChannelStats.h"

#include <cstdint>
#include <cstdlib>

namespace
{

void require(bool condition)
{
    if (!condition)
        std::abort();
}

void requireNetwork(Uri const& uri)
{
    require(uri.isNull() || uri.scheme() != UriScheme(QStringLiteral("file")));
}

void readDocument(QByteArray const& bytes)
{
    ChannelDocumentReader::Document const document = ChannelDocumentReader::read(bytes);
    require(document.error.isEmpty() || document.entries.isEmpty());
    for (ChannelDocumentReader::Entry const& entry : document.entries) {
        QList<StreamDescription> const streams = entry.description.streamDescriptions();
        require(!streams.isEmpty() && streams.size() <= ChannelDocumentReader::maximumStreams);
        require(entry.description.id() == entry.description.rootId() && entry.description.autoBuzzInterval() > 0);
        for (StreamDescription const& stream : streams) {
            requireNetwork(stream.uri());
            require(stream.numAudioTracks() == 1);
        }
        requireNetwork(entry.logo);
    }
}

void readFile(QByteArray const& bytes)
{
    ChannelFileReader::Result const result = ChannelFileReader::read(bytes, QStringLiteral("/directory"));
    require(result.hasBegun || result.channels.isEmpty());
    for (ChannelDescription const& channel : result.channels)
        require(channel.streamDescriptions().size() == 1 && channel.numAudioTracks() == 1);
}

} // namespace

/// Whatever a service sends or a file has, as a channel document, as a channel file and as statistics.
extern "C" int LLVMFuzzerTestOneInput(uint8_t const* data, size_t size)
{
    QByteArray const bytes(reinterpret_cast<char const*>(data), static_cast<qsizetype>(size));
    readDocument(bytes);
    readFile(bytes);
    ChannelStats const stats(QString::fromUtf8(bytes));
    ChannelStats const again(stats.toXml());
    require(again.channels().size() <= stats.channels().size() && again.ms() == stats.ms());
    return 0;
}
