#include "CentralisedBiscottiOnDisconnectedMemo.h"

#include "BiscottiSubscriptionEngine.h"
#include "CentralisedBiscottiConnectMemo.h"
#include "Logger.h"
#include "LoggerManager.h"
#include "TickCounter.h"

Logger* CentralisedBiscottiOnDisconnectedMemo::log = LoggerManager::logger();

void CentralisedBiscottiOnDisconnectedMemo::handle()
{
    // What came before the end may hold the acknowledgement of a post, which must then not be sent again.
    if (_session.arrivals() > 0) {
        _session.post(new CentralisedBiscottiOnDisconnectedMemo(_session));
        return;
    }
    LOG_INFO("Link to Biscotti broken.");
    _session.opQueue().undo();
    _session.opQueue().dropAllButPosts();
    _session.opQueue().dropAllOldPosts(CentralisedBiscottiSession::PostTtlMSecs, _session.ticker().msSinceEpoch());
    replaySubscriptions();
    _session.setState(Biscotti::Disconnected);
    if (auto const delay = _session.link().end())
        _session.postSoon(*delay, new CentralisedBiscottiConnectMemo(_session));
}

void CentralisedBiscottiOnDisconnectedMemo::replaySubscriptions()
{
    BiscottiSubscriptionEngine const& engine = _session.engine();
    for (auto ids = engine.iterator(); ids.hasNext();) {
        BiscottiSubscriptionId const id = ids.next();
        auto op = _session.createOp(std::make_unique<BiscottiSubscription>(engine.subscription(id)),
                                    engine.signatureId(id));
        op->subscriberId = _session.subscribers().subscriberOf(id);
        _session.opQueue().prepend(std::move(op));
    }
}
