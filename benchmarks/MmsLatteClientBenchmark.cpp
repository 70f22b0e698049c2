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

void ring(benchmark::State& state)
{
    QByteArray const packet(packetSize, 'x');
    std::vector<char> out(packetSize);
    std::vector<char> bytes(static_cast<size_t>(state.range(0)) * 1024);
    size_t end = 0;
    for ([[maybe_unused]] auto const& iteration : state) {
        std::memcpy(bytes.data() + end, packet.constData(), packetSize);
        end = (end + packetSize) % bytes.size(); // The oldest packet is the next to be overwritten.
        std::memcpy(out.data(), bytes.data() + end, packetSize);
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

BENCHMARK(ring)->Name("Through64KiB/Ring")->Arg(64);
BENCHMARK(pass)->Name("Through64KiB/Client")->Arg(64);
BENCHMARK(ring)->Name("Through5MiB/Ring")->Arg(5120);
BENCHMARK(pass)->Name("Through5MiB/Client")->Arg(5120);

} // namespace
