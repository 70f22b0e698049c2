#pragma once

#include "BiscottiSignatureId.h"
#include "BiscottiSubscriberId.h"
#include "CentralisedBiscottiMessageId.h"

#include <QString>
#include <QtGlobal>

#include <memory>

class BiscottiMessage;
class BiscottiPost;
class BiscottiSubscription;
class BiscottiUnsubscription;

/// One message that waits to be sent and acknowledged: a subscription, an unsubscription or a post.
struct CentralisedBiscottiPendingOp {
    CentralisedBiscottiPendingOp(CentralisedBiscottiMessageId const& id, std::unique_ptr<BiscottiMessage> message,
                                 BiscottiSignatureId const& signature);
    ~CentralisedBiscottiPendingOp();

    // The message as what it is; null if it is something else.
    BiscottiSubscription const* subscription() const;
    BiscottiUnsubscription const* unsubscription() const;
    BiscottiPost const* post() const;

    /// The message for a log line; a post without its body.
    QString toString() const;

    CentralisedBiscottiMessageId msgId;
    std::unique_ptr<BiscottiMessage> msg;
    BiscottiSignatureId signatureId;
    BiscottiSubscriberId subscriberId; ///< Of subscriptions.
    quint64 postedAtMs = 0;            ///< When a post was queued.
};
