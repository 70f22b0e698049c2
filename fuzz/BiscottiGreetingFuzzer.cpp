#include "CentralisedBiscottiGreeting.h"

#include <cstdint>
#include <cstdlib>

/// Whatever a server opens with is refused, or read such that writing and reading it again changes nothing.
extern "C" int LLVMFuzzerTestOneInput(uint8_t const* data, size_t size)
{
    QByteArray const line(reinterpret_cast<char const*>(data), static_cast<qsizetype>(size));
    auto const greeting = CentralisedBiscottiGreeting::fromLine(line);
    if (!greeting)
        return 0;
    if (greeting->maxDataWaitMs() && !greeting->hasMaxDataWait())
        std::abort();
    if (greeting->toLine().size() > CentralisedBiscottiGreeting::maximumLineBytes)
        return 0; // The line had no end yet, which makes it one byte too long.
    auto const again = CentralisedBiscottiGreeting::fromLine(greeting->toLine());
    if (!again || again->notes() != greeting->notes() || again->protocolVersion() != greeting->protocolVersion() ||
        again->messageVersion() != greeting->messageVersion())
        std::abort();
    return 0;
}
