#include "CentralisedBiscottiAck.h"

namespace
{

QMap<CentralisedBiscottiAck::AckCode, QString> const& descriptions()
{
    using Ack = CentralisedBiscottiAck;
    static QMap<Ack::AckCode, QString> const table{
        {Ack::UnspecifiedError, QStringLiteral("Unspecified error.")},
        {Ack::Ok, QStringLiteral("OK")},
        {Ack::Malformed, QStringLiteral("Message was malformed.")},
        {Ack::Refused, QStringLiteral("Server is refusing to fulfill the message.")},
        {Ack::SubscriptionNotFound, QStringLiteral("Specified subscription is not registered.")},
        {Ack::BodyTooLarge, QStringLiteral("Post body is too large.")},
        {Ack::InternalServerError, QStringLiteral("Internal server error.")},
        {Ack::TemporaryServerError, QStringLiteral("Temporary server error.")},
        {Ack::SignatureRequired, QStringLiteral("Message must be signed.")},
        {Ack::SignatureNotVerified, QStringLiteral("Signed message could not be verified.")},
        {Ack::SubscriptionIdExists, QStringLiteral("Subscription ID already exists.")},
        {Ack::MessageIdExists, QStringLiteral("Message ID already exists.")},
    };
    return table;
}

} // namespace

CentralisedBiscottiAck::CentralisedBiscottiAck() : _descriptions(descriptions()) {}

QString CentralisedBiscottiAck::ackDescription() const
{
    return _descriptions.value(_ackCode, QStringLiteral("<UNKNOWN>"));
}

QString CentralisedBiscottiAck::toString() const
{
    return u"[ACK] " + BiscottiMessage::toString() + u", AckCode:=" + QString::number(_ackCode) +
           u", AckDescription:=" + ackDescription() + u", AckMsgId:=" + _ackMsgId.toString();
}
