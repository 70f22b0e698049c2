// Bytes that no server in its right mind sends: the decoder refuses them, at a cost in proportion to what has come.

#include "BerBytes.h"
#include "CentralisedBiscottiMessageEncoder.h"
#include "DecodedMessages.h"

#include <gtest/gtest.h>
#include <malloc.h>
#include <memory>
#include <vector>

using namespace BerBytes;

namespace
{

QByteArray const heartbeat = envelope(value(0xA0, {}));

QByteArray postOf(QByteArray const& id, QByteArray const& topics = value(0xA1, {}), QByteArray const& rest = {})
{
    return envelope(value(0xA4, id + topics + rest));
}

/// As many levels of the same constructed value.
QByteArray nested(int tag, int levels)
{
    QByteArray result;
    for (int i = 0; i < levels; ++i)
        result += QByteArray(1, static_cast<char>(tag)) + QByteArray(1, '\x80');
    return result;
}

/// The decoder says exactly one error about the bytes, and understands the next stream.
void expectRefusal(QByteArray const& bytes)
{
    DecodedMessages decoded;
    decoded.decoder.appendBytes(bytes);
    EXPECT_EQ(decoded.errors, 1);
    EXPECT_EQ(decoded.messages.size(), 0);
    decoded.decoder.reset();
    decoded.decoder.appendBytes(heartbeat);
    EXPECT_EQ(decoded.messages.size(), 1);
}

size_t allocatedBytes()
{
    struct mallinfo2 const info = mallinfo2();
    return info.uordblks + info.hblkhd;
}

} // namespace

TEST(CentralisedBiscottiHostile, ReadsEveryFormOfALength)
{
    QByteArray const longest = value(0xA1, value(0x80, "m", 8) + value(0xA5, value(0xA0, {}, 8), 8), 8);
    QByteArray const mixed = indefinite(0xA1, value(0x80, "m", 3) + value(0xA5, indefinite(0xA0, {}), 1));
    for (QByteArray const& bytes : {longest, mixed})
        for (qsizetype cut = 0; cut < bytes.size(); ++cut) {
            SCOPED_TRACE(bytes.toHex().toStdString() + ", cut at " + std::to_string(cut));
            DecodedMessages decoded;
            decoded.decoder.appendBytes(bytes.first(cut));
            EXPECT_EQ(decoded.messages.size(), 0);
            decoded.decoder.appendBytes(bytes.sliced(cut) + heartbeat);
            EXPECT_EQ(decoded.errors, 0);
            ASSERT_EQ(decoded.messages.size(), 2);
            EXPECT_EQ(decoded.messages[0].rawBytes, bytes);
            EXPECT_EQ(decoded.messages[0].id, "m");
        }
}

TEST(CentralisedBiscottiHostile, ReadsStringsInPieces)
{
    QByteArray const pieces = value(0x04, "ab") + value(0x04, {}) + value(0x04, "c");
    QByteArray const inner = indefinite(0x24, value(0x04, "ab") + value(0x24, value(0x04, "c")));
    DecodedMessages decoded;
    decoded.decoder.appendBytes(
        postOf(value(0xA0, pieces), value(0xA1, value(0x0C, "abc") + value(0x2C, pieces)), indefinite(0xA3, inner)));
    EXPECT_EQ(decoded.lastPost.body(), "abc");
    EXPECT_EQ(decoded.lastPost.postId().toString(), "abc");
    EXPECT_EQ(decoded.lastPost.topics().last().toString(), ".abc");
}

TEST(CentralisedBiscottiHostile, RefusesWhatIsNestedTooDeep)
{
    QByteArray const post = hex("A1 80 80 01 6D A5 80 A4 80 80 01 70 A1 80 00 00 A3 80"); // Four levels are open.
    expectRefusal(post + nested(0x24, 29));
    DecodedMessages decoded;
    decoded.decoder.appendBytes(post + nested(0x24, 28) + hex("04 01 62") + QByteArray(2 * 32, '\0'));
    EXPECT_EQ(decoded.errors, 0);
    EXPECT_EQ(decoded.lastPost.body(), "b");
}

TEST(CentralisedBiscottiHostile, RefusesLengthsBeyondItsLimitBeforeTheBytesHaveCome)
{
    char const* const cases[] = {
        "A1 83 10 00 01",                // a byte more than a message may have, its header not counted
        "A1 84 FF FF FF FF",             //
        "A1 88 FF FF FF FF FF FF FF FF", //
        "A1 89 01",                      // a length of more than eight bytes
        "A1 80 80 84 7F FF FF FF",       // the text of a message without end
        "A1 0A 80 0B",                   // larger than the value around it
        "A1 80 80 80",                   // a primitive value without end
    };
    for (char const* const bytes : cases) {
        SCOPED_TRACE(bytes);
        expectRefusal(hex(bytes));
    }
    expectRefusal(hex("A1 80") + QByteArray(768 * 1024, '\0'));
}

TEST(CentralisedBiscottiHostile, TakesNoMoreMemoryThanWhatHasCome)
{
    // Bodies of a million bytes are announced, each on a link of its own, and the first bytes come.
    QByteArray const announcement = hex("A1 80 80 01 6D A5 80 A4 80 80 01 70 A1 00 83 83 0F 42 40") + "body";
    size_t const before = allocatedBytes();
    std::vector<std::unique_ptr<DecodedMessages>> links;
    for (int i = 0; i < 100; ++i) {
        links.push_back(std::make_unique<DecodedMessages>());
        links.back()->decoder.appendBytes(announcement);
        ASSERT_EQ(links.back()->errors, 0);
    }
    // What cannot be understood is not kept for ever.
    QByteArray const rubbish = hex("A1 80 FF") + QByteArray(64 * 1024, 'x');
    for (int i = 0; i < 100; ++i)
        links[0]->decoder.appendBytes(rubbish);
    EXPECT_LT(allocatedBytes() - before, size_t(2) * 1024 * 1024);
}

TEST(CentralisedBiscottiHostile, ReadsTheLargestMessage)
{
    QByteArray const body(centralisedBiscottiMaximumMessageBytes - 100, 'x');
    QByteArray const bytes = postOf(value(0x80, "p"), value(0xA1, {}), value(0x83, body));
    DecodedMessages decoded;
    for (qsizetype i = 0; i < bytes.size(); i += 1000)
        decoded.decoder.appendBytes(bytes.mid(i, 1000));
    EXPECT_TRUE(decoded.lastPost.body() == body);
}

TEST(CentralisedBiscottiHostile, KeepsTheBytesBehindAnError)
{
    QByteArray const badTime = timed(hex("800207DB 81010D 820101 830100 840100 850100 860100"));
    DecodedMessages decoded;
    decoded.decoder.appendBytes(heartbeat + badTime + heartbeat + heartbeat);
    EXPECT_EQ(decoded.errors, 1);
    EXPECT_EQ(decoded.messages.size(), 1);
    decoded.decoder.appendBytes(heartbeat);
    EXPECT_EQ(decoded.errors, 1);
    EXPECT_EQ(decoded.messages.size(), 4);

    decoded.decoder.appendBytes("XYZ");
    decoded.decoder.appendBytes(heartbeat); // stays out of step
    EXPECT_EQ(decoded.errors, 3);
    EXPECT_EQ(decoded.messages.size(), 4);
}
