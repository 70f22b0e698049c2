#pragma once

#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>

/// The threads of RTSP sessions. None is ever waited for by a viewer: one that is stuck, as in a name look-up, is
/// left behind and ends by itself, so their number is what is bounded. They keep this
/// object, which is made as a shared one. Any thread.
class RtspWorkers : public std::enable_shared_from_this<RtspWorkers>
{
public:
    static constexpr int maximum = 64;

    /// Runs the work on a thread of its own; false when there are too many of them. The work keeps alive what it
    /// needs.
    bool start(std::function<void()> work);

    /// Waits until all work is done, up to so many milliseconds. Returns whether it is.
    bool wait(int milliseconds);

    int count() const;

private:
    mutable std::mutex _mutex; ///< Guards _count.
    std::condition_variable _ended;
    int _count = 0;
};
