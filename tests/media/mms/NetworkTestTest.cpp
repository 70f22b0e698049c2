#include "NetworkTest.h"

#include "FakeTimerFactory.h"
#include "LogCapture.h"
#include "NameLookup.h"

#include <QSignalSpy>
#include <QTest>

#include <gmock/gmock.h>

namespace
{

bool waitUntil(std::function<bool()> const& condition)
{
    return QTest::qWaitFor(condition, 10000);
}

} // namespace

TEST(NetworkTest, KnowsOfNumericAddressesAtOnceAndOfNamesLater)
{
    struct Case {
        char const* host;
        bool isAtOnce;
        bool isAvailable;
        char const* line; ///< In the log; null for none.
    };
    Case const cases[] = {
        {"127.0.0.1", true, true, nullptr},
        {"255.255.255.255", true, false, "could not connected"},
        {"", true, false, nullptr},
        {"localhost", false, true, nullptr},
        {"nobody.invalid", false, false, "Couldn't get address info for host nobody.invalid error "},
    };
    FakeTickCounter clock;
    FakeTimerFactory timers(clock);
    for (Case const& c : cases) {
        LogCapture const capture;
        NetworkTest test(&timers);
        QSignalSpy const finished(&test, &NetworkTest::finished);
        std::optional<bool> const answer = test.start(c.host);
        ASSERT_EQ(answer.has_value(), c.isAtOnce) << c.host;
        if (!c.isAtOnce) {
            ASSERT_TRUE(waitUntil([&] { return !finished.isEmpty(); }));
        }
        EXPECT_EQ(answer.value_or(!finished.isEmpty() && finished.first().first().toBool()), c.isAvailable) << c.host;
        EXPECT_TRUE(!c.line || capture.contains(c.line)) << c.line;
    }
}

TEST(NetworkTest, ASilentNameServiceIsNotWaitedFor)
{
    FakeTickCounter clock;
    FakeTimerFactory timers(clock);
    NameLookup lookup;
    {
        NetworkTest test(&timers);
        QSignalSpy const finished(&test, &NetworkTest::finished);
        EXPECT_EQ(test.start("slow.invalid"), std::nullopt);
        EXPECT_EQ(test.start("slow.invalid"), std::nullopt);
        ASSERT_TRUE(waitUntil([&] { return lookup.waiting() > 0; }));
        timers.advance(4999);
        EXPECT_TRUE(finished.isEmpty());
        timers.advance(1);
        ASSERT_EQ(finished.size(), 1);
        EXPECT_FALSE(finished.first().first().toBool());
        EXPECT_EQ(test.start("slow.invalid"), false); // No second thread beside the one that hangs.
        EXPECT_EQ(lookup.waiting(), 1);
    }
    NetworkTest cancelled(&timers);
    QSignalSpy const finished(&cancelled, &NetworkTest::finished);
    EXPECT_EQ(cancelled.start("slow.invalid"), std::nullopt);
    cancelled.cancel();
    timers.advance(10000);
    EXPECT_TRUE(finished.isEmpty());
}
