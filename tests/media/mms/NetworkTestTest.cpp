#include "NetworkTest.h"

#include "FakeTimerFactory.h"
#include "LogCapture.h"
#include "NameLookup.h"

#include <QSignalSpy>
#include <QTest>

#include <gmock/gmock.h>

TEST(NetworkTest, KnowsOfNumericAddressesAtOnceAndOfNamesLater)
{
    FakeTickCounter clock;
    FakeTimerFactory timers(clock);
    for (auto const& [host, isAtOnce, isAvailable, line] :
         {std::tuple("127.0.0.1", true, true, ""),
          {"255.255.255.255", true, false, "could not connected"},
          {"localhost", false, true, ""},
          {"nobody.invalid", false, false, "Couldn't get address info for host nobody.invalid error "}}) {
        LogCapture const capture;
        NetworkTest test(&timers);
        QSignalSpy const finished(&test, &NetworkTest::finished);
        std::optional<bool> const answer = test.start(host);
        ASSERT_EQ(answer.has_value(), isAtOnce) << host;
        ASSERT_TRUE(isAtOnce || QTest::qWaitFor([&] { return !finished.isEmpty(); }, 10000));
        EXPECT_EQ(answer ? *answer : finished.first().first().toBool(), isAvailable) << host;
        EXPECT_TRUE(!*line || capture.contains(line)) << line;
    }
}

TEST(NetworkTest, ASilentNameServiceIsNotWaitedFor)
{
    FakeTickCounter clock;
    FakeTimerFactory timers(clock);
    NameLookup const lookup;
    NetworkTest test(&timers);
    QSignalSpy const finished(&test, &NetworkTest::finished);
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
