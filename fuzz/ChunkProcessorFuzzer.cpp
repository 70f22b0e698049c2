#include "MmsChunkProcessor.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>

namespace
{
/// What a processor says, in order.
struct Recorder {
    explicit Recorder(uint8_t mode)
    {
        processor.setHttpMode(mode & 1);
        processor.setPadding(mode & 2);
        processor.setPacketSize(mode & 4 ? 1300 : 40);
        using Processor = MmsChunkProcessor;
        auto const number = [this](char const* what) {
            return [this, what](int reason) { said.append(what + QByteArray::number(reason)); };
        };
        auto const bytes = [this](char const* what) {
            return [this, what](QByteArray const& value) { said.append(what + value); };
        };
        QObject::connect(&processor, &Processor::onHeader, bytes("H"));
        QObject::connect(&processor, &Processor::onData, bytes("D"));
        QObject::connect(&processor, &Processor::onEndOfData, number("E"));
        QObject::connect(&processor, &Processor::onResetChunk, number("C"));
        QObject::connect(&processor, &Processor::onTestChunk, number("T"));
        QObject::connect(&processor, &Processor::onPacketPairPacket, number("P"));
        QObject::connect(&processor, &Processor::onMetadataChunk,
                         [this](QString const& text) { said.append("M" + text.toUtf8()); });
    }

    MmsChunkProcessor processor;
    QList<QByteArray> said;
};
} // namespace

/// The first byte selects the mode, the next two are the sizes of the pieces, in turn, that the rest comes in. It
/// says the same as when all comes at once.
extern "C" int LLVMFuzzerTestOneInput(uint8_t const* data, size_t size)
{
    if (size < 3)
        return 0;
    qsizetype const pieces[] = {1 + data[1], 1 + data[2] * 4};
    QByteArray const stream(reinterpret_cast<char const*>(data) + 3, static_cast<qsizetype>(size - 3));
    Recorder whole(data[0]);
    whole.processor.processData(stream);
    Recorder split(data[0]);
    for (qsizetype at = 0, i = 0; at < stream.size(); at += pieces[i++ % 2]) {
        qsizetype const piece = std::min(pieces[i % 2], stream.size() - at);
        split.processor.processData(QByteArray(stream.constData() + at, piece));
    }
    if (whole.said != split.said || whole.processor.packetsProcessed() != split.processor.packetsProcessed())
        std::abort();
    return 0;
}
