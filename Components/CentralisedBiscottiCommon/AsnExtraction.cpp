#include "AsnExtraction.h"

#include <BiscTime.h>
#include <stdexcept>
#include <utility>

namespace
{

QByteArray bytesOf(OCTET_STRING_t const& member)
{
    return QByteArray(reinterpret_cast<char const*>(member.buf), member.size);
}

QString textOf(OCTET_STRING_t const& member)
{
    return QString::fromUtf8(reinterpret_cast<char const*>(member.buf), member.size);
}

QString textOf(OCTET_STRING_t const* optionalMember)
{
    return optionalMember ? textOf(*optionalMember) : QString();
}

/// Null for what is no day of the calendar, such as the 30th of February: the message is good for all that.
QDateTime timeOf(BiscTime const& member)
{
    constexpr long lastYear = 9999; // The schema sets no limit, but QDateTime and people do.
    if (member.year < 1 || member.year > lastYear)
        return {};
    QDate const date(static_cast<int>(member.year), static_cast<int>(member.month), static_cast<int>(member.day));
    if (!date.isValid())
        return {};
    QTime const time(static_cast<int>(member.hour), static_cast<int>(member.minute), static_cast<int>(member.second),
                     static_cast<int>(member.millisecond));
    return QDateTime(date, time, Qt::UTC);
}

template<typename Message>
Message reattachBiscottiBaseMsg(BiscBaseMsg const& base)
{
    Message message;
    message.setSenderId(textOf(base.senderId));
    message.setSenderName(textOf(base.senderName));
    message.setSenderReplyTo(textOf(base.senderReplyTo));
    if (base.sendUtc)
        message.setSendUtc(timeOf(*base.sendUtc));
    return message;
}

} // namespace

CentralisedBiscottiMessageId AsnExtraction::messageId(BiscBaseMsg const& base)
{
    return CentralisedBiscottiMessageId(textOf(base.msgId));
}

CentralisedBiscottiHeartbeat AsnExtraction::heartbeat(BiscBaseMsg const& base)
{
    return reattachBiscottiBaseMsg<CentralisedBiscottiHeartbeat>(base);
}

CentralisedBiscottiAck AsnExtraction::ack(BiscBaseMsg const& base)
{
    using Ack = CentralisedBiscottiAck;
    BiscAckMsg const& body = base.msg.choice.ack;
    Ack result = reattachBiscottiBaseMsg<Ack>(base);
    result.setAckMsgId(CentralisedBiscottiMessageId(textOf(body.ackMsgId)));
    result.setAckCode(std::in_range<int>(body.ackCode) ? static_cast<Ack::AckCode>(body.ackCode)
                                                       : Ack::UnspecifiedError);
    return result;
}

BiscottiSubscription AsnExtraction::subscription(BiscBaseMsg const& base)
{
    BiscSubMsg const& body = base.msg.choice.sub;
    BiscottiSubscription result = reattachBiscottiBaseMsg<BiscottiSubscription>(base);
    result.setSubscriptionId(BiscottiSubscriptionId(textOf(body.subscriptionId)));
    if (body.subChoice.present == subChoice_PR_subFact)
        result.setFact(BiscottiTopic(textOf(body.subChoice.choice.subFact)));
    else if (body.subChoice.present == subChoice_PR_subInterest)
        result.setInterest(BiscottiTopicExpression(textOf(body.subChoice.choice.subInterest)));
    else
        throw std::logic_error("Encoded subscription does not contain fact or interest.");
    return result;
}

BiscottiUnsubscription AsnExtraction::unsubscription(BiscBaseMsg const& base)
{
    BiscottiUnsubscription result = reattachBiscottiBaseMsg<BiscottiUnsubscription>(base);
    result.setSubscriptionId(BiscottiSubscriptionId(textOf(base.msg.choice.unsub.unsubId)));
    return result;
}

BiscottiPost AsnExtraction::post(BiscBaseMsg const& base)
{
    BiscPostMsg const& body = base.msg.choice.post;
    BiscottiPost result = reattachBiscottiBaseMsg<BiscottiPost>(base);
    result.setPostId(BiscottiPostId(textOf(body.postId)));
    QList<BiscottiTopic> topics;
    for (int i = 0; i < body.postTopics.list.count; ++i)
        topics.append(BiscottiTopic(textOf(*body.postTopics.list.array[i])));
    result.setTopics(topics);
    result.setAudience(BiscottiTopicExpression(textOf(body.postAudience)));
    if (body.postBody)
        result.setBody(bytesOf(*body.postBody));
    return result;
}
