#include "SortedMemoQueue.h"

#include "FakeTickCounter.h"
#include "FakeTimer.h"
#include "FakeTimerFactory.h"
#include "LogCapture.h"
#include "TestMemo.h"

#include <QCoreApplication>

#include <functional>
#include <gmock/gmock.h>
#include <limits>
#include <memory>
#include <utility>
#include <vector>

using testing::ElementsAre;
using testing::IsEmpty;

namespace
{

class SortedMemoQueueTest : public testing::Test
{
protected:
    SortedMemoQueueTest() { _queue->acquire(&_owner); }
    ~SortedMemoQueueTest() override
    {
        _queue->handleNow(new TestMemo(&_owner, [] { ADD_FAILURE() << "ran at the queue's end"; }));
        _queue.reset();
        EXPECT_THAT(_timers.timers(), IsEmpty());
        EXPECT_EQ(TestMemo::living(), 0);
    }

    /// A memo that notes its name when it runs.
    TestMemo* note(int name, void* owner)
    {
        return new TestMemo(owner, [this, name] { _ran.push_back(name); });
    }
    TestMemo* note(int name) { return note(name, &_owner); }

    FakeTickCounter _clock;
    FakeTimerFactory _timers{_clock};
    std::unique_ptr<SortedMemoQueue> _queue = std::make_unique<SortedMemoQueue>(&_clock, &_timers);
    char _owner = 0;
    char _other = 0;
    std::vector<int> _ran;
};

} // namespace

TEST_F(SortedMemoQueueTest, RunsEachMemoAtItsTimeAndEqualTimesInTheOrderOfPosting)
{
    qint64 const start = _clock.msSinceEpoch();
    std::vector<std::pair<int, qint64>> ran;
    for (int i = 0; unsigned int const ms : {20, 5, 5, 0, 20, 5, 21})
        EXPECT_TRUE(_queue->handleSoon(
            ms, new TestMemo(&_owner, [&, name = i++] { ran.emplace_back(name, _clock.msSinceEpoch() - start); })));
    EXPECT_THAT(ran, IsEmpty());
    _timers.advance(20);
    std::vector<std::pair<int, qint64>> const expected{{3, 0}, {1, 5}, {2, 5}, {5, 5}, {0, 20}, {4, 20}};
    EXPECT_EQ(ran, expected);
    _queue->release(&_owner); // With one that has not run.
}

TEST_F(SortedMemoQueueTest, TheTimerFollowsTheHeadOfTheQueue)
{
    FakeTimer* const timer = _timers.timers().constFirst();
    EXPECT_TRUE(timer->isSingleShot());
    auto const interval = [&] {
        QCoreApplication::sendPostedEvents();
        return timer->isActive() ? timer->interval() : -1;
    };
    _queue->handleSoon(std::numeric_limits<unsigned int>::max(), note(1));
    EXPECT_EQ(interval(), std::numeric_limits<int>::max());
    _queue->acquire(&_other);
    _queue->handleSoon(50, note(2, &_other));
    _queue->handleSoon(100, note(3));
    EXPECT_EQ(interval(), 50);
    _queue->release(&_other);
    EXPECT_EQ(interval(), 100);
    _clock.advance(300);
    _queue->handleSoon(1, note(4));
    EXPECT_EQ(interval(), 0);
    timer->fire();
    EXPECT_EQ(interval(), 1);
    _timers.advance(std::numeric_limits<unsigned int>::max() - qint64{301});
    EXPECT_THAT(_ran, ElementsAre(3, 4));
    _timers.advance(1);
    EXPECT_THAT(_ran, ElementsAre(3, 4, 1));
    EXPECT_EQ(interval(), -1);
}

TEST_F(SortedMemoQueueTest, AnEndlessStreamOfMemosLeavesTheEventLoopItsTurns)
{
    std::function<TestMemo*()> const repeat = [&] {
        return new TestMemo(&_owner, [&] {
            _ran.push_back(0);
            _clock.advance(10);
            _queue->handleNow(repeat());
        });
    };
    _queue->handleNow(repeat());
    QCoreApplication::sendPostedEvents();
    for (int pass = 1; pass <= 2; ++pass) {
        ASSERT_TRUE(_timers.timers().constFirst()->isActive());
        _timers.timers().constFirst()->fire();
        EXPECT_EQ(_ran.size(), pass * 10);
    }
}

TEST_F(SortedMemoQueueTest, ReleaseCancelsTheMemosOfOneOwner)
{
    _queue->acquire(&_other);
    for (unsigned int ms = 0; ms < 3; ++ms) {
        _queue->handleSoon(ms, note(1));
        _queue->handleSoon(ms, note(2, &_other));
    }
    _queue->handleSoon(1, new TestMemo(&_other, [this] { _queue->release(&_other); }));
    _queue->release(&_owner);
    EXPECT_EQ(TestMemo::living(), 4);
    _timers.advance(10);
    EXPECT_THAT(_ran, ElementsAre(2, 2)) << "a memo may release its own owner";
}

TEST_F(SortedMemoQueueTest, AnExceptionDoesNotStopTheQueue)
{
    LogCapture capture;
    _queue->handleNow(new TestMemo(&_owner, [] { throw 2; }));
    _queue->handleNow(note(3));
    _timers.advance(0);
    EXPECT_THAT(_ran, ElementsAre(3));
    EXPECT_EQ(capture.count("onTimeout(): Caught unhandled exception in memo queue."), 1);
    _queue->release(&_owner); // Would wait for ever if a mutex had stayed locked.
}

TEST_F(SortedMemoQueueTest, AnEventLoopInsideAMemoRunsNoOtherMemo)
{
    _queue->handleNow(new TestMemo(&_owner, [this] {
        _queue->handleNow(note(1));
        QCoreApplication::sendPostedEvents();
        _timers.timers().constFirst()->fire();
        EXPECT_THAT(_ran, IsEmpty());
        _ran.push_back(0);
    }));
    _timers.advance(0);
    EXPECT_THAT(_ran, ElementsAre(0, 1));
}
