#include "MonotonicTickCounter.h"
#include "QtTimerFactory.h"
#include "SystemTickCounter.h"
#include "Timer.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QPointer>
#include <QSignalSpy>

#include <chrono>
#include <ctime>
#include <gtest/gtest.h>

TEST(SystemTickCounter, TellsTheTimeOfTheSystem)
{
    qint64 const before = QDateTime::currentMSecsSinceEpoch();
    qint64 const ticks = SystemTickCounter().msSinceEpoch();
    EXPECT_GE(ticks, before);
    EXPECT_LE(ticks, QDateTime::currentMSecsSinceEpoch());
}

TEST(MonotonicTickCounter, CountsTheMillisecondsSinceTheStartOfTheMachine)
{
    auto const sinceStart = [] {
        timespec now = {};
        clock_gettime(CLOCK_BOOTTIME, &now);
        return std::chrono::seconds(now.tv_sec) + std::chrono::nanoseconds(now.tv_nsec);
    };
    auto const before = sinceStart();
    std::chrono::milliseconds const ticks(MonotonicTickCounter().msSinceEpoch());
    EXPECT_GT(ticks + std::chrono::milliseconds(1), before);
    EXPECT_LE(ticks, sinceStart());
}

TEST(QtTimerFactory, ItsTimersNameThemselvesAndAreSilentOnceDisposed)
{
    QtTimerFactory factory;
    QPointer<Timer> const timer = factory.createTimer();
    QSignalSpy spy(timer, &Timer::timeout);
    timer->setSingleShot(true);
    timer->start(1);
    ASSERT_TRUE(spy.wait());
    EXPECT_EQ(spy.takeFirst().constFirst().value<Timer*>(), timer);
    EXPECT_FALSE(timer->isActive());
    timer->start(0);
    factory.disposeTimer(timer);
    ASSERT_TRUE(timer);
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(spy.isEmpty());
    EXPECT_FALSE(timer);
}
