#include "MmsTcpRequestReader.h"

#include <cstddef>
#include <cstdint>

/// Messages in pieces, whose size the first byte tells.
extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size)
{
    if (size == 0)
        return 0;
    QByteArray const bytes(reinterpret_cast<char const*>(data) + 1, static_cast<qsizetype>(size) - 1);
    MmsTcpRequestReader reader;
    for (qsizetype place = 0, step = data[0] + 1; place < bytes.size(); place += step) {
        reader.add(bytes.mid(place, step));
        while (auto const request = reader.next()) {
            if (request->body.size() > MmsTcpRequestReader::maximumSize)
                __builtin_trap();
        }
    }
    return 0;
}
