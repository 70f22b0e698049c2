#include "EventLoopWatchdog.h"

#include "LogCapture.h"

#include <QCoreApplication>
#include <QSemaphore>
#include <QThread>

#include <atomic>
#include <gtest/gtest.h>

TEST(EventLoopWatchdog, TellsEachTimeOverTheLimitAndTheLongest)
{
    LogCapture capture;
    std::atomic<qint64> now = 0;
    QSemaphore knocks; // Those on their way. Each reads the clock on the watchdog's own thread, and here at its end.
    bool isAnswered = false;
    QThread const* const here = QThread::currentThread();
    {
        EventLoopWatchdog::Clocks clocks;
        clocks.time = [&] {
            qint64 const read = now;
            if (QThread::currentThread() != here)
                knocks.release();
            else
                isAnswered = knocks.tryAcquire();
            return read;
        };
        clocks.work = [&] { return now / 2; };
        EventLoopWatchdog watchdog(clocks);
        // The first time does not count: the loop had not begun.
        for (qint64 const ms : {500, 16, 17, 3}) {
            knocks.acquire();
            knocks.release(); // It stays on its way until it is answered.
            now += ms * 1'000'000;
            int const before = capture.count("was away for");
            isAnswered = false;
            do
                QCoreApplication::sendPostedEvents(&watchdog);
            while (!isAnswered);
            EXPECT_EQ(capture.count("was away for") - before, ms == 17 ? 1 : 0) << ms;
        }
    }
    EXPECT_TRUE(capture.contains("The event loop was away for 17.0 ms (8.5 ms of work)"));
    EXPECT_TRUE(capture.contains("The event loop was away for 17.0 ms at the longest (the most work was 8.5 ms)"));
}
