// A stream over MMS/TCP, as it arrives in pieces of the size that a socket delivers: how many bytes a second are cut
// into data packets and given to the owner. The baseline copies the same bytes once, piece by piece.

#include "DateTimeBuilder.h"
#include "Logger.h"
#include "LoggerManager.h"
#include "Memo.h"
#include "MemoQueue.h"
#include "TcpMmsClient.h"
#include "TcpMmsPacketizer.h"

#include <QList>

#include <benchmark/benchmark.h>
#include <cstring>
#include <memory>
#include <utility>
#include <vector>

namespace
{

constexpr qsizetype pieceBytes = 16384;
constexpr int pieces = 256;

/// Runs its memos when told, without times or owners: the cost of a real queue is measured elsewhere.
class PlainQueue : public MemoQueue
{
public:
    bool handleNow(Memo* memo) override { return handleSoon(0, memo); }
    bool handleSoon(unsigned int, Memo* memo) override
    {
        _memos.emplace_back(memo);
        return true;
    }
    void acquire(void*) override {}
    void release(void*) override {}
    void clear(void*) override {}
    void run()
    {
        for (std::unique_ptr<Memo> const& memo : std::exchange(_memos, {}))
            memo->handle();
    }

private:
    std::vector<std::unique_ptr<Memo>> _memos;
};

/// Data packets with payloads of that size, as one stream of bytes.
QByteArray streamOf(int payloadBytes)
{
    int const size = payloadBytes + 8;
    QByteArray packet(size, 'x');
    std::memcpy(packet.data(), "\x05\0\0\0\1\0", 6);
    packet[6] = static_cast<char>(size & 0xFF);
    packet[7] = static_cast<char>(size >> 8);
    QByteArray stream;
    while (stream.size() < pieceBytes * pieces)
        stream += packet;
    return stream.first(pieceBytes * pieces);
}

void copy(benchmark::State& state)
{
    QByteArray const stream = streamOf(static_cast<int>(state.range(0)));
    std::vector<char> target(pieceBytes);
    for ([[maybe_unused]] auto const& iteration : state) {
        for (int i = 0; i < pieces; ++i) {
            std::memcpy(target.data(), stream.constData() + i * pieceBytes, pieceBytes);
            benchmark::DoNotOptimize(target.data());
            benchmark::ClobberMemory();
        }
    }
    state.SetItemsProcessed(state.iterations() * stream.size());
}

void packetize(benchmark::State& state)
{
    LoggerManager::logger()->setLevel(Logger::Fatal);
    QByteArray const stream = streamOf(static_cast<int>(state.range(0)));
    PlainQueue queue;
    TcpMmsClient client(QString(), nullptr, nullptr, nullptr, &queue, nullptr);
    client.readingHeader();
    client.startStreaming();
    qint64 delivered = 0;
    QObject::connect(&client, &MmsClient::onData, [&](QByteArray const& packet) { delivered += packet.size(); });
    for ([[maybe_unused]] auto const& iteration : state) {
        QByteArray buffer;
        for (int i = 0; i < pieces; ++i) {
            buffer += QByteArrayView(stream).sliced(i * pieceBytes, pieceBytes);
            while (TcpMmsPacketizer::instance().probeBuffer(&client, buffer) == TcpMmsPacketizer::Taken) {
            }
            queue.run();
        }
    }
    benchmark::DoNotOptimize(delivered);
    state.SetItemsProcessed(state.iterations() * stream.size());
}

BENCHMARK(copy)->Name("Stream1400/Copy")->Arg(1400);
BENCHMARK(packetize)->Name("Stream1400/Packetize")->Arg(1400);
BENCHMARK(copy)->Name("Stream16000/Copy")->Arg(16000);
BENCHMARK(packetize)->Name("Stream16000/Packetize")->Arg(16000);

} // namespace
