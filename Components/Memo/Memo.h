#pragma once

/// One piece of deferred work, given to a MemoQueue.
class Memo
{
public:
    virtual ~Memo() = default;

    /// The object the work belongs to, the same that has acquired the queue. It is alive while handle() runs.
    virtual void* owner() = 0;

    /// Does the work, on the queue's thread.
    virtual void handle() = 0;
};
