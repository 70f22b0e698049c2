#pragma once

#include "CentralisedBiscottiPendingOp.h"

#include <QListIterator>

#include <deque>
#include <memory>

class Logger;

/// The operations that wait to be sent, in order. The one at the head is the current one while it is sent and not
/// yet acknowledged. For one thread.
class CentralisedBiscottiOpQueue
{
public:
    using Op = CentralisedBiscottiPendingOp;

    /// The operation that waits for its acknowledgement, or null. All pointers stay good until the op goes.
    Op const* current() const { return _isHeadCurrent ? _ops.front().get() : nullptr; }

    /// Completes the current operation, if any, and makes the one behind it current; null if there is none.
    Op const* next();

    /// Deletes the current operation, if any.
    void complete();

    /// Takes the current operation, if any, for unsent again.
    void undo() { _isHeadCurrent = false; }

    void append(std::unique_ptr<Op> op) { _ops.push_back(std::move(op)); }

    /// Puts the operation before all others but the current one.
    void prepend(std::unique_ptr<Op> op);

    /// Deletes all subscriptions and unsubscriptions but the current operation.
    void dropAllButPosts();

    /// Deletes all posts but the current operation that were queued more than ttlMs before nowMs.
    void dropAllOldPosts(long long ttlMs, long long nowMs);

    int size() const { return static_cast<int>(_ops.size()); }

    /// Goes over all operations as they are now.
    QListIterator<Op const*> iterator() const;

private:
    auto firstUnsent() { return _ops.begin() + (_isHeadCurrent ? 1 : 0); }

    static Logger* log;

    std::deque<std::unique_ptr<Op>> _ops;
    bool _isHeadCurrent = false;
};
