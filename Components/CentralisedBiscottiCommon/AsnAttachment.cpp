#include "AsnAttachment.h"

#include "CentralisedBiscottiMessageCoding.h"

#include <BiscTime.h>
#include <asn_SEQUENCE_OF.h>
#include <cstdlib>
#include <new>
#include <stdexcept>

namespace
{

/// A zeroed structure from the allocator that the generated code frees with.
template<typename Structure>
Structure* allocate()
{
    void* const memory = std::calloc(1, sizeof(Structure));
    if (!memory)
        throw std::bad_alloc();
    return static_cast<Structure*>(memory);
}

void assign(OCTET_STRING_t& member, QByteArray const& bytes)
{
    if (bytes.size() > centralisedBiscottiMaximumMessageBytes)
        throw std::length_error("A member is larger than a message may be.");
    if (OCTET_STRING_fromBuf(&member, bytes.constData(), static_cast<int>(bytes.size())) != 0)
        throw std::bad_alloc();
}

void assign(OCTET_STRING_t& member, QString const& text)
{
    assign(member, text.toUtf8());
}

/// Leaves the optional member out if there is nothing to say.
template<typename Value>
void assignUnlessEmpty(OCTET_STRING_t*& member, Value const& value)
{
    if (value.isEmpty())
        return;
    member = allocate<OCTET_STRING_t>();
    assign(*member, value);
}

/// The null topic has no text of its own: its string is meant for people.
QString wireText(BiscottiTopic const& topic)
{
    return topic.isNull() ? QString() : topic.toString();
}

void assign(BiscTime& member, QDateTime const& time)
{
    QDate const date = time.date();
    QTime const timeOfDay = time.time();
    member.year = date.year();
    member.month = date.month();
    member.day = date.day();
    member.hour = timeOfDay.hour();
    member.minute = timeOfDay.minute();
    member.second = timeOfDay.second();
    member.millisecond = timeOfDay.msec();
}

} // namespace

void AsnAttachment::attachBaseMsg(BiscBaseMsg& base, CentralisedBiscottiMessageId const& messageId,
                                  BiscottiMessage const& message)
{
    assign(base.msgId, messageId.toString());
    assignUnlessEmpty(base.senderId, message.senderId());
    assignUnlessEmpty(base.senderName, message.senderName());
    assignUnlessEmpty(base.senderReplyTo, message.senderReplyTo());
    if (!message.sendUtc().isNull()) {
        base.sendUtc = allocate<BiscTime>();
        assign(*base.sendUtc, message.sendUtc());
    }
}

void AsnAttachment::attachHeartbeat(BiscMsg& body)
{
    body.present = BiscMsg_PR_heartbeat;
}

void AsnAttachment::attachAck(BiscMsg& body, CentralisedBiscottiAck const& ack)
{
    body.present = BiscMsg_PR_ack;
    BiscAckMsg& message = body.choice.ack;
    assign(message.ackMsgId, ack.ackMsgId().toString());
    message.ackCode = ack.ackCode();
    assignUnlessEmpty(message.ackDescription, ack.ackDescription());
}

void AsnAttachment::attachSubscription(BiscMsg& body, BiscottiSubscriberId const& subscriberId,
                                       BiscottiSubscription const& subscription)
{
    body.present = BiscMsg_PR_sub;
    BiscSubMsg& message = body.choice.sub;
    assign(message.subscriptionId, subscription.subscriptionId().toString());
    assign(message.subscriberId, subscriberId.toString());
    if (subscription.hasFact()) {
        message.subChoice.present = subChoice_PR_subFact;
        assign(message.subChoice.choice.subFact, subscription.fact().toString());
    } else if (subscription.hasInterest()) {
        message.subChoice.present = subChoice_PR_subInterest;
        assign(message.subChoice.choice.subInterest, subscription.interest().toString());
    } else {
        throw std::logic_error("Subscription must have either fact or interest.");
    }
}

void AsnAttachment::attachUnsubscription(BiscMsg& body, BiscottiUnsubscription const& unsubscription)
{
    body.present = BiscMsg_PR_unsub;
    assign(body.choice.unsub.unsubId, unsubscription.subscriptionId().toString());
}

void AsnAttachment::attachPost(BiscMsg& body, BiscottiPost const& post)
{
    body.present = BiscMsg_PR_post;
    BiscPostMsg& message = body.choice.post;
    assign(message.postId, post.postId().toString());
    for (BiscottiTopic const& topic : post.topics()) {
        BiscTopic_t* const element = allocate<BiscTopic_t>();
        if (asn_set_add(&message.postTopics.list, element) != 0) {
            std::free(element);
            throw std::bad_alloc();
        }
        assign(*element, wireText(topic));
    }
    if (post.hasAudience())
        assignUnlessEmpty(message.postAudience, post.audience().toString());
    assignUnlessEmpty(message.postBody, post.body());
}
