#pragma once

#include "BiscottiPost.h"
#include "BiscottiSubscriberId.h"
#include "BiscottiSubscription.h"
#include "BiscottiUnsubscription.h"
#include "CentralisedBiscottiAck.h"
#include "CentralisedBiscottiMessageId.h"

#include <BiscBaseMsg.h>

/// Fills the structures of the generated code, which must be zeroed, from messages. What is attached belongs to the
/// structure. All throw std::length_error for a text or body larger than a message may be, and std::bad_alloc.
namespace AsnAttachment
{

/// The members that all messages have; optional ones only if they are set.
void attachBaseMsg(BiscBaseMsg& base, CentralisedBiscottiMessageId const& messageId, BiscottiMessage const& message);

void attachHeartbeat(BiscMsg& body);
void attachAck(BiscMsg& body, CentralisedBiscottiAck const& ack);

/// Throws std::logic_error for a subscription with neither fact nor interest.
void attachSubscription(BiscMsg& body, BiscottiSubscriberId const& subscriberId,
                        BiscottiSubscription const& subscription);
void attachUnsubscription(BiscMsg& body, BiscottiUnsubscription const& unsubscription);
void attachPost(BiscMsg& body, BiscottiPost const& post);

} // namespace AsnAttachment
