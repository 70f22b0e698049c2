#include "FakeTickCounter.h"
#include "FakeTimer.h"
#include "LogCapture.h"
#include "QtDateTimeBuilder.h"
#include "QtTimerFactory.h"
#include "SystemTickCounter.h"
#include "Timer.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QPointer>
#include <QSignalSpy>

#include <gmock/gmock.h>

TEST(Clocks, TellTheTimeOfTheSystem)
{
    qint64 const before = QDateTime::currentMSecsSinceEpoch();
    qint64 const ticks = SystemTickCounter().msSinceEpoch();
    QDateTime const dateTime = QtDateTimeBuilder().currentDateTime();
    qint64 const after = QDateTime::currentMSecsSinceEpoch();
    EXPECT_THAT(ticks, testing::AllOf(testing::Ge(before), testing::Le(after)));
    EXPECT_THAT(dateTime.toMSecsSinceEpoch(), testing::AllOf(testing::Ge(before), testing::Le(after)));
}

TEST(QtTimer, NamesItselfWhenItRunsOut)
{
    QtTimerFactory factory;
    Timer* const timer = factory.createTimer();
    QSignalSpy spy(timer, &Timer::timeout);
    timer->setSingleShot(true);
    timer->start(1);
    EXPECT_NE(timer->timerId(), -1);
    ASSERT_TRUE(spy.wait());
    EXPECT_EQ(spy.constFirst().constFirst().value<Timer*>(), timer);
    EXPECT_FALSE(timer->isActive());
    factory.disposeTimer(timer);
}

TEST(QtTimerFactory, ADisposedTimerIsSilentAndDeletedLater)
{
    QtTimerFactory factory;
    QPointer<Timer> const timer = factory.createTimer();
    QSignalSpy spy(timer, &Timer::timeout);
    timer->start(0);
    factory.disposeTimer(timer);
    ASSERT_TRUE(timer);
    QCoreApplication::processEvents();
    EXPECT_TRUE(spy.isEmpty());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_FALSE(timer);
}

TEST(QtTimerFactory, TakesBackOnlyItsOwnClass)
{
    LogCapture capture;
    QtTimerFactory factory;
    FakeTickCounter clock;
    QPointer<FakeTimer> const timer = new FakeTimer(clock);
    factory.disposeTimer(timer);
    factory.disposeTimer(nullptr);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    ASSERT_TRUE(timer);
    EXPECT_EQ(capture.count("WARNING"), 1);
    EXPECT_TRUE(capture.contains("FakeTimer"));
    delete timer;
}
