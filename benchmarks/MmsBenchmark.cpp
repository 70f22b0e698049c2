// What the stream of an MMS server costs before it is decoded: its chunks, and the choice of streams from its header.
// The baseline is a copy of the same bytes, and for the header also what FFmpeg takes to open it.

#include "AsfGuids.h"
#include "AsfStreamFilter.h"
#include "FFwrapper.h"
#include "MmsChunkProcessor.h"

#include <QtEndian>

#include <benchmark/benchmark.h>

namespace
{

QByteArray number(quint64 value, int bytes)
{
    QByteArray result(8, Qt::Uninitialized);
    qToLittleEndian(value, result.data());
    return result.left(bytes);
}

QByteArray guid(QUuid const& value)
{
    QByteArray result = number(value.data1, 4) + number(value.data2, 2) + number(value.data3, 2);
    return result.append(reinterpret_cast<char const*>(value.data4), 8);
}

QByteArray object(QUuid const& objectGuid, QByteArray const& body)
{
    return guid(objectGuid) + number(static_cast<quint64>(body.size() + 24), 8) + body;
}

/// The header of a live channel in five bit rates: one stream of sound, five of pictures, which exclude each other.
QByteArray header()
{
    constexpr int pictures = 5;
    auto const stream = [](QUuid const& type, int streamNumber, QByteArray const& format) {
        return object(asfStreamPropertiesGuid, guid(type) + guid(asfAudioConcealNone) + number(0, 8) +
                                                   number(static_cast<quint64>(format.size()), 4) + number(0, 4) +
                                                   number(static_cast<quint64>(streamNumber), 2) + number(0, 4) +
                                                   format);
    };
    QByteArray objects = object(asfFilePropertiesGuid, guid(asfWMGuid3) + QByteArray(48, '\0') + number(1, 4) +
                                                           number(1450, 4) + number(1450, 4) + number(1500000, 4));
    QByteArray rates = number(pictures + 1, 2) + number(1, 2) + number(64000, 4);
    QByteArray excluded = guid(asfMutexBitrate) + number(pictures, 2);
    objects += stream(asfAudioMediaGuid, 1,
                      number(0x161, 2) + number(2, 2) + number(44100, 4) + number(8000, 4) + number(1486, 2) +
                          number(16, 2) + number(10, 2) + QByteArray(10, '\1'));
    for (quint64 i = 2; i < 2 + pictures; ++i) {
        QByteArray const bitmap = number(44, 4) + number(640, 4) + number(360, 4) + number(1, 2) + number(24, 2) +
                                  "WMV2" + QByteArray(20, '\0') + QByteArray(4, '\2');
        objects += stream(asfVideoMediaGuid, static_cast<int>(i),
                          number(640, 4) + number(360, 4) + number(2, 1) + number(44, 2) + bitmap);
        rates += number(i, 2) + number(i * 100000, 4);
        excluded += number(i, 2);
    }
    objects += object(asfBitratePropertiesGuid, rates) + object(asfBitrateMutexGuid, excluded);
    objects += object(asfHeaderExtensionGuid, guid(asfReservedGuid) + number(6, 2) + number(2024, 4) +
                                                  object(asfPaddingGuid, QByteArray(2000, '\0')));
    return guid(asfHeaderGuid) + number(static_cast<quint64>(objects.size() + 30), 8) + number(10, 4) + number(1, 1) +
           number(2, 1) + objects + guid(asfDataGuid) + number(50, 8) + guid(asfWMGuid3) + number(0, 8) +
           number(0x101, 2);
}

/// Data packets of 1450 bytes, as chunks, about a megabyte.
QByteArray chunks()
{
    QByteArray packet;
    for (int i = 0; i < 1450; ++i)
        packet.append(static_cast<char>(i * 7));
    QByteArray const chunk = "$D" + number(1458, 2) + QByteArray(8, '\0') + packet;
    return chunk.repeated(720);
}

/// The bytes come as from a socket, in reads of so many.
void copiedChunks(benchmark::State& state)
{
    QByteArray const stream = chunks();
    for ([[maybe_unused]] auto const& iteration : state) {
        for (qsizetype at = 0; at < stream.size(); at += state.range(0)) {
            QByteArray const copy(stream.constData() + at, std::min<qsizetype>(state.range(0), stream.size() - at));
            benchmark::DoNotOptimize(copy.constData());
        }
    }
    state.SetItemsProcessed(state.iterations() * stream.size());
    state.SetBytesProcessed(state.iterations() * stream.size());
}

void processedChunks(benchmark::State& state)
{
    QByteArray const stream = chunks();
    MmsChunkProcessor processor;
    processor.setPacketSize(1450);
    processor.setPadding(true);
    qsizetype packets = 0;
    QObject::connect(&processor, &ChunkProcessor::onData, [&packets] { ++packets; });
    for ([[maybe_unused]] auto const& iteration : state)
        for (qsizetype at = 0; at < stream.size(); at += state.range(0))
            processor.processData(
                QByteArray(stream.constData() + at, std::min<qsizetype>(state.range(0), stream.size() - at)));
    benchmark::DoNotOptimize(packets);
    state.SetItemsProcessed(state.iterations() * stream.size());
    state.SetBytesProcessed(state.iterations() * stream.size());
}

void openedHeader(benchmark::State& state)
{
    QByteArray const bytes = header();
    for ([[maybe_unused]] auto const& iteration : state) {
        FormatContextPointer const context(
            FFwrapper::contextFromHeader(bytes.constData(), static_cast<int>(bytes.size())));
        if (!context)
            state.SkipWithError("FFmpeg refuses the header");
    }
    state.SetItemsProcessed(state.iterations());
}

void rewrittenHeader(benchmark::State& state)
{
    QByteArray const bytes = header();
    for ([[maybe_unused]] auto const& iteration : state) {
        QMap<int, int> selection;
        QByteArray result;
        AsfStreamFilter(bytes).useBandwidthLimit(512000, selection, result);
        if (result.isEmpty() || selection.size() != 6)
            state.SkipWithError("the header is not read");
    }
    state.SetItemsProcessed(state.iterations());
}

BENCHMARK(copiedChunks)->Name("Chunks/Copied")->Arg(16384)->Arg(1460);
BENCHMARK(processedChunks)->Name("Chunks/Processed")->Arg(16384)->Arg(1460)->Arg(65536)->Arg(1048576);
BENCHMARK(openedHeader)->Name("Header/OpenedByFFmpeg");
BENCHMARK(rewrittenHeader)->Name("Header/Rewritten");

} // namespace
