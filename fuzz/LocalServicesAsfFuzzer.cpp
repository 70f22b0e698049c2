#include "AsfBroadcastHeader.h"
#include "AsfPacket.h"

#include <cstddef>
#include <cstdint>

/// A header and a data packet of a film, apart: the first byte tells which.
extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size)
{
    if (size == 0)
        return 0;
    QByteArray const bytes(reinterpret_cast<char const*>(data) + 1, static_cast<qsizetype>(size) - 1);
    if (data[0] == 'h') {
        QString error;
        if (auto const header = AsfHeader::parse(bytes, error))
            AsfBroadcastHeader::make(bytes, *header, QStringLiteral("title"));
        return 0;
    }
    if (auto packet = AsfPacket::parse(bytes)) {
        packet->shift(0x01234567, {{1, 300}, {2, 70000}});
        for (int stream = 0; stream < 3; ++stream) {
            QByteArray const filtered =
                packet->filtered([&](AsfPacket::Payload const& payload) { return payload.stream == stream; });
            if (!filtered.isEmpty() && filtered.size() != bytes.size())
                __builtin_trap();
        }
    }
    return 0;
}
