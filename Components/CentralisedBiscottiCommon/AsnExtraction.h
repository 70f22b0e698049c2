#pragma once

#include "BiscottiPost.h"
#include "BiscottiSubscription.h"
#include "BiscottiUnsubscription.h"
#include "CentralisedBiscottiAck.h"
#include "CentralisedBiscottiHeartbeat.h"
#include "CentralisedBiscottiMessageId.h"

#include <BiscBaseMsg.h>

/// Makes messages from the structures of the generated code, once these have met their constraints. Optional members
/// may be absent. All may throw std::logic_error for a message that says what no message may.
namespace AsnExtraction
{

CentralisedBiscottiMessageId messageId(BiscBaseMsg const& base);

// Each takes the members that all messages have from the base, and its own from the body, which must hold it.
CentralisedBiscottiHeartbeat heartbeat(BiscBaseMsg const& base);

/// The description is read and dropped; the code tells. A code that no AckCode holds counts as UnspecifiedError.
CentralisedBiscottiAck ack(BiscBaseMsg const& base);
BiscottiSubscription subscription(BiscBaseMsg const& base);
BiscottiUnsubscription unsubscription(BiscBaseMsg const& base);
BiscottiPost post(BiscBaseMsg const& base);

} // namespace AsnExtraction
