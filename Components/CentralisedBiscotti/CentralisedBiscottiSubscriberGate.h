#pragma once

#include "BiscottiSubscriberId.h"

#include <QHash>

#include <condition_variable>
#include <mutex>
#include <thread>

/// Keeps calls from reaching subscribers that are about to be destroyed. Any thread.
///
/// Calls are made by one thread, one at a time. The mutex guards the fields and is never held during one.
class CentralisedBiscottiSubscriberGate
{
public:
    /// From now on no call to the subscriber begins, until reopen() was called as often as close(). Waits for one
    /// that is under way on another thread.
    void close(BiscottiSubscriberId const& subscriberId);
    void reopen(BiscottiSubscriberId const& subscriberId);

    /// Whether the subscriber may be called. If so, the call has begun, and end() has to follow it.
    bool begin(BiscottiSubscriberId const& subscriberId);
    void end();

private:
    std::mutex _mutex;
    std::condition_variable _ended;
    QHash<BiscottiSubscriberId, int> _closed; ///< How often each is closed; those that are.
    BiscottiSubscriberId _called;             ///< Who is called now.
    std::thread::id _caller;                  ///< On which thread; none without a call.
};
