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

using Decoding = CentralisedBiscottiMessageDecoding;

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
void expectRefusal(QByteArray const& bytes, Decoding decoding = Decoding::Ber)
{
    DecodedMessages decoded(decoding);
    decoded.decoder.appendBytes(bytes);
    EXPECT_EQ(decoded.errors, 1);
    EXPECT_EQ(decoded.messages.size(), 0);
    decoded.decoder.setDecoding(Decoding::Ber);
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
    QByteArray const open = indefinite(0xA1, value(0x80, "m") + indefinite(0xA5, indefinite(0xA0, {})));
    QByteArray const mixed = indefinite(0xA1, value(0x80, "m", 3) + value(0xA5, indefinite(0xA0, {}), 1));
    for (QByteArray const& bytes : {longest, open, mixed})
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
    for (QByteArray const& body : {value(0xA3, pieces), indefinite(0xA3, pieces), indefinite(0xA3, inner)})
        for (QByteArray const& id : {value(0x80, "abc"), value(0xA0, pieces), indefinite(0xA0, pieces)}) {
            QByteArray const bytes = postOf(id, value(0xA1, value(0x0C, "abc") + value(0x2C, pieces)), body);
            for (qsizetype cut = 0; cut < bytes.size(); ++cut) {
                SCOPED_TRACE(bytes.toHex().toStdString() + ", cut at " + std::to_string(cut));
                DecodedMessages decoded;
                decoded.decoder.appendBytes(bytes.first(cut));
                decoded.decoder.appendBytes(bytes.sliced(cut));
                EXPECT_EQ(decoded.errors, 0);
                ASSERT_EQ(decoded.messages.size(), 1);
                EXPECT_EQ(decoded.lastPost.body(), "abc");
                EXPECT_EQ(decoded.lastPost.postId().toString(), "abc");
                EXPECT_EQ(decoded.lastPost.topics().last().toString(), ".abc");
            }
        }
}

TEST(CentralisedBiscottiHostile, SurvivesEveryValueOfEveryByte)
{
    QByteArray const sender = value(0x80, "m") + value(0x81, "s") + value(0x82, "n") + value(0x83, "r");
    QByteArray const time = value(0xA4, hex("800207DB 810101 820101 830100 840100 850100 860100"));
    QByteArray const samples[] = {
        value(0xA0, value(0x80, "i") + value(0x81, hex("00")) + value(0x82, "m") + value(0x83, "s")),
        value(0xA1, sender + time + value(0xA5, value(0xA0, {}))),
        envelope(value(0xA1, value(0x80, "a") + value(0x81, hex("00C8")) + value(0x82, "OK"))),
        envelope(value(0xA2, value(0x80, "i") + value(0x81, "s") + value(0xA2, value(0x81, ".t")))),
        indefinite(0xA1, value(0x80, "m") + indefinite(0xA5, indefinite(0xA3, value(0x80, "u")))),
        postOf(value(0x80, "p"), value(0xA1, value(0x0C, "t") + value(0x0C, "u")),
               value(0x82, "a") + value(0x83, "b")),
        postOf(indefinite(0xA0, value(0x0C, "p")), indefinite(0xA1, value(0x0C, "t")), value(0x83, "b")),
    };
    DecodedMessages decoded;
    for (QByteArray const& sample : samples)
        for (qsizetype position = 0; position < sample.size(); ++position)
            for (int byte = 0; byte < 256; ++byte) {
                QByteArray changed = sample;
                changed[position] = static_cast<char>(byte);
                decoded.messages.clear();
                decoded.errors = 0;
                decoded.decoder.reset();
                decoded.decoder.appendBytes(changed);
                ASSERT_LE(decoded.errors, 1);
                for (DecodedMessages::Message const& message : decoded.messages)
                    ASSERT_TRUE(changed.contains(message.rawBytes));
                decoded.decoder.reset();
                decoded.decoder.appendBytes(heartbeat);
                ASSERT_EQ(decoded.messages.last().rawBytes, heartbeat);
            }
}

