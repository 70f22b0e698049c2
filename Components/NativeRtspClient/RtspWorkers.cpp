#include "RtspWorkers.h"

#include <chrono>
#include <system_error>
#include <thread>
#include <utility>

bool RtspWorkers::start(std::function<void()> work)
{
    {
        std::lock_guard const lock(_mutex);
        if (_count >= maximum)
            return false;
        ++_count;
    }
    auto const end = [self = shared_from_this()] {
        std::lock_guard const lock(self->_mutex);
        --self->_count;
        self->_ended.notify_all();
    };
    try {
        std::thread([end, task = std::move(work)]() mutable {
            task();
            task = nullptr; // What it kept alive goes first.
            end();
        }).detach();
    } catch (std::system_error const&) {
        end();
        return false;
    }
    return true;
}

bool RtspWorkers::wait(int milliseconds)
{
    std::unique_lock lock(_mutex);
    return _ended.wait_for(lock, std::chrono::milliseconds(milliseconds), [this] { return _count == 0; });
}

int RtspWorkers::count() const
{
    std::lock_guard const lock(_mutex);
    return _count;
}
