#include "HttpResponseHeader.h"

#include <cstdint>
#include <cstdlib>

/// Whatever a server sends is refused, or read such that writing and reading it again changes nothing.
extern "C" int LLVMFuzzerTestOneInput(uint8_t const* data, size_t size)
{
    QString const text = QString::fromLatin1(reinterpret_cast<char const*>(data), static_cast<qsizetype>(size));
    HttpResponseHeader const header(text);
    if (!header.isValid())
        return header.values().isEmpty() ? 0 : (std::abort(), 0);
    if (HttpResponseHeader(header.toString()) != header || header.contentLength() < 0)
        std::abort();
    for (QString const& key : header.keys())
        if (header.allValues(key).isEmpty() || header.value(key) != header.allValues(key).constFirst())
            std::abort();
    static_cast<void>(header.contentType());
    return 0;
}
