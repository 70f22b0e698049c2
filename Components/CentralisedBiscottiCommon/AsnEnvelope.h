#pragma once

#include <BiscEnvelope.h>
#include <memory>

/// Frees a message of the generated code with all that hangs on it, however far it was filled.
struct AsnEnvelopeDeleter {
    void operator()(BiscEnvelope* envelope) const { ASN_STRUCT_FREE(asn_DEF_BiscEnvelope, envelope); }
};

/// An owned message of the generated code.
using AsnEnvelope = std::unique_ptr<BiscEnvelope, AsnEnvelopeDeleter>;

/// Bytes of room for what the generated code says of a constraint that is not met.
constexpr size_t constraintTextBytes = 128;
