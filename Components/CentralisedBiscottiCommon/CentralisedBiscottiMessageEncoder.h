#pragma once

#include "AsnEnvelope.h"
#include "BiscottiPost.h"
#include "BiscottiSignatureId.h"
#include "BiscottiSubscriberId.h"
#include "BiscottiSubscription.h"
#include "BiscottiUnsubscription.h"
#include "CentralisedBiscottiAck.h"
#include "CentralisedBiscottiHeartbeat.h"
#include "CentralisedBiscottiMessageCoding.h"
#include "CentralisedBiscottiMessageId.h"

#include <QByteArray>
#include <QObject>

class Keychain;
class Logger;

/// Writes the messages that go to the central server: each answer is one complete BiscEnvelope of the schema
/// (Components/AsnCommon/BiscottiMessages.asn1). Texts go out as UTF-8; optional members are left out when empty.
///
/// An empty answer means that the message could not be written, and the reason is in the log: a time of sending
/// that is none, more than centralisedBiscottiMaximumMessageBytes, or a signature id that is not null, since nothing
/// is signed yet.
///
/// Lives on the thread that uses it.
class CentralisedBiscottiMessageEncoder : public QObject
{
    Q_OBJECT

public:
    /// The keychain is borrowed, for the day that messages are signed.
    explicit CentralisedBiscottiMessageEncoder(Keychain* keychain, QObject* parent = nullptr);

    /// Starts at Der.
    void setEncoding(CentralisedBiscottiMessageEncoding encoding) { _encoding = encoding; }

    QByteArray encodeHeartbeat(CentralisedBiscottiMessageId const& messageId,
                               CentralisedBiscottiHeartbeat const& heartbeat, BiscottiSignatureId const& signatureId);
    QByteArray encodeAck(CentralisedBiscottiMessageId const& messageId, CentralisedBiscottiAck const& ack,
                         BiscottiSignatureId const& signatureId);

    /// Throws std::logic_error for a subscription with neither fact nor interest; of both, the fact is sent.
    QByteArray encodeSubscription(CentralisedBiscottiMessageId const& messageId,
                                  BiscottiSubscriberId const& subscriberId, BiscottiSubscription const& subscription,
                                  BiscottiSignatureId const& signatureId);
    QByteArray encodeUnsubscription(CentralisedBiscottiMessageId const& messageId,
                                    BiscottiUnsubscription const& unsubscription,
                                    BiscottiSignatureId const& signatureId);
    QByteArray encodePost(CentralisedBiscottiMessageId const& messageId, BiscottiPost const& post,
                          BiscottiSignatureId const& signatureId);

private:
    template<typename Attach>
    QByteArray encodeMessage(CentralisedBiscottiMessageId const& messageId, BiscottiMessage const& message,
                             BiscottiSignatureId const& signatureId, Attach const& attach);
    QByteArray putInEnvelope(AsnEnvelope const& envelope, BiscottiSignatureId const& signatureId) const;
    QByteArray encodeAsnObj(AsnEnvelope const& envelope) const;
    asn_enc_rval_t write(AsnEnvelope const& envelope, asn_app_consume_bytes_f* consume, void* key) const;

    static Logger* log;

    [[maybe_unused]] Keychain* _keychain;
    CentralisedBiscottiMessageEncoding _encoding = CentralisedBiscottiMessageEncoding::Der;
};
