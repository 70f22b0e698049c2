// Data packets written by hand: what is passed on, what is dropped, and what is put together.

#include "AsfBytes.h"
#include "SimpleAsfParser.h"

#include <gmock/gmock.h>

using namespace AsfBytes;

namespace
{
class AsfPacket : public testing::Test
{
protected:
    AsfPacket() : parser(header({fileProperties(1300), audio(1), video(2)}))
    {
        QObject::connect(&parser, &SimpleAsfParser::onPacket,
                         [this](SimpleAsfParser::MediaFrame const& frame) { frames.append(frame); });
    }

    SimpleAsfParser parser;
    QList<SimpleAsfParser::MediaFrame> frames;
};

/// Multiple payloads, all field types u8 but the payload length, which is u16.
QByteArray packet(QList<QByteArray> const& payloads)
{
    return QByteArray::fromHex("820000") + u8(0x01) + u8(0x15) + u32(5000) + u16(40) +
           u8(static_cast<quint8>(0x80 | payloads.size())) + payloads.join();
}

QByteArray payload(int stream, quint32 objectSize, quint32 presentationTime, QByteArray const& data)
{
    return u8(static_cast<quint8>(stream)) + u8(1) + u8(0) + u8(8) + u32(objectSize) + u32(presentationTime) +
           u16(static_cast<quint16>(data.size())) + data;
}
} // namespace

TEST_F(AsfPacket, WhatIsNotUnderstoodPassesAndWhatDoesNotFitIsDropped)
{
    EXPECT_EQ(parser.ParseFrame("\x02 without error correction"), 1);
    EXPECT_EQ(parser.ParseFrame(packet({payload(1, 10, 0, "0123456789")}).chopped(1)), 0);
    EXPECT_EQ(parser.ParseFrame(packet({payload(1, 2000, 0, QByteArray(1301, 'x'))})), 0);
    EXPECT_TRUE(frames.isEmpty());
}

TEST_F(AsfPacket, PayloadsOfSeveralStreamsArePutTogetherAndCompressedOnesWalkedOver)
{
    QByteArray const compressed = u8(1) + u8(2) + u8(0) + u8(1) + u8(40) + u16(7) + u8(2) + "ab" + u8(3) + "cde";
    parser.ParseFrame(
        packet({payload(1, 6, 10, "abc"), payload(2, 2, 10, "xy"), compressed, payload(1, 6, 10, "def")}));
    ASSERT_EQ(frames.size(), 2);
    EXPECT_EQ(frames[0].data, "xy");
    EXPECT_EQ(frames[1].data, "abcdef");
    EXPECT_EQ(frames[1].streamNumber, 1);
}
