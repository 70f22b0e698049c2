#include "CentralisedBiscottiMessageDecoder.h"

#include "AsnExtraction.h"
#include "Logger.h"
#include "LoggerManager.h"

#include <algorithm>
#include <array>
#include <stdexcept>
#include <utility>
#include <xer_support.h>

Logger* CentralisedBiscottiMessageDecoder::log = LoggerManager::logger();

namespace
{

constexpr size_t constraintTextBytes = 128;

/// asn1c calls itself as deep as the schema goes, and in BER as deep as the structure guard lets it. Its own watch is
/// off: it takes the difference of two addresses for the depth of the stack, which it is not where a sanitizer keeps
/// local variables elsewhere.
asn_codec_ctx_t unmeasuredContext()
{
    return {.max_stack_size = 0};
}

} // namespace

CentralisedBiscottiMessageDecoder::CentralisedBiscottiMessageDecoder(Keychain* keychain, QObject* parent)
    : QObject(parent), _keychain(keychain)
{
}

void CentralisedBiscottiMessageDecoder::setDecoding(CentralisedBiscottiMessageDecoding decoding)
{
    reset();
    _decoding = decoding;
}

void CentralisedBiscottiMessageDecoder::reset()
{
    _buffer.clear();
    _envelope.reset();
    _rawBytes.clear();
    _berGuard.reset();
    _guarded = 0;
    _isStuck = false;
}

void CentralisedBiscottiMessageDecoder::appendBytes(QByteArray const& bytes)
{
    if (bytes.isEmpty())
        return;
    if (_isStuck) {
        LOG_WARNING("Could not interpret message.");
        emit errorDecoding();
        return;
    }
    _buffer.append(bytes);
    decodeBuffer();
}

void CentralisedBiscottiMessageDecoder::decodeBuffer()
{
    while (hasMore()) {
        Outcome const outcome = decodeMessage();
        if (outcome == Partial) {
            LOG_DEBUG("Read partial message. Waiting for more data.");
            return;
        }
        // A slot may bring more bytes, so that nothing of this message may be left in the members.
        AsnEnvelope const envelope = std::move(_envelope);
        QByteArray const rawBytes = std::exchange(_rawBytes, {});
        _berGuard.reset();
        _guarded = 0;
        if (outcome == Failed || !meetsConstraints(envelope)) {
            handleFailure();
            _isStuck = outcome == Failed && rawBytes.isEmpty();
            emit errorDecoding();
            return;
        }
        handleEnvelope(*envelope, rawBytes);
    }
}

/// Whether there are bytes of a message. Between messages in XER there may be line ends, which belong to none.
bool CentralisedBiscottiMessageDecoder::hasMore()
{
    if (_decoding == CentralisedBiscottiMessageDecoding::Xer && !_envelope && _rawBytes.isEmpty())
        _buffer.remove(
            0, static_cast<qsizetype>(xer_whitespace_span(_buffer.constData(), static_cast<size_t>(_buffer.size()))));
    return !_buffer.isEmpty();
}

/// Carries the message under way on with the bytes at the front of the buffer, and takes those that it needs.
CentralisedBiscottiMessageDecoder::Outcome CentralisedBiscottiMessageDecoder::decodeMessage()
{
    asn_dec_rval_t const result = _decoding == CentralisedBiscottiMessageDecoding::Ber ? decodeBer() : decodeXer();
    qsizetype const consumed = static_cast<qsizetype>(result.consumed);
    _rawBytes.append(_buffer.constData(), consumed);
    _buffer.remove(0, consumed);
    _guarded = std::max<qsizetype>(0, _guarded - consumed);

    if (result.code == RC_OK)
        return Decoded;
    if (result.code == RC_WMORE && !isTooMuch())
        return Partial;
    LOG_WARNING("Could not interpret message.");
    return Failed;
}

