#include "CentralisedBiscottiPostMemo.h"

#include "Logger.h"
#include "LoggerManager.h"
#include "TickCounter.h"

Logger* CentralisedBiscottiPostMemo::log = LoggerManager::logger();

void CentralisedBiscottiPostMemo::handle()
{
    auto op = _session.createOp(std::make_unique<BiscottiPost>(_post), _signatureId);
    op->postedAtMs = static_cast<quint64>(_session.ticker().msSinceEpoch());
    LOG_DEBUG("Posting %s: %s...", qUtf8Printable(op->msgId.toString()), qUtf8Printable(op->toString()));
    _session.opQueue().append(std::move(op));
    _session.postDoPending();
}
