// Messages of the Biscotti link written and read: how many a second. The baseline is a copy of the same bytes, the
// least that anything can cost.

#include "CentralisedBiscottiMessageDecoder.h"
#include "CentralisedBiscottiMessageEncoder.h"

#include <benchmark/benchmark.h>
#include <cstdlib>
#include <cstring>

namespace
{

using MessageId = CentralisedBiscottiMessageId;

/// A chat line, the commonest message.
BiscottiPost chatLine(qsizetype bodyBytes)
{
    BiscottiPost post;
    post.setSenderId("ann");
    post.setSenderName("Ann");
    post.setSendUtc(QDateTime({2010, 5, 1}, {12, 30}, Qt::UTC));
    post.setPostId(BiscottiPostId("XUFAKrxLKna5cZ2REBfFkg==,41"));
    post.setTopic(BiscottiTopic(".chat.room.news"));
    post.setBody(QByteArray(bodyBytes, 'x'));
    return post;
}

QByteArray encode(CentralisedBiscottiMessageEncoder& encoder, BiscottiPost const& post)
{
    return encoder.encodePost(MessageId("XUFAKrxLKna5cZ2REBfFkg==,42"), post, {});
}

void copy(benchmark::State& state)
{
    CentralisedBiscottiMessageEncoder encoder(nullptr);
    QByteArray const bytes = encode(encoder, chatLine(state.range(0)));
    QByteArray target(bytes.size(), '\0');
    for ([[maybe_unused]] auto const& iteration : state) {
        std::memcpy(target.data(), bytes.constData(), static_cast<size_t>(bytes.size()));
        benchmark::ClobberMemory();
    }
    state.SetItemsProcessed(state.iterations());
}

void write(benchmark::State& state)
{
    CentralisedBiscottiMessageEncoder encoder(nullptr);
    BiscottiPost const post = chatLine(state.range(0));
    for ([[maybe_unused]] auto const& iteration : state)
        benchmark::DoNotOptimize(encode(encoder, post));
    state.SetItemsProcessed(state.iterations());
}

/// The stream in pieces of some bytes, as a socket gives them.
void read(benchmark::State& state)
{
    constexpr int batch = 100;
    CentralisedBiscottiMessageEncoder encoder(nullptr);
    QByteArray const stream = encode(encoder, chatLine(state.range(0))).repeated(batch);
    qsizetype const piece = state.range(1);
    CentralisedBiscottiMessageDecoder decoder(nullptr);
    qint64 count = 0;
    QObject::connect(&decoder, &CentralisedBiscottiMessageDecoder::postAvailable, [&count] { ++count; });
    for ([[maybe_unused]] auto const& iteration : state)
        for (qsizetype position = 0; position < stream.size(); position += piece)
            decoder.appendBytes(stream.mid(position, piece));
    if (count != state.iterations() * batch)
        std::abort();
    state.SetItemsProcessed(count);
}

BENCHMARK(copy)->Name("Write/Copy")->Arg(80);
BENCHMARK(write)->Name("Write/Der")->Arg(80);
BENCHMARK(copy)->Name("WriteLarge/Copy")->Arg(100000);
BENCHMARK(write)->Name("WriteLarge/Der")->Arg(100000);
BENCHMARK(copy)->Name("Read/Copy")->Arg(80);
BENCHMARK(read)->Name("Read/Ber")->Args({80, 4096});
BENCHMARK(read)->Name("Read/BerByteByByte")->Args({80, 1});
BENCHMARK(copy)->Name("ReadLarge/Copy")->Arg(100000);
BENCHMARK(read)->Name("ReadLarge/Ber")->Args({100000, 4096});

} // namespace
