#include "CentralisedBiscottiSubscribeMemo.h"

#include "Logger.h"
#include "LoggerManager.h"

Logger* CentralisedBiscottiSubscribeMemo::log = LoggerManager::logger();

void CentralisedBiscottiSubscribeMemo::handle()
{
    auto op = _session.createOp(std::make_unique<BiscottiSubscription>(_subscription), _signatureId);
    op->subscriberId = _subscriberId;
    LOG_DEBUG("Subscribing %s: %s...", qUtf8Printable(op->msgId.toString()), qUtf8Printable(op->toString()));
    _session.subscribers().rememberSubscription(_subscription, _subscriber, _subscriberId, _signatureId);
    _session.opQueue().append(std::move(op));
    _session.postDoPending();
}
