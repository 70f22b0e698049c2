#include "BroadcastTestSupport.h"

namespace
{
/// Keeps what it gets, taken apart.
class Viewer : public BroadcastListener
{
public:
    int beginsWith() const override { return 1; }
    void packetArrived(SharedPacket const& packet) override
    {
        AsfPacket const arrived = *AsfPacket::parse(packet.frame({false, 0}, {}).mid(8));
        isContinuous = isContinuous && (packets.isEmpty() || (packet.locationId() == lastLocation + 1 &&
                                                              arrived.sendTime() >= packets.last().sendTime() &&
                                                              arrived.sendTime() <= packets.last().sendTime() + 500));
        lastLocation = packet.locationId();
        packets.append(arrived);
    }
    void headerChanged(Change) override { ++headers; }
    void ended() override { hasEnded = true; }

    QList<AsfPacket> packets;
    quint32 lastLocation = 0;
    int headers = 0;
    bool hasEnded = false;
    bool isContinuous = true; ///< For a player it is one stream.
};

} // namespace

using BroadcastTest = BroadcastFixture;

TEST_F(BroadcastTest, ANewViewerBeginsAtAKeyFrameAboutABurstAgo)
{
    for (int const late : {0, 777, 5001}) {
        clock.advance(late);
        Viewer viewer;
        live().join(&viewer);
        ASSERT_FALSE(viewer.packets.isEmpty());
        EXPECT_TRUE(std::ranges::any_of(viewer.packets.first().payloads(), [](AsfPacket::Payload const& payload) {
            return payload.stream == 1 && payload.isKeyFrame && payload.startsObject;
        }));
        qint64 const past = live().position() - viewer.packets.first().sendTime();
        EXPECT_GE(past, msBurst);
        EXPECT_LE(past, msBurst + 1000); // There are two key frames in a second.
        EXPECT_LE(live().position() - viewer.packets.last().sendTime(), 500);
        live().leave(&viewer);
    }
}

TEST_F(BroadcastTest, AnEndlessStreamGrowsThroughRepetitionsAndEntries)
{
    Broadcast& broadcast = addBroadcast("/list", {Clips::wmv(4), Clips::wmv(2)});
    Viewer viewer;
    broadcast.join(&viewer);
    qsizetype const burst = viewer.packets.size();
    AsfFile const& first = broadcast.film();
    timers.advance(3 * static_cast<int>(first.duration()));
    EXPECT_NEAR(static_cast<double>(viewer.packets.size() - burst), 3 * first.packetCount(), 1);
    broadcast.nextEntry();
    EXPECT_EQ(broadcast.playlistGeneration(), 2U);
    EXPECT_NE(&broadcast.film(), &first);
    timers.advance(7'000);
    EXPECT_EQ(viewer.headers, 1);
    broadcast.nextEntry();
    EXPECT_EQ(&broadcast.film(), &first);
    timers.advance(1'000);
    EXPECT_TRUE(viewer.isContinuous);
    broadcast.leave(&viewer);
}

TEST_F(BroadcastTest, SilenceAndRateShowInWhatArrives)
{
    Viewer viewer;
    live().join(&viewer);
    auto const arrivedIn = [&](int ms) {
        qsizetype const before = viewer.packets.size();
        timers.advance(ms);
        return static_cast<double>(viewer.packets.size() - before);
    };
    live().setSilent(true);
    EXPECT_EQ(arrivedIn(3'000), 0);
    live().setSilent(false);
    int const once = static_cast<int>(live().film().duration());
    EXPECT_NEAR(arrivedIn(once), live().film().packetCount(), 1);
    live().setRate(40);
    EXPECT_NEAR(arrivedIn(5 * once), 2 * live().film().packetCount(), 1);
    live().end();
    EXPECT_TRUE(viewer.hasEnded);
    live().leave(&viewer);
    EXPECT_FALSE(timers.timers().first()->isActive()) << "nobody looks";
}
