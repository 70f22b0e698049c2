#pragma once

class Memo;

/// Runs memos in the order of their time, one at a time, on one thread. Every operation may be called from any
/// thread.
///
/// A class that posts memos calls acquire(this) once, in its constructor, returns that same `this` from the owner()
/// of each memo, and calls release(this) as the first line of its destructor. A memo may then simply use its owner.
///
/// The queue owns each memo it is given, accepted or not: it deletes it after handling, after cancelling, or at once
/// if it refuses it.
class MemoQueue
{
public:
    virtual ~MemoQueue() = default;

    /// The same as handleSoon(0, memo).
    virtual bool handleNow(Memo* memo) = 0;

    /// Schedules the memo to run in `ms` milliseconds, memos of one millisecond in the order of posting.
    /// Returns whether it is accepted: it is not when it is null or its owner has not acquired the queue.
    virtual bool handleSoon(unsigned int ms, Memo* memo) = 0;

    /// Gives the owner the right to post memos.
    virtual void acquire(void* owner) = 0;

    /// Takes the right back and cancels the owner's memos. When this returns, none of them runs and none will:
    /// a memo of this owner that is running on another thread is waited for.
    virtual void release(void* owner) = 0;

    /// Cancels the owner's memos without waiting for one that is running; the owner may go on posting.
    virtual void clear(void* owner) = 0;
};
