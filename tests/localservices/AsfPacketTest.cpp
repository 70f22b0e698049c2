#include "AsfPacket.h"

#include "AsfBuilder.h"
#include "Clips.h"

#include <QRandomGenerator>

#include <gtest/gtest.h>

namespace
{
QByteArray const threePayloads = AsfBuilder::packet(
    5000, {{1, true, 7, 6000, "picture"}, {2, false, 255, 6010, "other picture"}, {9, true, 3, 6020, "sound"}});

bool isStream(AsfPacket::Payload const& payload, QList<int> const& streams)
{
    return streams.contains(payload.stream);
}
} // namespace

TEST(AsfPacket, UnwantedPayloadsAreTakenOut)
{
    struct Case {
        QList<int> wanted;
        QList<QByteArray> data;
    };
    std::optional<AsfPacket> const packet = AsfPacket::parse(threePayloads);
    ASSERT_TRUE(packet);
    for (Case const& one : {Case{{1, 9}, {"picture", "sound"}}, Case{{2}, {"other picture"}},
                            Case{{1, 2, 9}, {"picture", "other picture", "sound"}}, Case{{5}, {}}}) {
        QByteArray const filtered =
            packet->filtered([&](AsfPacket::Payload const& payload) { return isStream(payload, one.wanted); });
        if (one.data.isEmpty()) {
            EXPECT_TRUE(filtered.isEmpty());
            continue;
        }
        EXPECT_EQ(filtered.size(), AsfBuilder::packetSize);
        std::optional<AsfPacket> const again = AsfPacket::parse(filtered);
        ASSERT_TRUE(again);
        EXPECT_EQ(again->sendTime(), 5000U);
        ASSERT_EQ(again->payloads().size(), one.data.size());
        for (qsizetype i = 0; i < one.data.size(); ++i) {
            AsfPacket::Payload const& payload = again->payloads().at(i);
            EXPECT_EQ(filtered.mid(payload.position + payload.size - payload.dataSize, payload.dataSize),
                      one.data.at(i));
            EXPECT_GE(payload.presentationTime.value, 6000U);
        }
    }
}

TEST(AsfPacket, TimesAndObjectNumbersMoveOnAndWrapAround)
{
    std::optional<AsfPacket> packet = AsfPacket::parse(threePayloads);
    ASSERT_TRUE(packet);
    packet->shift(0xFFFFFFFF - 5000, {{1, 10}, {2, 2}});
    std::optional<AsfPacket> const again = AsfPacket::parse(packet->bytes());
    ASSERT_TRUE(again);
    EXPECT_EQ(again->sendTime(), 0xFFFFFFFFU);
    EXPECT_EQ(again->payloads().at(0).presentationTime.value, 999U);
    EXPECT_EQ(again->payloads().at(0).objectNumber.value, 17U);
    EXPECT_EQ(again->payloads().at(1).objectNumber.value, 1U);
    EXPECT_EQ(again->payloads().at(2).objectNumber.value, 3U);
}

TEST(AsfPacket, NoLengthInAPacketIsBelieved)
{
    QByteArray const clip = Clips::bytes(Clips::wmv());
    QByteArray const real = clip.mid(clip.indexOf(QByteArray("\x82\0\0", 3)), 3200);
    QRandomGenerator random(1);
    for (QByteArray const& whole : {threePayloads, real}) {
        for (qsizetype size = 0; size <= whole.size(); ++size)
            AsfPacket::parse(whole.left(size));
        for (int i = 0; i < 20'000; ++i) {
            QByteArray mutated = whole;
            for (int changes = 1 + i % 4; changes > 0; --changes)
                mutated[random.bounded(std::min<int>(100, static_cast<int>(mutated.size())))] =
                    static_cast<char>(random.bounded(256));
            std::optional<AsfPacket> packet = AsfPacket::parse(mutated);
            if (!packet)
                continue;
            packet->shift(12345, {{1, 5}});
            QByteArray const filtered =
                packet->filtered([](AsfPacket::Payload const& payload) { return payload.stream == 1; });
            EXPECT_TRUE(filtered.isEmpty() || filtered.size() == whole.size());
        }
    }
}
