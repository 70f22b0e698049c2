#include "CentralisedBiscottiUnsubscribeMemo.h"

#include "BiscottiSubscriptionEngine.h"
#include "CentralisedBiscottiAck.h"

void CentralisedBiscottiUnsubscribeMemo::handle()
{
    if (!_session.engine().contains(_id)) {
        _session.fireErrorUnsubscribing(_id, CentralisedBiscottiAck::SubscriptionNotFound,
                                        QStringLiteral("Subscription not found."));
        return;
    }
    _session.addUnsubscribeOp(_id);
    _session.postDoPending();
}