TEST(CentralisedBiscottiHostile, RefusesWhatIsNestedTooDeep)
{
    for (int const levels : {33, 1000, 500000}) {
        SCOPED_TRACE(levels);
        expectRefusal(nested(0xA1, levels));
        expectRefusal(hex("A1 80 A0 80") + nested(0x2C, levels));
        expectRefusal(hex("A1 80 80 01 6D A5 80 A4 80 80 01 70 A1 80 A3 80") + nested(0x24, levels));
    }
    DecodedMessages decoded;
    QByteArray const deepest = nested(0x24, 1000000);
    for (qsizetype i = 0; i < deepest.size(); i += 4096)
        decoded.decoder.appendBytes(deepest.mid(i, 4096));
    EXPECT_GT(decoded.errors, 0);
}

TEST(CentralisedBiscottiHostile, RefusesLengthsBeyondItsLimitBeforeTheBytesHaveCome)
{
    char const* const cases[] = {
        "A1 83 10 00 01",                               // a byte more than a message may have, its header not counted
        "A1 84 7F FF FF FF",                            //
        "A1 84 80 00 00 00",                            //
        "A1 84 FF FF FF FF",                            //
        "A1 88 7F FF FF FF FF FF FF FF",                //
        "A1 88 FF FF FF FF FF FF FF FF",                //
        "A1 89 01",                                     // a length of more than eight bytes
        "A1 FF",                                        // reserved
        "A1 80 80 84 7F FF FF FF",                      // the text of a message without end
        "A1 0A 80 0B",                                  // larger than the value around it
        "A1 80 80 80",                                  // a primitive value without end
        "A1 80 80 01 6D A5 80 A1 80 81 84 7F FF FF FF", // an ack's number
    };
    for (char const* const bytes : cases) {
        SCOPED_TRACE(bytes);
        expectRefusal(hex(bytes));
    }
    expectRefusal(QByteArray(768 * 1024, '\0'));
    expectRefusal(hex("A1 80") + QByteArray(768 * 1024, '\0'));
    expectRefusal(hex("A1 80 80 01 6D A5 80 A4 80 80 01 70 A1 80 A3 80") + QByteArray(768 * 1024, '\0'));
}

TEST(CentralisedBiscottiHostile, TakesNoMoreMemoryThanWhatHasCome)
{
    // Bodies of a million bytes are announced, each on a link of its own, and the first bytes come.
    QByteArray const announcement = hex("A1 80 80 01 6D A5 80 A4 80 80 01 70 A1 00 83 83 0F 42 40") + "body";
    size_t const before = allocatedBytes();
    std::vector<std::unique_ptr<DecodedMessages>> links;
    for (int i = 0; i < 1000; ++i) {
        links.push_back(std::make_unique<DecodedMessages>());
        links.back()->decoder.appendBytes(announcement);
        ASSERT_EQ(links.back()->errors, 0);
    }
    EXPECT_LT(allocatedBytes() - before, size_t(16) * 1024 * 1024);

    // What cannot be understood is not kept for ever.
    DecodedMessages decoded;
    QByteArray const rubbish(64 * 1024, 'x');
    QByteArray const halfRubbish = hex("A1 80 FF") + rubbish;
    size_t const beforeRubbish = allocatedBytes();
    for (int i = 0; i < 1000; ++i) {
        decoded.decoder.appendBytes(rubbish);
        links[0]->decoder.appendBytes(halfRubbish);
    }
    EXPECT_LT(allocatedBytes(), beforeRubbish + size_t(16) * 1024 * 1024);
    EXPECT_EQ(decoded.errors, 1000);
}

