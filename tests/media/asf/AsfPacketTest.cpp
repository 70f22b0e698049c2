// Data packets written by hand: what is passed on, what is dropped, and what is put together.

#include "AsfBytes.h"
#include "SimpleAsfParser.h"

#include <gmock/gmock.h>

using namespace AsfBytes;

namespace
{
constexpr int packetSize = 1300;

class AsfPacket : public testing::Test
{
protected:
    AsfPacket() : parser(header({fileProperties(packetSize), audio(1), video(2)}))
    {
        QObject::connect(&parser, &SimpleAsfParser::onPacket,
                         [this](SimpleAsfParser::MediaFrame const& frame) { frames.append(frame); });
    }

    SimpleAsfParser parser;
    QList<SimpleAsfParser::MediaFrame> frames;
};

QByteArray replicated(quint32 objectSize, quint32 presentationTime)
{
    return u8(8) + u32(objectSize) + u32(presentationTime);
}

/// Multiple payloads, all field types u8 but the payload length, which is u16.
QByteArray packet(QList<QByteArray> const& payloads)
{
    return QByteArray::fromHex("820000") + u8(0x01) + u8(0x15) + u32(5000) + u16(40) +
           u8(static_cast<quint8>(0x80 | payloads.size())) + payloads.join();
}

QByteArray payload(int stream, quint32 objectSize, quint32 presentationTime, QByteArray const& data)
{
    return u8(static_cast<quint8>(stream)) + u8(1) + u8(0) + replicated(objectSize, presentationTime) +
           u16(static_cast<quint16>(data.size())) + data;
}
} // namespace

TEST_F(AsfPacket, FormsThatAreNotUnderstoodPass)
{
    struct {
        char const* name;
        QByteArray bytes;
        qint64 result;
    } const table[] = {
        {"empty", "", 0},
        {"no error correction", "\x02 and anything", 1},
        {"error correction longer than the packet", QByteArray("\x8F\x00\x00", 3), 1},
        {"error correction that is not plain", QByteArray("\x92\x00\x00\x00\x00", 5), 1},
        {"more bytes than a packet has", QByteArray::fromHex("820000") + u8(0x60) + u8(0x5D) + u32(1301), 1},
        {"no replicated data", packet({u8(1) + u8(1) + u8(0) + u8(0)}), 1},
        {"payload past the end", packet({payload(1, 10, 0, "0123456789")}).chopped(1), 0},
        {"payload longer than a packet", packet({payload(1, 2000, 0, QByteArray(1301, 'x'))}), 0},
        {"one payload that does not fit",
         QByteArray::fromHex("820000") + u8(0) + u8(0x15) + u32(0) + u16(0) + u8(1) + u8(1) + u8(0) +
             replicated(4, 0) + "data",
         0},
    };
    for (auto const& test : table)
        EXPECT_EQ(parser.ParseFrame(test.bytes), test.result) << test.name;
    EXPECT_TRUE(frames.isEmpty());
}

TEST_F(AsfPacket, SinglePayloadHasTheLengthThatThePacketLeaves)
{
    struct {
        QByteArray lengths; // The length type flags and the fields they announce.
        qint64 data;
    } const table[] = {
        {u8(0x00), packetSize - 23},                          // No length stated: all of the packet.
        {u8(0x50) + u16(1295) + u16(5), packetSize - 27 - 10} // Both.
    };
    for (auto const& test : table) {
        frames.clear();
        QByteArray bytes = QByteArray::fromHex("820000") + test.lengths.left(1) + u8(0x15) + test.lengths.mid(1) +
                           u32(5000) + u16(40) + u8(0x82) + u8(1) + u8(0) +
                           replicated(static_cast<quint32>(test.data), 777);
        bytes = bytes.leftJustified(packetSize, 'x');
        EXPECT_GT(parser.ParseFrame(bytes), 1);
        ASSERT_EQ(frames.size(), 1);
        EXPECT_EQ(frames[0].data, QByteArray(test.data, 'x'));
        EXPECT_EQ(frames[0].presentationTime, 777u);
        EXPECT_EQ(frames[0].sendTime, 5000u);
        EXPECT_EQ(frames[0].streamType, asfVideoMediaGuid);
        EXPECT_TRUE(frames[0].keyFrame);
    }
}

TEST_F(AsfPacket, PayloadsOfSeveralStreamsAndCompressedOnes)
{
    QByteArray const compressed =
        u8(1) + u8(2) + u8(0) + u8(1) + u8(40) + u16(7) + u8(2) + "ab" + u8(3) + "cde"; // Walked over.
    EXPECT_GT(parser.ParseFrame(
                  packet({payload(1, 6, 10, "abc"), payload(2, 2, 10, "xy"), compressed, payload(1, 6, 10, "def")})),
              1);
    ASSERT_EQ(frames.size(), 2);
    EXPECT_EQ(frames[0].data, "xy");
    EXPECT_EQ(frames[1].data, "abcdef");
    EXPECT_EQ(frames[1].streamNumber, 1);
}

TEST_F(AsfPacket, SeventeenthIncompleteFrameTakesThePlaceOfTheEarliest)
{
    for (quint32 time = 100; time < 100 + SimpleAsfParser::maximumIncompleteFrames; ++time)
        parser.ParseFrame(packet({payload(1, 4, time, "ab")}));
    parser.ParseFrame(packet({payload(1, 4, 500, "ab")})); // That of 100 goes,
    parser.ParseFrame(packet({payload(1, 4, 500, "cd")})); // and with 16 still there, that of 101.
    ASSERT_EQ(frames.size(), 1);
    parser.ParseFrame(packet({payload(1, 4, 102, "cd"), payload(1, 4, 100, "cd")}));
    ASSERT_EQ(frames.size(), 2);
    EXPECT_EQ(frames[1].presentationTime, 102u);
}

/// Objects that never complete, in all streams at once.
TEST_F(AsfPacket, IncompleteObjectsAreGivenUpWhenThereAreTooMany)
{
    QByteArray const data(1200, 'x');
    for (quint32 i = 0; i < 40000; ++i)
        parser.ParseFrame(packet({payload(static_cast<int>(i % 128), 0xFFFF, i / 128 % 15, data)}));
    frames.clear();
    parser.ParseFrame(packet({payload(1, 3, 99999, "abc")}));
    EXPECT_EQ(frames.size(), 1);
}
