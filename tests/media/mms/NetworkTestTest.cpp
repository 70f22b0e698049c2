#include "NetworkTest.h"

#include "FakeTimerFactory.h"
#include "NameLookup.h"

#include <QSignalSpy>
#include <QTest>

#include <gmock/gmock.h>

TEST(NetworkTest, AnUnknownNameIsNoneAndASilentNameServiceIsNotWaitedFor)
{
    FakeTickCounter clock;
    FakeTimerFactory timers(clock);
    NameLookup const lookup;
    NetworkTest test(&timers);
    QSignalSpy finished(&test, &NetworkTest::finished);
    EXPECT_EQ(test.start("nobody.invalid"), std::nullopt);
    ASSERT_TRUE(QTest::qWaitFor([&] { return !finished.isEmpty(); }, 10000));
    EXPECT_FALSE(finished.takeFirst().first().toBool());
    EXPECT_EQ(test.start("slow.invalid"), std::nullopt);
    ASSERT_TRUE(QTest::qWaitFor([&] { return lookup.waiting() > 0; }, 10000));
    timers.advance(4999);
    EXPECT_TRUE(finished.isEmpty());
    timers.advance(1);
    ASSERT_EQ(finished.size(), 1);
    EXPECT_FALSE(finished.first().first().toBool());
    EXPECT_EQ(test.start("slow.invalid"), false); // No second thread beside the one that hangs.
    EXPECT_EQ(lookup.waiting(), 1);
}
