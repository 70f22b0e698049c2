#include "BroadcastTestSupport.h"

namespace
{
/// Keeps what it gets, taken apart.
class Viewer : public BroadcastListener
{
public:
    explicit Viewer(int firstStream = 1) : _firstStream(firstStream) {}

    int beginsWith() const override { return _firstStream; }
    void packetArrived(SharedPacket const& packet) override
    {
        locations.append(packet.locationId());
        packets.append(*AsfPacket::parse(packet.frame({false, 0}, {}).mid(8)));
        if (packets.size() == leavesAfter)
            broadcast->leave(this);
    }
    void headerChanged(Change) override { headersAt.append(packets.size()); }
    void ended() override { hasEnded = true; }

    QList<AsfPacket> packets;
    QList<quint32> locations;
    QList<qsizetype> headersAt;
    bool hasEnded = false;
    Broadcast* broadcast = nullptr;
    qsizetype leavesAfter = -1;

private:
    int _firstStream;
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
    for (int const late : {0, 130, 777, 4999, 5001, 123456}) {
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
    EXPECT_EQ(viewer.headersAt.size(), 1);
    broadcast.nextEntry();
    EXPECT_EQ(broadcast.film().packetCount(), 50);
    timers.advance(1'000);
    EXPECT_NEAR(static_cast<double>(viewer.packets.size() - burst), 200, 4);
    expectContinuous(viewer);
    broadcast.leave(&viewer);
}

TEST_F(BroadcastTest, AllViewersShareOneClockAndTheBytes)
{
    Viewer early;
    live().join(&early);
    timers.advance(3'300);
    Viewer late;
    live().join(&late);
    timers.advance(1'000);
    EXPECT_EQ(early.locations.last(), late.locations.last());
    SharedPacket const packet(1, early.packets.last());
    EXPECT_EQ(packet.frame({true, 0}, {}).constData(), packet.frame({true, 0}, {}).constData());
    live().leave(&early);
    live().leave(&late);
    EXPECT_EQ(timers.timers().first()->isActive(), false);
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
    live().setRate(200);
    EXPECT_NEAR(arrivedIn(3'000), 60, 1);
    live().end();
    EXPECT_TRUE(viewer.hasEnded);
    live().leave(&viewer);
}

TEST_F(BroadcastTest, AViewerMayLeaveInTheMiddleOfADelivery)
{
    for (qsizetype const count : {1, 5, 30, 31}) {
        Viewer other;
        Viewer leaving;
        leaving.broadcast = &live();
        leaving.leavesAfter = count;
        live().join(&leaving);
        live().join(&other);
        timers.advance(2'000);
        EXPECT_EQ(leaving.packets.size(), count);
        EXPECT_GT(other.packets.size(), 30);
        EXPECT_EQ(live().listenerCount(), 1);
        live().leave(&other);
    }
}

TEST(StreamSelection, OneOfTheAlternativesIsLeftOn)
{
    QString error;
    std::unique_ptr<AsfFile> const file =
        AsfFile::open(Clips::write("three.asf", AsfBuilder(20, 3).file()), error); // 100, 200, 300 kbit/s; sound 50.
    ASSERT_TRUE(file);
    using Switches = QList<StreamSelection::Switch>;
    auto const off = StreamSelection::Off;
    struct Case {
        Switches switches;
        qint64 maximumBitrate;
        QList<int> on;
    };
    QList<Case> const cases = {
        {{}, 0, {3, 9}},
        {{}, 260'000, {2, 9}},
        {{}, 10, {1, 9}},
        {{{0xFFFF, 3, off}}, 0, {2, 9}},
        {{{0xFFFF, 3, off}, {0xFFFF, 2, off}, {0xFFFF, 9, off}}, 0, {1}},
        {{{0xFFFF, 1, StreamSelection::Full}, {0xFFFF, 2, off}, {0xFFFF, 3, off}}, 0, {1, 9}},
        {{{3, 2, StreamSelection::Full}}, 0, {2, 9}},
        {{{0xFFFF, 77, off}}, 0, {3, 9}},
    };
    for (Case const& one : cases) {
        StreamSelection const selection = StreamSelection::choose(file->header(), one.switches, one.maximumBitrate);
        QList<int> on;
        for (int const stream : file->header().streams().keys()) {
            if (selection.value(stream) != off)
                on.append(stream);
        }
        EXPECT_EQ(on, one.on) << &one - cases.data();
    }
}
