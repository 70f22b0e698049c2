#include "ApiCall.h"
#include "LogInText.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>

// The calls of the SOAP interface, and the sign-in that one of them brings.
extern "C" int LLVMFuzzerTestOneInput(uint8_t const* data, size_t size)
{
    QString error;
    QByteArray const bytes(reinterpret_cast<char const*>(data), static_cast<qsizetype>(size));
    auto const call = ApiCall::read(bytes, error);
    if (call ? call->arguments.size() > ApiCall::maximumArguments : error.isEmpty())
        std::abort();
    LogInText::read(call ? call->argument("login") : QString::fromLatin1(bytes));
    return 0;
}
