#include "CentralisedBiscottiDoPendingMemo.h"

#include "BiscottiSubscriptionEngine.h"
#include "CentralisedBiscotti.h"
#include "Logger.h"
#include "LoggerManager.h"
#include "TickCounter.h"

Logger* CentralisedBiscottiDoPendingMemo::log = LoggerManager::logger();

void CentralisedBiscottiDoPendingMemo::handle()
{
    // First, so that nothing that goes wrong below ends the row.
    if (_isPeriodic)
        _session.postSoon(PeriodicPendingMs, new CentralisedBiscottiDoPendingMemo(_session, true));
    if (log->level() <= Logger::Debug)
        logPending();
    doPending();
}

void CentralisedBiscottiDoPendingMemo::logPending() const
{
    BiscottiSubscriptionEngine const& engine = _session.engine();
    LOG_DEBUG("*** All subscriptions (%d):", engine.count());
    for (auto ids = engine.iterator(); ids.hasNext();)
        LOG_DEBUG("    - %s", qUtf8Printable(engine.subscription(ids.next()).toString()));
    CentralisedBiscottiOpQueue const& opQueue = _session.opQueue();
    LOG_DEBUG("*** All pending operations (%d):", opQueue.size());
    for (auto ops = opQueue.iterator(); ops.hasNext();) {
        CentralisedBiscottiPendingOp const* const op = ops.next();
        QByteArray const id = op->msgId.toString().toUtf8();
        QByteArray const text = op->toString().toUtf8();
        if (op == opQueue.current())
            LOG_DEBUG("    ! Currently waiting for ack for %s: %s...", id.constData(), text.constData());
        else
            LOG_DEBUG("    - %s: %s", id.constData(), text.constData());
    }
}

void CentralisedBiscottiDoPendingMemo::doPending()
{
    CentralisedBiscottiLink& link = _session.link();
    qint64 const now = _session.ticker().msSinceEpoch();
    _session.opQueue().dropAllOldPosts(PostTtlMSecs, now);
    auto const* const current = _session.opQueue().current();
    // Differences, since the server may name any wait.
    qint64 const sinceSend = now - link.lastSendMs();
    qint64 const sinceReceive = now - link.lastReceiveMs();
    if (current && sinceSend > MaxAckWaitMs) {
        LOG_ERROR("Ack for %s timed out after %lldms; disconnecting.", qUtf8Printable(current->msgId.toString()),
                  static_cast<long long>(sinceSend));
        link.disconnectFromHost();
    } else if (sinceReceive > link.maxDataWaitMs()) {
        LOG_WARNING("Haven't heard from server for %lldms; disconnecting.", static_cast<long long>(sinceReceive));
        link.disconnectFromHost();
    } else if (_session.decoder().isInMessage() && now - link.lastMessageMs() > link.maxDataWaitMs()) {
        // A length that is wrong, and not too large, swallows all the messages behind it.
        link.leaveOutOfStep();
    } else if (_session.state() == Biscotti::Connected && !current) {
        sendNext();
    }
}

void CentralisedBiscottiDoPendingMemo::sendNext()
{
    CentralisedBiscottiOpQueue& opQueue = _session.opQueue();
    auto const* const op = opQueue.next();
    if (!op)
        return;
    LOG_DEBUG("Sending %s...", qUtf8Printable(op->msgId.toString()));
    QByteArray const bytes = _session.encode(*op);
    if (bytes.isEmpty()) {
        // One that cannot be written now never can be, and is no fault of the link.
        _session.finishCurrentOp(CentralisedBiscotti::EncodeErrorCode, CentralisedBiscotti::EncodeErrorDescription);
        return;
    }
    _session.link().noteSend();
    if (_session.link().sendMessage(bytes))
        return;
    opQueue.undo();
    _session.link().disconnectFromHost();
}
