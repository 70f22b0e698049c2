#include "CentralisedBiscottiMessageEncoder.h"

#include "AsnAttachment.h"
#include "Logger.h"
#include "LoggerManager.h"

#include <QDataStream>
#include <QIODevice>

#include <array>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <new>
#include <stdexcept>

Logger* CentralisedBiscottiMessageEncoder::log = LoggerManager::logger();

namespace
{

int appendToStream(void const* bytes, size_t size, void* stream)
{
    int const length = static_cast<int>(size);
    return static_cast<QDataStream*>(stream)->writeRawData(static_cast<char const*>(bytes), length) == length ? 0
                                                                                                              : -1;
}

} // namespace

CentralisedBiscottiMessageEncoder::CentralisedBiscottiMessageEncoder(Keychain* keychain, QObject* parent)
    : QObject(parent), _keychain(keychain)
{
}

QByteArray CentralisedBiscottiMessageEncoder::encodeHeartbeat(CentralisedBiscottiMessageId const& messageId,
                                                              CentralisedBiscottiHeartbeat const& heartbeat,
                                                              BiscottiSignatureId const& signatureId)
{
    return encodeMessage(messageId, heartbeat, signatureId,
                         [](BiscMsg& body) { AsnAttachment::attachHeartbeat(body); });
}

QByteArray CentralisedBiscottiMessageEncoder::encodeAck(CentralisedBiscottiMessageId const& messageId,
                                                        CentralisedBiscottiAck const& ack,
                                                        BiscottiSignatureId const& signatureId)
{
    return encodeMessage(messageId, ack, signatureId, [&ack](BiscMsg& body) { AsnAttachment::attachAck(body, ack); });
}

QByteArray CentralisedBiscottiMessageEncoder::encodeSubscription(CentralisedBiscottiMessageId const& messageId,
                                                                 BiscottiSubscriberId const& subscriberId,
                                                                 BiscottiSubscription const& subscription,
                                                                 BiscottiSignatureId const& signatureId)
{
    return encodeMessage(messageId, subscription, signatureId,
                         [&](BiscMsg& body) { AsnAttachment::attachSubscription(body, subscriberId, subscription); });
}

QByteArray CentralisedBiscottiMessageEncoder::encodeUnsubscription(CentralisedBiscottiMessageId const& messageId,
                                                                   BiscottiUnsubscription const& unsubscription,
                                                                   BiscottiSignatureId const& signatureId)
{
    return encodeMessage(messageId, unsubscription, signatureId, [&unsubscription](BiscMsg& body) {
        AsnAttachment::attachUnsubscription(body, unsubscription);
    });
}

QByteArray CentralisedBiscottiMessageEncoder::encodePost(CentralisedBiscottiMessageId const& messageId,
                                                         BiscottiPost const& post,
                                                         BiscottiSignatureId const& signatureId)
{
    return encodeMessage(messageId, post, signatureId,
                         [&post](BiscMsg& body) { AsnAttachment::attachPost(body, post); });
}

template<typename Attach>
QByteArray CentralisedBiscottiMessageEncoder::encodeMessage(CentralisedBiscottiMessageId const& messageId,
                                                            BiscottiMessage const& message,
                                                            BiscottiSignatureId const& signatureId,
                                                            Attach const& attach)
{
    AsnEnvelope const envelope(static_cast<BiscEnvelope*>(std::calloc(1, sizeof(BiscEnvelope))));
    if (!envelope)
        throw std::bad_alloc();
    envelope->present = BiscEnvelope_PR_unsignedMsg;
    BiscBaseMsg& base = envelope->choice.unsignedMsg;
    try {
        AsnAttachment::attachBaseMsg(base, messageId, message);
        attach(base.msg);
    } catch (std::length_error const& error) {
        LOG_ERROR("Cannot encode message %s: %s", qUtf8Printable(messageId.toString()), error.what());
        return {};
    }
    return putInEnvelope(envelope, signatureId);
}

QByteArray CentralisedBiscottiMessageEncoder::putInEnvelope(AsnEnvelope const& envelope,
                                                            BiscottiSignatureId const& signatureId) const
{
    if (!signatureId.isNull()) {
        LOG_ERROR("Signatures are not currently supported.");
        return {};
    }
    return encodeAsnObj(envelope);
}

QByteArray CentralisedBiscottiMessageEncoder::encodeAsnObj(AsnEnvelope const& envelope) const
{
    std::array<char, constraintTextBytes> text{};
    size_t length = text.size();
    if (asn_check_constraints(&asn_DEF_BiscEnvelope, envelope.get(), text.data(), &length) != 0) {
        LOG_ERROR("Trying to encode object that fails constraint validation (%d): %s.", static_cast<int>(length),
                  text.data());
        return {};
    }

    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    asn_enc_rval_t const result = write(envelope, appendToStream, &stream);
    if (result.encoded < 0) {
        LOG_ERROR("Cannot encode %s: %s", result.failed_type ? result.failed_type->name : asn_DEF_BiscEnvelope.name,
                  std::strerror(errno));
        return {};
    }
    if (bytes.size() > centralisedBiscottiMaximumMessageBytes) {
        LOG_ERROR("Cannot encode %s: its %lld bytes are more than a message may have.", asn_DEF_BiscEnvelope.name,
                  static_cast<long long>(bytes.size()));
        return {};
    }
    return bytes;
}

asn_enc_rval_t CentralisedBiscottiMessageEncoder::write(AsnEnvelope const& envelope, asn_app_consume_bytes_f* consume,
                                                        void* key) const
{
    switch (_encoding) {
    case CentralisedBiscottiMessageEncoding::CanonicalXer:
        LOG_DEBUG("Encoding Canonical XER...");
        return xer_encode(&asn_DEF_BiscEnvelope, envelope.get(), XER_F_CANONICAL, consume, key);
    case CentralisedBiscottiMessageEncoding::BasicXer:
        LOG_DEBUG("Encoding Basic XER...");
        return xer_encode(&asn_DEF_BiscEnvelope, envelope.get(), XER_F_BASIC, consume, key);
    case CentralisedBiscottiMessageEncoding::Der:
        break;
    }
    LOG_DEBUG("Encoding DER...");
    return der_encode(&asn_DEF_BiscEnvelope, envelope.get(), consume, key);
}
