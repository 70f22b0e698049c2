#pragma once

#include "BiscottiRequest.h"
#include "BiscottiRouter.h"
#include "BiscottiRules.h"

class BiscottiSession;

/// Decides about each message of a client: what it is answered, and whom a post reaches. Knows no links.
///
/// The codes: Malformed for what is no message, has no id or no topic; Refused for a refused topic, an id of
/// another identity than the client's, or what goes beyond BiscottiLimits; SubscriptionNotFound for the end of a
/// subscription that this link has not; BodyTooLarge; SignatureRequired for a sealed topic; SignatureNotVerified for
/// anything signed; SubscriptionIdExists for an id that is in use on this link, or was used for another topic on an
/// earlier one; MessageIdExists for a message that was taken before, also on an earlier link; TemporaryServerError
/// when all clients together have too many subscriptions.
class BiscottiBroker
{
public:
    using AckCode = CentralisedBiscottiAck::AckCode;
    using Client = BiscottiRouter::Client;

    struct Decision {
        AckCode code = AckCode::Ok;
        QString why; ///< For the log, if the code is not Ok.
    };

    /// Decides about a message that wants an acknowledgement, and does what it asks for. `recipients` are those to
    /// whom a post is to be sent, the sender perhaps among them.
    Decision handle(Client client, BiscottiSession& session, BiscottiRequest const& request,
                    QSet<Client>& recipients);

    /// The client's link has ended.
    void leave(Client client) { _router.removeAll(client); }

    BiscottiRules& rules() { return _rules; }
    BiscottiRules const& rules() const { return _rules; }
    BiscottiRouter const& router() const { return _router; }

private:
    Decision subscribe(Client client, BiscottiSession& session, BiscottiSubscription const& subscription);
    Decision unsubscribe(Client client, BiscottiSession& session, BiscottiUnsubscription const& unsubscription);
    Decision post(BiscottiPost const& post, QSet<Client>& recipients) const;
    Decision checkTopic(BiscottiTopic const& topic) const;

    BiscottiRules _rules;
    BiscottiRouter _router;
};