TEST(CentralisedBiscottiHostile, ReadsTheLargestMessageByteByByte)
{
    BiscottiPost post;
    post.setPostId(BiscottiPostId("p"));
    post.setBody(QByteArray(centralisedBiscottiMaximumMessageBytes - 100, 'x'));
    CentralisedBiscottiMessageEncoder encoder(nullptr);
    encoder.setEncoding(CentralisedBiscottiMessageEncoding::Der);
    QByteArray const bytes = encoder.encodePost(CentralisedBiscottiMessageId("m"), post, {});
    ASSERT_FALSE(bytes.isEmpty());
    DecodedMessages decoded;
    for (char const byte : bytes)
        decoded.decoder.appendBytes(QByteArray(1, byte));
    EXPECT_EQ(decoded.errors, 0);
    ASSERT_EQ(decoded.messages.size(), 1);
    EXPECT_TRUE(decoded.lastPost.body() == post.body());

    // Many small members, and a number that is larger than the message.
    QByteArray topics;
    for (int i = 0; i < 100000; ++i)
        topics += value(0x0C, "ab");
    QByteArray const manyTopics = postOf(value(0x80, "p"), value(0xA1, topics));
    for (char const byte : manyTopics)
        decoded.decoder.appendBytes(QByteArray(1, byte));
    EXPECT_EQ(decoded.lastPost.topics().size(), 100000);
    QByteArray const largeNumber =
        hex("A1 80 80 01 6D A5 80 A1 80 80 01 61 81 83 0F 00 00") + QByteArray(0xF0000, '\1') + QByteArray(6, '\0');
    for (char const byte : largeNumber)
        decoded.decoder.appendBytes(QByteArray(1, byte));
    EXPECT_EQ(decoded.errors, 1);
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
    EXPECT_EQ(decoded.errors, 2);
    decoded.decoder.appendBytes(heartbeat); // stays out of step
    EXPECT_EQ(decoded.errors, 3);
    EXPECT_EQ(decoded.messages.size(), 4);
    decoded.decoder.reset();
    decoded.decoder.appendBytes(heartbeat);
    EXPECT_EQ(decoded.messages.size(), 5);
}

TEST(CentralisedBiscottiHostile, RefusesTextThatIsNone)
{
    char const* const texts[] = {"FF", "C3", "C080", "F8888080808080", "E2 28 A1"};
    for (char const* const text : texts) {
        SCOPED_TRACE(text);
        expectRefusal(postOf(value(0x80, hex(text))));
    }
    // A zero is a character like any other, and a body may hold anything.
    DecodedMessages decoded;
    decoded.decoder.appendBytes(postOf(value(0x80, hex("610062")), value(0xA1, {}), value(0x83, hex("FF00C3"))));
    ASSERT_EQ(decoded.messages.size(), 1);
    EXPECT_EQ(decoded.lastPost.postId().toString().size(), 3);
    EXPECT_EQ(decoded.lastPost.body(), hex("FF00C3"));
}

TEST(CentralisedBiscottiHostile, RefusesXerThatIsNoMessage)
{
    QByteArray const open = "<BiscEnvelope><unsignedMsg><msgId>";
    QByteArray const number = "<BiscEnvelope><unsignedMsg><msgId>m</msgId><msg><ack><ackMsgId>m</ackMsgId><ackCode>";
    QByteArray const cases[] = {
        "<BiscEnvelope/>",
        "<BiscEnvelope></BiscEnvelope>",
        "<BiscEnvelope><signedMsg/>",
        "</BiscEnvelope>",
        "<!DOCTYPE a [<!ENTITY b \"c\">]>",
        QByteArray("<a>").repeated(300000),
        "<" + QByteArray(1000000, 'a'),
        open + "m</senderId>",
        open + "m" + QByteArray("<a>").repeated(300000),
        open + "&" + QByteArray(1000, '#') + "<b>",
        open + QByteArray(centralisedBiscottiMaximumMessageBytes, 'x'),
        number + QByteArray(1000, '1'),
        number + "99999999999999999999</ackCode></ack></msg></unsignedMsg></BiscEnvelope>",
        number + "one</ackCode>",
    };
    for (QByteArray const& bytes : cases) {
        SCOPED_TRACE(bytes.first(std::min<qsizetype>(bytes.size(), 100)).toStdString());
        expectRefusal(bytes, Decoding::Xer);
    }
    for (char const* const reference :
         {"&#0;", "&#x0;", "&#-1;", "&#99999999999;", "&#xFFFFFFFF;", "&#;", "&;", "&"}) {
        SCOPED_TRACE(reference);
        DecodedMessages decoded(Decoding::Xer);
        decoded.decoder.appendBytes(open + reference +
                                    "</msgId><msg><heartbeat/></msg></unsignedMsg></BiscEnvelope>");
        EXPECT_EQ(decoded.errors + decoded.messages.size(), 1);
    }
}
