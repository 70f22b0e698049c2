#include "CentralisedBiscottiMessageDecoder.h"

#include "AsnExtraction.h"
#include "Logger.h"
#include "LoggerManager.h"

#include <array>
#include <stdexcept>
#include <utility>
#include <xer_support.h>

Logger* CentralisedBiscottiMessageDecoder::log = LoggerManager::logger();

namespace
{

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
    _isOutOfStep = false;
    _cutter.reset();
    _buffer.clear();
    _envelope.reset();
    _rawBytes.clear();
}

void CentralisedBiscottiMessageDecoder::appendBytes(QByteArray const& bytes)
{
    if (bytes.isEmpty())
        return;
    if (_isOutOfStep)
        return fail(true);
    if (_decoding == CentralisedBiscottiMessageDecoding::Ber) {
        _cutter.add(bytes);
        decodeBer();
    } else {
        _buffer.append(bytes);
        decodeXer();
    }
}

void CentralisedBiscottiMessageDecoder::decodeBer()
{
    // A slot may bring more bytes, or begin a new stream: nothing of a message is kept over its signal.
    while (std::optional<QByteArray> const message = _cutter.next()) {
        AsnEnvelope const envelope = readBer(*message);
        if (!envelope || !meetsConstraints(envelope))
            // A peer that goes on sending what cannot be understood must not fill the memory.
            return fail(_cutter.bytesHeld() > centralisedBiscottiMaximumMessageBytes);
        handleEnvelope(*envelope, *message);
    }
    if (_cutter.isOutOfStep()) {
        LOG_WARNING("Could not interpret message.");
        fail(true);
    } else if (_cutter.bytesHeld() > 0) {
        LOG_DEBUG("Read partial message. Waiting for more data.");
    }
}

/// The message; null, with a log line, if it is none of the schema.
AsnEnvelope CentralisedBiscottiMessageDecoder::readBer(QByteArray const& message) const
{
    LOG_DEBUG("Decoding BER...");
    asn_codec_ctx_t context = unmeasuredContext();
    void* structure = nullptr;
    asn_dec_rval_t const result = ber_decode(&context, &asn_DEF_BiscEnvelope, &structure, message.constData(),
                                             static_cast<size_t>(message.size()));
    AsnEnvelope envelope(static_cast<BiscEnvelope*>(structure));
    if (result.code == RC_OK)
        return envelope;
    LOG_WARNING("Could not interpret message.");
    return {};
}

void CentralisedBiscottiMessageDecoder::decodeXer()
{
    while (true) {
        // Between messages there may be line ends, which belong to none.
        if (!_envelope && _rawBytes.isEmpty())
            _buffer.remove(0, static_cast<qsizetype>(
                                  xer_whitespace_span(_buffer.constData(), static_cast<size_t>(_buffer.size()))));
        if (_buffer.isEmpty())
            return;
        LOG_DEBUG("Decoding XER...");
        asn_codec_ctx_t context = unmeasuredContext();
        void* structure = _envelope.release();
        asn_dec_rval_t const result = xer_decode(&context, &asn_DEF_BiscEnvelope, &structure, _buffer.constData(),
                                                 static_cast<size_t>(_buffer.size()));
        _envelope.reset(static_cast<BiscEnvelope*>(structure));
        _rawBytes.append(_buffer.constData(), static_cast<qsizetype>(result.consumed));
        _buffer.remove(0, static_cast<qsizetype>(result.consumed));
        if (result.code == RC_WMORE && !isTooMuchXer()) {
            LOG_DEBUG("Read partial message. Waiting for more data.");
            return;
        }
        // A slot may bring more bytes, so that nothing of this message may be left in the members.
        AsnEnvelope const envelope = std::move(_envelope);
        QByteArray const rawBytes = std::exchange(_rawBytes, {});
        if (result.code != RC_OK) {
            LOG_WARNING("Could not interpret message.");
            return fail(true);
        }
        if (!meetsConstraints(envelope))
            return fail(_buffer.size() > centralisedBiscottiMaximumMessageBytes);
        handleEnvelope(*envelope, rawBytes);
    }
}

/// Whether a message that still wants more bytes is beyond its limits.
bool CentralisedBiscottiMessageDecoder::isTooMuchXer() const
{
    return _rawBytes.size() + _buffer.size() > centralisedBiscottiMaximumMessageBytes ||
           _buffer.size() > maximumXerTokenBytes;
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

void CentralisedBiscottiMessageDecoder::fail(bool losesStep)
{
    if (losesStep) {
        reset();
        _isOutOfStep = true;
    }
    emit errorDecoding();
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
