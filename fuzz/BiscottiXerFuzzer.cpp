#include "BiscottiFuzz.h"

/// The bytes of a stream of messages in XER, split where the first bytes say.
extern "C" int LLVMFuzzerTestOneInput(uint8_t const* data, size_t size)
{
    BiscottiFuzz::run(data, size, CentralisedBiscottiMessageDecoding::Xer,
                      CentralisedBiscottiMessageEncoding::CanonicalXer);
    return 0;
}
