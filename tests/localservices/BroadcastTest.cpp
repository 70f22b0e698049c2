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
        locations.append(packet.locationId());
        packets.append(*AsfPacket::parse(packet.frame({false, 0}, {}).mid(8)));
    }
    void headerChanged(Change) override { ++headers; }
    void ended() override { hasEnded = true; }

    QList<AsfPacket> packets;
    QList<quint32> locations;
    int headers = 0;
    bool hasEnded = false;
};

/// Everything that has to grow does, by steps that a player takes for one stream.
void expectContinuous(Viewer const& viewer)
{
    for (qsizetype i = 1; i < viewer.packets.size(); ++i) {
        AsfPacket const& before = viewer.packets.at(i - 1);
        AsfPacket const& after = viewer.packets.at(i);
        EXPECT_EQ(viewer.locations.at(i), viewer.locations.at(i - 1) + 1);
        EXPECT_GE(after.sendTime(), before.sendTime());
        EXPECT_LE(after.sendTime() - before.sendTime(), 2U * AsfBuilder::msBetweenPackets);
        for (qsizetype k = 0; k < after.payloads().size(); ++k) {
            AsfPacket::Payload const& payload = after.payloads().at(k);
            EXPECT_GT(payload.presentationTime.value, before.payloads().at(k).presentationTime.value);
            EXPECT_NE(payload.objectNumber.value, before.payloads().at(k).objectNumber.value);
        }
    }
}
} // namespace

using BroadcastTest = BroadcastFixture;

TEST_F(BroadcastTest, ANewViewerBeginsAtAKeyFrameAboutABurstAgo)
{
    for (int const late : {0, 777, 5001}) {
        clock.advance(late);
        Viewer viewer;
        live().join(&viewer);
        ASSERT_FALSE(viewer.packets.isEmpty());
        AsfPacket::Payload const& first = viewer.packets.first().payloads().first();
        EXPECT_TRUE(first.isKeyFrame);
        qint64 const past = live().position() - viewer.packets.first().sendTime();
        EXPECT_GE(past, msBurst);
        EXPECT_LE(past, msBurst + AsfBuilder::packetsBetweenKeyFrames * AsfBuilder::msBetweenPackets);
        EXPECT_LE(live().position() - viewer.packets.last().sendTime(), AsfBuilder::msBetweenPackets);
        live().leave(&viewer);
    }
}

TEST_F(BroadcastTest, AnEndlessStreamGrowsThroughRepetitionsAndEntries)
{
    Broadcast& broadcast = addBroadcast("/list", {AsfBuilder(50).file(), AsfBuilder(33).file()});
    Viewer viewer;
    broadcast.join(&viewer);
    qsizetype const burst = viewer.packets.size();
    timers.advance(12'000);
    EXPECT_NEAR(static_cast<double>(viewer.packets.size() - burst), 120, 1);
    broadcast.nextEntry();
    EXPECT_EQ(broadcast.playlistGeneration(), 2U);
    EXPECT_EQ(broadcast.film().packetCount(), 33);
    timers.advance(7'000);
    EXPECT_EQ(viewer.headers, 1);
    broadcast.nextEntry();
    EXPECT_EQ(broadcast.film().packetCount(), 50);
    timers.advance(1'000);
    EXPECT_NEAR(static_cast<double>(viewer.packets.size() - burst), 200, 4);
    expectContinuous(viewer);
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
    EXPECT_NEAR(arrivedIn(3'000), 30, 1);
    live().setRate(40);
    EXPECT_NEAR(arrivedIn(10'000), 40, 1);
    live().end();
    EXPECT_TRUE(viewer.hasEnded);
    live().leave(&viewer);
    EXPECT_FALSE(timers.timers().first()->isActive()) << "nobody looks";
}
