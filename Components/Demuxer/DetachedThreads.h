#pragma once

#include <chrono>
#include <condition_variable>
#include <functional>
#include <mutex>

/// Threads of one kind, that nobody waits for while the program runs. Its end gives them a moment.
///
/// When the process exits, libraries take down what such a thread may be using, a TLS session for one, and it would
/// crash. So the exit waits for those still at work, and where the moment is not enough it ends the process there and
/// then, before the libraries do. Every operation is for any thread.
class DetachedThreads
{
public:
    /// What is called first when the process ends: a program that has lost what it needs may rather end at once.
    static void setAtEnd(void (*call)());

    /// Waits at the exit of the process for so long at most. Never destroyed: the threads come back to it.
    static DetachedThreads& make(std::chrono::milliseconds farewell);

    /// Runs work, and what destroying it does, on a thread of its own. Throws std::system_error when the machine has
    /// no thread left.
    void start(std::function<void()> work);

    /// Waits until none is at work, up to the farewell's time. Returns whether none is.
    bool wait();

private:
    explicit DetachedThreads(std::chrono::milliseconds farewell) : _farewell(farewell) {}
    void add(int count);

    std::chrono::milliseconds const _farewell;
    std::mutex _mutex; ///< Guards _count.
    std::condition_variable _changed;
    int _count = 0;
};
