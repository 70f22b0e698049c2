#include "FakeTcpSocketFactory.h"
#include "FakeTimerFactory.h"
#include "QtDateTimeBuilder.h"
#include "SortedMemoQueue.h"
#include "TcpMmsClient.h"
#include "TcpMmsMessage.h"

#include <QCoreApplication>

#include <algorithm>
#include <cstdint>
#include <cstdlib>

namespace
{

/// What all runs share: none of it holds anything of a run.
struct Surroundings {
    int argumentCount = 1;
    char name[5] = "fuzz";
    char* arguments[2] = {name, nullptr};
    QCoreApplication application{argumentCount, arguments};
    FakeTickCounter clock;
    FakeTimerFactory timers{clock};
    SortedMemoQueue queue{&clock, &timers};
    FakeTcpSocketFactory sockets;
    QtDateTimeBuilder dates;
};

} // namespace

/// Whatever a server sends, in pieces of whatever sizes, the session goes on or ends once. Each piece begins with a
/// byte that is its size, in steps that make long ones possible.
extern "C" int LLVMFuzzerTestOneInput(uint8_t const* data, size_t size)
{
    static Surroundings around;
    FakeTimerFactory& timers = around.timers;
    FakeTcpSocketFactory& sockets = around.sockets;
    TcpMmsClient client("{01234567-89ab-cdef-0123-456789abcdef}", &timers, &sockets, &around.dates, &around.queue,
                        nullptr);
    int ends = 0;
    QObject::connect(&client, &MmsClient::done, [&] { ++ends; });
    QObject::connect(&client, &MmsClient::onData, [&](QByteArray const& packet) {
        if (packet.size() > TcpMmsClient::maximumPacketSize)
            std::abort();
    });
    client.connectToServer(QUrl("mms://h/f"), QString(), 1000);
    sockets.sockets().constFirst()->accept();
    size_t position = 0;
    while (position < size && ends == 0) {
        size_t const piece = std::min<size_t>(data[position] < 128 ? data[position] : (data[position] - 127) * 256,
                                              size - position - 1);
        sockets.sockets().constFirst()->receive(
            QByteArray(reinterpret_cast<char const*>(data + position + 1), static_cast<qsizetype>(piece)));
        position += piece + 1;
        timers.advance(0);
    }
    timers.advance(5000);
    if (ends != 1 || !sockets.sockets().isEmpty())
        std::abort();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    return 0;
}
