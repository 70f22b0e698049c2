#include "SoapLoginResponse.h"
#include "SoapReply.h"
#include "SoapSignup.h"
#include "SoapUserChannel.h"

#include <cstdint>
#include <cstdlib>

namespace
{

/// Members lie as deep as elements do, and there are no more of them.
int count(SoapValue const& value, int depth = 1)
{
    if (depth > SoapReply::maximumDepth)
        std::abort();
    int number = 1;
    for (SoapValue const& member : value.members())
        number += count(member, depth + 1);
    return number;
}

} // namespace

/// Whatever answers a call, as each kind of answer that is read.
extern "C" int LLVMFuzzerTestOneInput(uint8_t const* data, size_t size)
{
    QByteArray const bytes(reinterpret_cast<char const*>(data), static_cast<qsizetype>(size));
    SoapReply const reply = SoapReply::read(bytes, "M");
    SoapValue const value = reply.returnValue();
    bool const isTold = reply.isFault() != reply.faultString().isEmpty();
    if (!isTold || (reply.isFault() && value.isValid()) || count(value) > SoapReply::maximumElements)
        std::abort();
    SoapLoginResponse::read(value);
    SoapUserChannel::read(value);
    SoapSignup::errorsIn(QString::fromUtf8(bytes));
    SoapSignup::errorsIn(value.toString());
    return 0;
}
