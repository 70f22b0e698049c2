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
    QSemaphore knocks; // Each knock reads the clock on the watchdog's own thread.
    QThread const* const here = QThread::currentThread();
    {
        EventLoopWatchdog watchdog([&] {
            if (QThread::currentThread() != here)
                knocks.release();
            return now.load();
        });
        knocks.acquire();
        // The first time does not count: the loop had not begun.
        for (qint64 const ms : {500, 16, 17, 3}) {
            now += ms * 1'000'000;
            int const before = capture.count("was away for");
            while (!knocks.tryAcquire()) // The next knock comes when the last one has been answered.
                QCoreApplication::sendPostedEvents(&watchdog);
            EXPECT_EQ(capture.count("was away for") - before, ms == 17 ? 1 : 0) << ms;
        }
    }
    EXPECT_TRUE(capture.contains("The event loop was away for 17.0 ms at the longest"));
}
