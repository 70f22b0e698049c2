#include "BiscottiFuzz.h"

/// The bytes of a stream of messages in BER, split where the first bytes say.
extern "C" int LLVMFuzzerTestOneInput(uint8_t const* data, size_t size)
{
    BiscottiFuzz::run(data, size, CentralisedBiscottiMessageDecoding::Ber, CentralisedBiscottiMessageEncoding::Der);
    return 0;
}
