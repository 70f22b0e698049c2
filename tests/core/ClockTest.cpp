#include "QtTimerFactory.h"
#include "SystemTickCounter.h"
#include "Timer.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QPointer>
#include <QSignalSpy>

#include <gtest/gtest.h>

TEST(SystemTickCounter, TellsTheTimeOfTheSystem)
{
    qint64 const before = QDateTime::currentMSecsSinceEpoch();
    qint64 const ticks = SystemTickCounter().msSinceEpoch();
    EXPECT_GE(ticks, before);
    EXPECT_LE(ticks, QDateTime::currentMSecsSinceEpoch());
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
