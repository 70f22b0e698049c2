#include "SystemTickCounter.h"
#include "TestMemo.h"
#include "ThreadedMemoQueue.h"

#include <atomic>
#include <chrono>
#include <ctime>
#include <future>
#include <gtest/gtest.h>
#include <sys/time.h>

namespace
{

std::atomic<qint64> secondsOff = 0; ///< By which the system's clock has been set.

} // namespace

/// Stands before that of the C library.
extern "C" int gettimeofday(timeval* __restrict now, void* __restrict) noexcept
{
    timespec precise{};
    clock_gettime(CLOCK_REALTIME, &precise);
    now->tv_sec = precise.tv_sec + secondsOff;
    now->tv_usec = precise.tv_nsec / 1000;
    return 0;
}

TEST(MonotonicTime, MemosRunInTimeWhateverTheClockIsSetTo)
{
    ThreadedMemoQueue queue;
    queue.start();
    queue.waitUntilReady();
    int owner = 0;
    std::promise<void> hasRun;
    queue.acquire(&owner);
    qint64 const before = SystemTickCounter().msSinceEpoch();
    queue.handleSoon(50, new TestMemo(&owner, [&] { hasRun.set_value(); }));
    secondsOff = -3600;
    EXPECT_LT(SystemTickCounter().msSinceEpoch(), before) << "the clock has been set back";
    EXPECT_EQ(hasRun.get_future().wait_for(std::chrono::seconds(10)), std::future_status::ready);
    queue.release(&owner);
    secondsOff = 0;
}
