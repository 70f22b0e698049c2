#include "WebCacheInfo.h"

#include <cstdint>
#include <cstdlib>

/// Whatever is found in the place of an information file: refused, or read, and then the same when written and read
/// again.
extern "C" int LLVMFuzzerTestOneInput(uint8_t const* data, size_t size)
{
    QByteArray const bytes(reinterpret_cast<char const*>(data), static_cast<qsizetype>(size));
    std::optional<WebCacheInfo> const info = WebCacheInfo::parse(bytes);
    if (!info)
        return 0;
    QByteArray const written = info->toXml();
    std::optional<WebCacheInfo> const again = WebCacheInfo::parse(written);
    // What is longer than a file may be, once it has been escaped, is refused.
    if (!again && written.size() <= WebCacheInfo::maximumBytes)
        std::abort();
    if (again &&
        (again->expiresAt != info->expiresAt || again->lastModified.isValid() != info->lastModified.isValid()))
        std::abort();
    return 0;
}
