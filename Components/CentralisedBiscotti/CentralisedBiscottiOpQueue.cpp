#include "CentralisedBiscottiOpQueue.h"

#include "Logger.h"
#include "LoggerManager.h"

#include <QList>

#include <algorithm>

Logger* CentralisedBiscottiOpQueue::log = LoggerManager::logger();

CentralisedBiscottiPendingOp const* CentralisedBiscottiOpQueue::next()
{
    complete();
    _isHeadCurrent = !_ops.empty();
    return current();
}

void CentralisedBiscottiOpQueue::complete()
{
    if (_isHeadCurrent)
        _ops.pop_front();
    _isHeadCurrent = false;
}

void CentralisedBiscottiOpQueue::prepend(std::unique_ptr<Op> op)
{
    _ops.insert(firstUnsent(), std::move(op));
}

void CentralisedBiscottiOpQueue::dropAllButPosts()
{
    auto const isToDrop = [](std::unique_ptr<Op> const& op) {
        if (op->post())
            return false;
        LOG_DEBUG("    Dropping op %s.", qUtf8Printable(op->msgId.toString()));
        return true;
    };
    _ops.erase(std::remove_if(firstUnsent(), _ops.end(), isToDrop), _ops.end());
}

void CentralisedBiscottiOpQueue::dropAllOldPosts(long long ttlMs, long long nowMs)
{
    auto const isToDrop = [ttlMs, nowMs](std::unique_ptr<Op> const& op) {
        if (static_cast<long long>(op->postedAtMs) + ttlMs >= nowMs || !op->post())
            return false;
        LOG_INFO("    Dropping post %s: %s.", qUtf8Printable(op->msgId.toString()), qUtf8Printable(op->toString()));
        return true;
    };
    _ops.erase(std::remove_if(firstUnsent(), _ops.end(), isToDrop), _ops.end());
}

QListIterator<CentralisedBiscottiPendingOp const*> CentralisedBiscottiOpQueue::iterator() const
{
    QList<Op const*> ops;
    ops.reserve(size());
    for (std::unique_ptr<Op> const& op : _ops)
        ops.append(op.get());
    return QListIterator<Op const*>(ops);
}
