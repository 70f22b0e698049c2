#pragma once

#include "BiscottiMessage.h"
#include "CentralisedBiscottiMessageId.h"

#include <QMap>
#include <QMetaType>
#include <QString>

/// The server's answer to one message: done, or why not.
class CentralisedBiscottiAck : public BiscottiMessage
{
public:
    /// What became of the message. Only Ok is a success; a server may send codes that are not listed.
    enum AckCode : int {
        UnspecifiedError = 0,
        Ok = 200,
        Malformed = 400,
        Refused = 403,
        SubscriptionNotFound = 404,
        BodyTooLarge = 413,
        InternalServerError = 500,
        TemporaryServerError = 503,
        SignatureRequired = 4011,
        SignatureNotVerified = 4012,
        SubscriptionIdExists = 4091,
        MessageIdExists = 4092
    };

    CentralisedBiscottiAck();

    /// The message that is acknowledged.
    CentralisedBiscottiMessageId ackMsgId() const { return _ackMsgId; }
    void setAckMsgId(CentralisedBiscottiMessageId const& ackMsgId) { _ackMsgId = ackMsgId; }

    CentralisedBiscottiAck::AckCode ackCode() const { return _ackCode; }
    void setAckCode(CentralisedBiscottiAck::AckCode ackCode) { _ackCode = ackCode; }

    /// The code in words; "<UNKNOWN>" for one that is not listed.
    QString ackDescription() const;

    QString toString() const override;

private:
    CentralisedBiscottiMessageId _ackMsgId;
    AckCode _ackCode = UnspecifiedError;
    QMap<AckCode, QString> _descriptions; ///< Shared by all acks.
};

Q_DECLARE_METATYPE(CentralisedBiscottiAck)
inline int const centralisedBiscottiAckMetaType = qRegisterMetaType<CentralisedBiscottiAck>("CentralisedBiscottiAck");