asn_dec_rval_t CentralisedBiscottiMessageDecoder::decodeBer()
{
    LOG_DEBUG("Decoding BER...");
    _guarded += _berGuard.follow(QByteArrayView(_buffer).sliced(_guarded));
    if (_berGuard.isBroken())
        return {RC_FAIL, static_cast<size_t>(_guarded)};

    asn_codec_ctx_t context = unmeasuredContext();
    void* structure = _envelope.release();
    asn_dec_rval_t result =
        ber_decode(&context, &asn_DEF_BiscEnvelope, &structure, _buffer.constData(), static_cast<size_t>(_guarded));
    _envelope.reset(static_cast<BiscEnvelope*>(structure));
    // Where the value is complete and the decoder has not found that, it never will.
    if (result.code == RC_WMORE && _berGuard.isComplete())
        result.code = RC_FAIL;
    return result;
}

asn_dec_rval_t CentralisedBiscottiMessageDecoder::decodeXer()
{
    LOG_DEBUG("Decoding XER...");
    asn_codec_ctx_t context = unmeasuredContext();
    void* structure = _envelope.release();
    asn_dec_rval_t const result = xer_decode(&context, &asn_DEF_BiscEnvelope, &structure, _buffer.constData(),
                                             static_cast<size_t>(_buffer.size()));
    _envelope.reset(static_cast<BiscEnvelope*>(structure));
    return result;
}

/// Whether a message that still wants more bytes is beyond its limits.
bool CentralisedBiscottiMessageDecoder::isTooMuch() const
{
    bool const isXer = _decoding == CentralisedBiscottiMessageDecoding::Xer;
    return _rawBytes.size() + _buffer.size() > centralisedBiscottiMaximumMessageBytes ||
           (isXer && _buffer.size() > maximumXerTokenBytes);
}

bool CentralisedBiscottiMessageDecoder::meetsConstraints(AsnEnvelope const& envelope) const
{
    std::array<char, constraintTextBytes> text{};
    size_t length = text.size();
    if (asn_check_constraints(&asn_DEF_BiscEnvelope, envelope.get(), text.data(), &length) == 0)
        return true;
    LOG_WARNING("Received message that failed constraint validation: %s.", text.data());
    return false;
}

/// A peer that goes on sending what cannot be understood must not fill the memory.
void CentralisedBiscottiMessageDecoder::handleFailure()
{
    if (_buffer.size() <= centralisedBiscottiMaximumMessageBytes)
        return;
    LOG_WARNING("Dropping %lld bytes behind a message that could not be interpreted.",
                static_cast<long long>(_buffer.size()));
    _buffer.clear();
}

void CentralisedBiscottiMessageDecoder::handleEnvelope(BiscEnvelope const& envelope, QByteArray const& rawBytes)
{
    if (envelope.present == BiscEnvelope_PR_signedMsg) {
        LOG_ERROR("Signed messages are not currently supported.");
    } else if (envelope.present == BiscEnvelope_PR_unsignedMsg) {
        LOG_DEBUG("Received unsigned message (%d bytes).", static_cast<int>(rawBytes.size()));
        parseMsg(envelope.choice.unsignedMsg, BiscottiSignatureId(), true, rawBytes);
    }
}

void CentralisedBiscottiMessageDecoder::parseMsg(BiscBaseMsg const& base, BiscottiSignatureId const& signatureId,
                                                 bool verified, QByteArray const& rawBytes)
{
    CentralisedBiscottiMessageId const id = AsnExtraction::messageId(base);
    try {
        switch (base.msg.present) {
        case BiscMsg_PR_heartbeat:
            emit heartbeatAvailable(id, AsnExtraction::heartbeat(base), signatureId, verified, rawBytes);
            break;
        case BiscMsg_PR_ack:
            emit ackAvailable(id, AsnExtraction::ack(base), signatureId, verified, rawBytes);
            break;
        case BiscMsg_PR_sub:
            emit subscriptionAvailable(id, AsnExtraction::subscription(base), signatureId, verified, rawBytes);
            break;
        case BiscMsg_PR_unsub:
            emit unsubscriptionAvailable(id, AsnExtraction::unsubscription(base), signatureId, verified, rawBytes);
            break;
        case BiscMsg_PR_post:
            emit postAvailable(id, AsnExtraction::post(base), signatureId, verified, rawBytes);
            break;
        default:
            LOG_WARNING("Read invalid message.");
        }
    } catch (std::logic_error const& error) {
        LOG_WARNING("Error parsing message: %s", error.what());
    }
}
