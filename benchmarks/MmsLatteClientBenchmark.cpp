// What a byte costs on its way through a MmsLatteClient's buffer, from the transport's signal to the movie's read,
// with little and with much in the buffer. The baseline copies the same bytes once, which any buffer has to do at
// least.

#include "MmsLatteClient.h"
#include "QtDateTimeBuilder.h"
#include "QtHttpClientFactory.h"
#include "QtTcpSocketFactory.h"
#include "QtTimerFactory.h"

#include <benchmark/benchmark.h>
#include <cstring>
#include <vector>

namespace
{

constexpr int packetSize = 4096;

void copy(benchmark::State& state)
{
    QByteArray const packet(packetSize, 'x');
    std::vector<char> out(packetSize);
    for ([[maybe_unused]] auto const& iteration : state) {
        std::memcpy(out.data(), packet.constData(), packetSize);
        benchmark::DoNotOptimize(out.data());
        benchmark::ClobberMemory();
    }
    state.SetItemsProcessed(state.iterations());
}

/// One packet in, one out, at a level of so many KiB.
void pass(benchmark::State& state)
{
    QtTimerFactory timers;
    QtTcpSocketFactory sockets;
    QtHttpClientFactory http;
    QtDateTimeBuilder dates;
    MmsLatteClient client("{guid}", Uri("mms://127.0.0.1/live"), &timers, &sockets, &http, &dates, nullptr);
    QByteArray const packet(packetSize, 'x');
    std::vector<char> out(packetSize);
    while (client.bytesAvailable() + packetSize < state.range(0) * 1024)
        client.onMmsData(packet);
    for ([[maybe_unused]] auto const& iteration : state) {
        client.onMmsData(packet);
        benchmark::DoNotOptimize(client.read(out.data(), packetSize));
    }
    state.SetItemsProcessed(state.iterations());
}

BENCHMARK(copy)->Name("PacketThroughTheBuffer/Copy");
BENCHMARK(pass)->Name("PacketThroughTheBuffer/Client")->Arg(64)->Arg(512)->Arg(5120);

} // namespace
