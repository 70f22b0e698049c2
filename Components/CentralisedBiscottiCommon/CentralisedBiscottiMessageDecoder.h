#pragma once

#include "AsnEnvelope.h"
#include "BiscottiMessageCutter.h"
#include "BiscottiPost.h"
#include "BiscottiSignatureId.h"
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

/// Reads the messages of the central server: a stream of BiscEnvelopes of the schema
/// (Components/AsnCommon/BiscottiMessages.asn1), one after the other and split anywhere.
///
/// BER is cut into messages by BiscottiMessageCutter, and each is read when it is whole. A message is at most
/// centralisedBiscottiMaximumMessageBytes long; one that declares more is refused before it has come. What is held
/// never exceeds a small multiple of what has come. Signed messages are dropped.
///
/// Lives on the thread that uses it. Slots may call reset() and appendBytes(), but not delete the decoder.
class CentralisedBiscottiMessageDecoder : public QObject
{
    Q_OBJECT

public:
    /// The longest tag or number in XER. The parser reads one from its beginning each time more of it comes.
    static constexpr qsizetype maximumXerTokenBytes = 512;

    /// The keychain is borrowed, for the day that messages are verified.
    explicit CentralisedBiscottiMessageDecoder(Keychain* keychain, QObject* parent = nullptr);

    /// Starts at Ber. Forgets what was received so far.
    void setDecoding(CentralisedBiscottiMessageDecoding decoding);

    /// Takes the next bytes of the stream; the signals are emitted from within.
    void appendBytes(QByteArray const& bytes);

    /// Whether nothing says where the next message begins: the stream brings no more messages until reset().
    bool isOutOfStep() const { return _isOutOfStep; }

    /// Whether part of a message has come.
    bool isInMessage() const { return _cutter.bytesHeld() > 0 || !_rawBytes.isEmpty() || !_buffer.isEmpty(); }

    /// Forgets the bytes that are left and a message under way, before a new stream.
    void reset();

signals:
    // The last argument of each is the message as it came.
    void heartbeatAvailable(CentralisedBiscottiMessageId messageId, CentralisedBiscottiHeartbeat heartbeat,
                            BiscottiSignatureId signatureId, bool verified, QByteArray rawBytes);
    void ackAvailable(CentralisedBiscottiMessageId messageId, CentralisedBiscottiAck ack,
                      BiscottiSignatureId signatureId, bool verified, QByteArray rawBytes);
    void subscriptionAvailable(CentralisedBiscottiMessageId messageId, BiscottiSubscription subscription,
                               BiscottiSignatureId signatureId, bool verified, QByteArray rawBytes);
    void unsubscriptionAvailable(CentralisedBiscottiMessageId messageId, BiscottiUnsubscription unsubscription,
                                 BiscottiSignatureId signatureId, bool verified, QByteArray rawBytes);
    void postAvailable(CentralisedBiscottiMessageId messageId, BiscottiPost post, BiscottiSignatureId signatureId,
                       bool verified, QByteArray rawBytes);

    /// The bytes are no message, or one that breaks a constraint. Decoding stops until more bytes come, and then goes
    /// on behind that message. A stream that is out of step has this for all the bytes that still come.
    void errorDecoding();

private:
    void decodeBer();
    void decodeXer();
    AsnEnvelope readBer(QByteArray const& message) const;
    bool isTooMuchXer() const;
    bool meetsConstraints(AsnEnvelope const& envelope) const;
    void fail(bool losesStep);
    void handleEnvelope(BiscEnvelope const& envelope, QByteArray const& rawBytes);
    void parseMsg(BiscBaseMsg const& base, BiscottiSignatureId const& signatureId, bool verified,
                  QByteArray const& rawBytes);

    static Logger* log;

    [[maybe_unused]] Keychain* _keychain;
    CentralisedBiscottiMessageDecoding _decoding = CentralisedBiscottiMessageDecoding::Ber;
    bool _isOutOfStep = false;
    BiscottiMessageCutter _cutter; ///< Of BER.

    QByteArray _buffer;    ///< XER that was received and not yet understood.
    AsnEnvelope _envelope; ///< The message in XER under way.
    QByteArray _rawBytes;  ///< Its bytes that were understood.
};
