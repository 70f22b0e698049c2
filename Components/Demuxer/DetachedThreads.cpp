#include "DetachedThreads.h"

#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <system_error>
#include <thread>
#include <unistd.h>

namespace
{
std::atomic<void (*)()> atEnd{nullptr}; // One process, one end.
}

void DetachedThreads::setAtEnd(void (*call)())
{
    atEnd = call;
}

DetachedThreads& DetachedThreads::make(std::chrono::milliseconds farewell)
{
    auto* const threads = new DetachedThreads(farewell);
    // Not a destructor: it could not tell the status that the process ends with.
    on_exit(
        [](int status, void* self) {
            if (auto* const call = atEnd.load())
                call();
            if (static_cast<DetachedThreads*>(self)->wait())
                return;
            std::fflush(nullptr);
            ::_exit(status);
        },
        threads);
    return *threads;
}

void DetachedThreads::start(std::function<void()> work)
{
    add(1);
    try {
        std::thread([this, work = std::move(work)]() mutable {
            work();
            work = nullptr;
            add(-1);
        }).detach();
    } catch (std::system_error const&) {
        add(-1);
        throw;
    }
}

bool DetachedThreads::wait()
{
    std::unique_lock lock(_mutex);
    return _changed.wait_for(lock, _farewell, [this] { return _count == 0; });
}

void DetachedThreads::add(int count)
{
    std::lock_guard const lock(_mutex);
    _count += count;
    _changed.notify_all();
}
