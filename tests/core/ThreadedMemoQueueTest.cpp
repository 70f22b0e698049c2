#include "ThreadedMemoQueue.h"

#include "MersenneTwisterRandomGenerator.h"
#include "TestMemo.h"

#include <algorithm>
#include <atomic>
#include <barrier>
#include <functional>
#include <future>
#include <gtest/gtest.h>
#include <latch>
#include <memory>
#include <stdexcept>
#include <thread>
#include <vector>

namespace
{

class ThreadedMemoQueueTest : public testing::Test
{
protected:
    ThreadedMemoQueueTest()
    {
        _queue.start();
        _queue.waitUntilReady();
    }
    ~ThreadedMemoQueueTest() override
    {
        stop();
        EXPECT_EQ(TestMemo::living(), 0);
    }
    void stop()
    {
        _queue.exit(0);
        _queue.wait();
    }

    ThreadedMemoQueue _queue;
};

/// Runs the work on each of some threads at once, with the thread's number, and waits for all.
void onThreads(int count, std::function<void(int)> const& work)
{
    std::barrier start(count);
    std::vector<std::jthread> threads(static_cast<size_t>(count));
    for (int i = 0; i < count; ++i) {
        threads[static_cast<size_t>(i)] = std::jthread([&, i] {
            start.arrive_and_wait();
            work(i);
        });
    }
}

} // namespace

TEST_F(ThreadedMemoQueueTest, RunsMemosOnItsThreadInTheOrderOfPosting)
{
    char owner = 0;
    _queue.acquire(&owner);
    std::vector<int> ran;
    std::promise<QThread*> thread;
    for (int i = 0; i < 1000; ++i)
        EXPECT_TRUE(_queue.handleNow(new TestMemo(&owner, [&ran, i] { ran.push_back(i); })));
    _queue.handleSoon(5, new TestMemo(&owner, [&] { thread.set_value(QThread::currentThread()); }));
    EXPECT_EQ(thread.get_future().get(), &_queue);
    _queue.release(&owner);
    ASSERT_EQ(ran.size(), 1000);
    EXPECT_TRUE(std::is_sorted(ran.cbegin(), ran.cend()));
}

TEST_F(ThreadedMemoQueueTest, ReleaseWaitsForTheRunningMemoWhichMayStillPost)
{
    char owner = 0;
    _queue.acquire(&owner);
    std::latch running(1);
    std::atomic<bool> ended = false;
    _queue.handleNow(new TestMemo(&owner, [&] {
        running.count_down();
        // The first refusal tells that the release is under way.
        while (_queue.handleSoon(60000, new TestMemo(&owner, [] { ADD_FAILURE(); })))
            std::this_thread::yield();
        char other = 0;
        _queue.acquire(&other);
        EXPECT_TRUE(_queue.handleNow(new TestMemo(&other, [] { ADD_FAILURE(); })));
        _queue.release(&other);
        ended = true;
    }));
    running.wait();
    _queue.release(&owner);
    EXPECT_TRUE(ended);
    EXPECT_EQ(TestMemo::living(), 0);
}

TEST_F(ThreadedMemoQueueTest, OwnersComeAndGoOnManyThreads)
{
    onThreads(4, [this](int thread) {
        MersenneTwisterRandomGenerator random(thread);
        for (int i = 0; i < 300; ++i) {
            // The owner itself has no lock: one memo runs at a time, and none after the release.
            auto owner = std::make_unique<int>(0);
            std::function<void(int)> const post =
                [&, ms = static_cast<unsigned int>(random.qint32rand(2))](int further) {
                    _queue.handleSoon(ms, new TestMemo(owner.get(), [&, further] {
                                          ++*owner;
                                          if (further > 0)
                                              post(further - 1);
                                      }));
                };
            _queue.acquire(owner.get());
            for (int posts = random.qint32rand(8); posts > 0; --posts)
                post(random.qint32rand(4));
            if (i % 3 == 0)
                std::this_thread::yield();
            _queue.release(owner.get());
            owner.reset(); // A memo that ran now would fall over it.
        }
    });
}

TEST_F(ThreadedMemoQueueTest, EndsWhileOthersCallIt)
{
    onThreads(4, [this](int thread) {
        char owner = 0;
        auto const postForEver = [&] {
            _queue.acquire(&owner);
            for (;;)
                _queue.handleNow(new TestMemo(&owner, [] {}));
        };
        if (thread == 0)
            stop();
        else
            EXPECT_THROW(postForEver(), std::runtime_error);
    });
}
