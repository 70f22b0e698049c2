#include "HttpRequestReader.h"
#include "MmsHttpRequest.h"

#include <cstddef>
#include <cstdint>

/// Requests in pieces, whose size the first byte tells.
extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size)
{
    if (size == 0)
        return 0;
    QByteArray const bytes(reinterpret_cast<char const*>(data) + 1, static_cast<qsizetype>(size) - 1);
    HttpRequestReader reader;
    for (qsizetype place = 0, step = data[0] + 1; place < bytes.size(); place += step) {
        HttpRequestReader::Result result = reader.next(bytes.mid(place, step));
        for (; result == HttpRequestReader::Result::Complete; result = reader.next({}))
            MmsHttpRequest const request(reader.request());
    }
    return 0;
}
