#include "Clips.h"
#include "LiveStream.h"

#include <QDir>
#include <QElapsedTimer>
#include <QRandomGenerator>
#include <QTest>

#include <functional>
#include <gmock/gmock.h>

namespace
{

constexpr int framesPerSecond = 25;

/// What the kernel counts for this process.
struct Footprint {
    int threads = static_cast<int>(QDir("/proc/self/task").entryList(QDir::Dirs | QDir::NoDotAndDotDot).size());
    int descriptors = static_cast<int>(
        QDir("/proc/self/fd").entryList(QDir::NoDotAndDotDot | QDir::AllEntries | QDir::System).size());
};

/// Turns the event loop until the condition holds; false when it does not within ten seconds.
bool waitUntil(std::function<bool()> const& condition)
{
    return QTest::qWaitFor(condition, 10000);
}

/// How often a test goes round: so often, or as the environment says for a longer look.
int rounds(int usual)
{
    int const asked = qEnvironmentVariableIntValue("OMBRAVISION_TEST_ROUNDS");
    return asked > 0 ? asked : usual;
}

/// By HTTP and by TCP.
class LiveTelevision : public testing::TestWithParam<bool>
{
protected:
    QString address() const { return GetParam() ? servers.overTcp() : servers.overHttp(); }

    bool waitForFrames(LiveStream const& stream, int count)
    {
        int const before = stream.videoFrames();
        return waitUntil([&] { return stream.videoFrames() >= before + count; });
    }

    StreamServers servers{{Clips::wmv(12), Clips::wmv(4)}};
    LiveNetwork network;
};

} // namespace

TEST_P(LiveTelevision, GoesOnWheneverTheServerComesBackAndLeavesNothingBehind)
{
    LiveStream stream(network, address());
    ASSERT_TRUE(waitForFrames(stream, 1));
    Footprint early;
    int const losses = rounds(6);
    for (int i = 0; i < losses; ++i) {
        if (i == losses / 3)
            early = Footprint();
        qsizetype const errors = stream.errors().size();
        servers.kill();
        // Its words for the loss may pass unheard while pictures still come; that nobody answers is told in any case.
        ASSERT_TRUE(waitUntil([&] { return stream.errors().size() > errors; })) << i;
        servers.start();
        ASSERT_TRUE(waitUntil([&] { return stream.plays() == i + 2; })) << i;
        ASSERT_TRUE(waitForFrames(stream, 1));
    }
    Footprint const late;
    EXPECT_LE(late.threads, early.threads + 1); // One may be on its way.
    EXPECT_LE(late.descriptors, early.descriptors + 2);
}

TEST_P(LiveTelevision, ClosesAtAnyMoment)
{
    QRandomGenerator random(20);
    for (int i = 0; i < rounds(20); ++i) {
        // As it should be, dumb in one step or another, cut off, or gone.
        QStringList const commands[] = {{},
                                        {},
                                        {"fault /live silent on describe"},
                                        {"fault /live silent on play", "fault /live silent on open"},
                                        {"fault * silent on connect"},
                                        {"fault /live cut header"},
                                        {"fault /live cut packet"},
                                        {"fault /live 503"},
                                        {"silence on"}};
        servers.kill();
        if (int const kind = random.bounded(10); kind < 9) {
            servers.setCommands(commands[kind]);
            servers.start();
        }
        LiveStream stream(network, address());
        int const moment = random.bounded(40); // Which many do not reach.
        std::ignore = QTest::qWaitFor([&] { return stream.progress().size() + stream.videoFrames() >= moment; }, 300);
        QElapsedTimer elapsed;
        elapsed.start();
        stream.close(); // The servers are in this thread: whoever waits for them waits in vain.
        EXPECT_LT(elapsed.elapsed(), 1000) << stream.progress().join(", ").toStdString();
    }
}

TEST_P(LiveTelevision, AnotherFilmOfThePlaylistIsOpenedUnderItsOwnHeader)
{
    LiveStream stream(network, address());
    ASSERT_TRUE(waitForFrames(stream, framesPerSecond));
    EXPECT_FALSE(stream.wentBackwards());
    ASSERT_EQ(servers.run("playlist next"), QString());
    ASSERT_TRUE(waitUntil([&] { return stream.openings() == 2; }));
    ASSERT_TRUE(waitForFrames(stream, framesPerSecond));
    // Over TCP the first film's end is told as one, until pictures come again.
    EXPECT_EQ(stream.errors().isEmpty() ? QString() : stream.errors().last(), QString());
}

INSTANTIATE_TEST_SUITE_P(Transports, LiveTelevision, testing::Bool(),
                         [](auto const& transport) { return transport.param ? "Tcp" : "Http"; });

TEST(LivePlaylists, DeadEntriesAreLeftBehind)
{
    StreamServers const servers({Clips::wmv(12)});
    LiveNetwork network;
    for (char const* const ending : {".asx", ".wvx", ".ref"}) {
        LiveStream stream(network, servers.document(ending));
        ASSERT_TRUE(waitUntil([&] { return stream.videoFrames() > framesPerSecond; })) << ending;
    }
}
