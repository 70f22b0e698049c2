#include "CentralisedBiscottiPendingOp.h"

#include "BiscottiPost.h"
#include "BiscottiSubscription.h"
#include "BiscottiUnsubscription.h"

CentralisedBiscottiPendingOp::CentralisedBiscottiPendingOp(CentralisedBiscottiMessageId const& id,
                                                           std::unique_ptr<BiscottiMessage> message,
                                                           BiscottiSignatureId const& signature)
    : msgId(id), msg(std::move(message)), signatureId(signature)
{
}

CentralisedBiscottiPendingOp::~CentralisedBiscottiPendingOp() = default;

BiscottiSubscription const* CentralisedBiscottiPendingOp::subscription() const
{
    return dynamic_cast<BiscottiSubscription const*>(msg.get());
}

BiscottiUnsubscription const* CentralisedBiscottiPendingOp::unsubscription() const
{
    return dynamic_cast<BiscottiUnsubscription const*>(msg.get());
}

BiscottiPost const* CentralisedBiscottiPendingOp::post() const
{
    return dynamic_cast<BiscottiPost const*>(msg.get());
}

QString CentralisedBiscottiPendingOp::toString() const
{
    BiscottiPost const* const thePost = post();
    return thePost ? thePost->toShortString() : msg->toString();
}
