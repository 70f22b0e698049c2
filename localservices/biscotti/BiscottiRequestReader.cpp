#include "BiscottiRequestReader.h"

#include "AsnEnvelope.h"
#include "AsnExtraction.h"

#include <array>
#include <memory>
#include <stdexcept>

namespace
{

constexpr size_t constraintTextBytes = 128;

struct BaseMsgDeleter {
    void operator()(BiscBaseMsg* message) const { ASN_STRUCT_FREE(asn_DEF_BiscBaseMsg, message); }
};

/// Reads what must be one whole value. Answers as much of it as could be read, and sets `good` to whether it was all.
template<typename Owner>
Owner decode(asn_TYPE_descriptor_t const& type, QByteArrayView bytes, bool& good)
{
    // asn1c's own watch over its stack is off: the cutter has bounded the depth.
    asn_codec_ctx_t context = {.max_stack_size = 0};
    void* structure = nullptr;
    asn_dec_rval_t const result = ber_decode(&context, const_cast<asn_TYPE_descriptor_t*>(&type), &structure,
                                             bytes.data(), static_cast<size_t>(bytes.size()));
    good = result.code == RC_OK;
    return Owner(static_cast<typename Owner::pointer>(structure));
}

QString brokenConstraint(BiscEnvelope const& envelope)
{
    std::array<char, constraintTextBytes> text{};
    size_t length = text.size();
    if (asn_check_constraints(&asn_DEF_BiscEnvelope, &envelope, text.data(), &length) == 0)
        return {};
    return QString::fromUtf8(text.data());
}

BiscottiRequest::Body bodyOf(BiscBaseMsg const& base)
{
    try {
        switch (base.msg.present) {
        case BiscMsg_PR_heartbeat:
        case BiscMsg_PR_ack:
            return BiscottiRequest::Nothing();
        case BiscMsg_PR_sub:
            return AsnExtraction::subscription(base);
        case BiscMsg_PR_unsub:
            return AsnExtraction::unsubscription(base);
        case BiscMsg_PR_post:
            return AsnExtraction::post(base);
        default:
            return BiscottiRequest::Malformed{QStringLiteral("it is of no known kind")};
        }
    } catch (std::logic_error const& error) {
        return BiscottiRequest::Malformed{QString::fromUtf8(error.what())};
    }
}

/// The id of the message inside a signed one. The bytes inside are a value of their own, with a depth of its own.
CentralisedBiscottiMessageId idOfSigned(BiscSignedMsg const& message)
{
    QByteArrayView const bytes(message.baseMsg.buf, message.baseMsg.size);
    BerStructureGuard guard;
    if (bytes.isEmpty() || guard.follow(bytes) != bytes.size() || !guard.isComplete())
        return {};
    bool good = false;
    auto const base = decode<std::unique_ptr<BiscBaseMsg, BaseMsgDeleter>>(asn_DEF_BiscBaseMsg, bytes, good);
    return good ? AsnExtraction::messageId(*base) : CentralisedBiscottiMessageId();
}

BiscottiRequest read(QByteArrayView bytes)
{
    bool good = false;
    AsnEnvelope const envelope = decode<AsnEnvelope>(asn_DEF_BiscEnvelope, bytes, good);
    BiscottiRequest request;
    request.body = BiscottiRequest::Malformed{QStringLiteral("it is not of the schema")};
    if (!envelope)
        return request;
    // What was read before the mistake may hold the id, under which the client wants to hear of it.
    bool const isUnsigned = envelope->present == BiscEnvelope_PR_unsignedMsg;
    if (isUnsigned && envelope->choice.unsignedMsg.msgId.buf)
        request.id = AsnExtraction::messageId(envelope->choice.unsignedMsg);
    if (!good)
        return request;
    if (QString const text = brokenConstraint(*envelope); !text.isEmpty())
        request.body = BiscottiRequest::Malformed{text};
    else if (isUnsigned)
        request.body = bodyOf(envelope->choice.unsignedMsg);
    else
        request = {idOfSigned(envelope->choice.signedMsg), BiscottiRequest::Signed()};
    return request;
}

} // namespace

std::optional<BiscottiRequest> BiscottiRequestReader::next()
{
    std::optional<QByteArray> const message = _cutter.next();
    return message ? std::optional(read(*message)) : std::nullopt;
}
