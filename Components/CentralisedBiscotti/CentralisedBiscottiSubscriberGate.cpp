#include "CentralisedBiscottiSubscriberGate.h"

void CentralisedBiscottiSubscriberGate::close(BiscottiSubscriberId const& subscriberId)
{
    std::unique_lock lock(_mutex);
    ++_closed[subscriberId];
    if (_caller == std::this_thread::get_id())
        return; // The subscriber is just being called, and closes itself.
    _ended.wait(lock, [&] { return _caller == std::thread::id() || !(_called == subscriberId); });
}

void CentralisedBiscottiSubscriberGate::reopen(BiscottiSubscriberId const& subscriberId)
{
    std::lock_guard const lock(_mutex);
    auto const closed = _closed.find(subscriberId);
    if (closed != _closed.end() && --*closed == 0)
        _closed.erase(closed);
}

bool CentralisedBiscottiSubscriberGate::begin(BiscottiSubscriberId const& subscriberId)
{
    std::lock_guard const lock(_mutex);
    if (_closed.contains(subscriberId))
        return false;
    _called = subscriberId;
    _caller = std::this_thread::get_id();
    return true;
}

void CentralisedBiscottiSubscriberGate::end()
{
    {
        std::lock_guard const lock(_mutex);
        _caller = {};
    }
    _ended.notify_all();
}
