#include "BerBytes.h"
#include "CentralisedBiscottiMessageEncoder.h"
#include "DecodedMessages.h"
#include "LogCapture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <stdexcept>

using namespace BerBytes;
using testing::HasSubstr;

namespace
{

using Encoding = CentralisedBiscottiMessageEncoding;
using Decoding = CentralisedBiscottiMessageDecoding;
using Id = CentralisedBiscottiMessageId;

constexpr Encoding allEncodings[] = {Encoding::Der, Encoding::BasicXer, Encoding::CanonicalXer};

Decoding counterpart(Encoding encoding)
{
    return encoding == Encoding::Der ? Decoding::Ber : Decoding::Xer;
}

template<typename Message>
Message fromSomeone(Message message)
{
    message.setSenderId("zo\u00EB & <co>");
    message.setSenderName("Zo\u00EB \U0001F600");
    message.setSenderReplyTo("]]>\t\"'\\ ;&amp;");
    message.setSendUtc(QDateTime({2010, 12, 31}, {23, 59, 59, 999}, Qt::UTC));
    return message;
}

BiscottiPost post(QList<BiscottiTopic> const& topics = {}, QString const& audience = {}, QByteArray const& body = {})
{
    BiscottiPost result;
    result.setPostId(BiscottiPostId("c,3"));
    result.setTopics(topics);
    result.setAudience(BiscottiTopicExpression(audience));
    result.setBody(body);
    return result;
}

BiscottiSubscription subscription(QString const& fact, QString const& interest)
{
    BiscottiSubscription result;
    result.setSubscriptionId(BiscottiSubscriptionId("c,2"));
    result.setFact(BiscottiTopic(fact));
    result.setInterest(BiscottiTopicExpression(interest));
    return result;
}

BiscottiUnsubscription unsubscription()
{
    BiscottiUnsubscription result;
    result.setSubscriptionId(BiscottiSubscriptionId("c,2"));
    return result;
}

CentralisedBiscottiAck ack(int code)
{
    CentralisedBiscottiAck result;
    result.setAckMsgId(Id("c,1"));
    result.setAckCode(static_cast<CentralisedBiscottiAck::AckCode>(code));
    return result;
}

struct Sample {
    QString text;
    QByteArray bytes;
};

/// Messages of every kind, with all members and without.
QList<Sample> samples(Encoding encoding)
{
    CentralisedBiscottiMessageEncoder encoder(nullptr);
    encoder.setEncoding(encoding);
    QList<Sample> result;
    auto const add = [&](BiscottiMessage const& message, QByteArray const& bytes) {
        result.append({message.toString(), bytes});
    };
    for (auto const& heartbeat : {CentralisedBiscottiHeartbeat(), fromSomeone(CentralisedBiscottiHeartbeat())})
        add(heartbeat, encoder.encodeHeartbeat(Id("c,7"), heartbeat, {}));
    for (auto const& message : {ack(0), ack(200), ack(4092), fromSomeone(ack(-1)), ack(0x7FFFFFFF)})
        add(message, encoder.encodeAck(Id("c,7"), message, {}));
    for (auto const& message : {subscription({}, "chat.news"), fromSomeone(subscription("vote", {}))})
        add(message, encoder.encodeSubscription(Id("c,7"), BiscottiSubscriberId("c,chat"), message, {}));
    for (auto const& message : {unsubscription(), fromSomeone(unsubscription())})
        add(message, encoder.encodeUnsubscription(Id("c,7"), message, {}));
    QByteArray const everyByte = [] {
        QByteArray bytes;
        for (int i = 0; i < 256; ++i)
            bytes += static_cast<char>(i);
        return bytes;
    }();
    QList<BiscottiTopic> const topics{BiscottiTopic("a.b"), BiscottiTopic(), BiscottiTopic(".")};
    for (auto const& message :
         {post(), post(topics, "fans", "Hi"), fromSomeone(post({BiscottiTopic("chat")}, {}, everyByte))})
        add(message, encoder.encodePost(Id("c,7"), message, {}));
    return result;
}

/// XER may end with a line end, which is not part of the message.
QByteArray withoutLineEnd(QByteArray bytes, Encoding encoding)
{
    if (encoding == Encoding::BasicXer && bytes.endsWith('\n'))
        bytes.chop(1);
    return bytes;
}

/// Feeds the pieces to a new decoder, which must find exactly the sample.
void expectOnlyMessage(Sample const& sample, QList<QByteArray> const& pieces, Encoding encoding)
{
    DecodedMessages decoded(counterpart(encoding));
    for (QByteArray const& piece : pieces)
        decoded.decoder.appendBytes(piece);
    EXPECT_EQ(decoded.errors, 0);
    ASSERT_EQ(decoded.messages.size(), 1);
    DecodedMessages::Message const& message = decoded.messages.first();
    EXPECT_EQ(message.id, "c,7");
    EXPECT_EQ(message.text, sample.text);
    EXPECT_EQ(message.rawBytes.toStdString(), withoutLineEnd(sample.bytes, encoding).toStdString());
    EXPECT_TRUE(message.isTrusted);
}

QByteArray heartbeatAt(QDateTime const& time, Encoding encoding = Encoding::Der)
{
    CentralisedBiscottiHeartbeat heartbeat;
    heartbeat.setSendUtc(time);
    CentralisedBiscottiMessageEncoder encoder(nullptr);
    encoder.setEncoding(encoding);
    return encoder.encodeHeartbeat(Id("m"), heartbeat, {});
}

} // namespace

TEST(CentralisedBiscottiCodec, ReadsWhatItWrites)
{
    for (Encoding const encoding : allEncodings)
        for (Sample const& sample : samples(encoding)) {
            SCOPED_TRACE(sample.bytes.toHex().toStdString());
            expectOnlyMessage(sample, {sample.bytes}, encoding);
        }
}

TEST(CentralisedBiscottiCodec, ReadsMessagesInTwoPiecesAndByteByByte)
{
    for (Encoding const encoding : allEncodings)
        for (Sample const& sample : samples(encoding)) {
            SCOPED_TRACE(sample.bytes.toStdString());
            QList<QByteArray> bytes;
            for (qsizetype cut = 0; cut < sample.bytes.size(); ++cut) {
                SCOPED_TRACE(cut);
                bytes.append(sample.bytes.mid(cut, 1));
                expectOnlyMessage(sample, {sample.bytes.first(cut), sample.bytes.sliced(cut)}, encoding);
            }
            expectOnlyMessage(sample, bytes, encoding);
            if (testing::Test::HasFailure())
                return;
        }
}

TEST(CentralisedBiscottiCodec, ReadsMessagesInARowInOrder)
{
    for (Encoding const encoding : allEncodings) {
        QList<Sample> const all = samples(encoding);
        QByteArray stream;
        for (Sample const& sample : all)
            stream += sample.bytes;
        for (qsizetype const piece : {stream.size(), qsizetype(1), qsizetype(7)}) {
            DecodedMessages decoded(counterpart(encoding));
            for (qsizetype i = 0; i < stream.size(); i += piece)
                decoded.decoder.appendBytes(stream.mid(i, piece));
            EXPECT_EQ(decoded.errors, 0);
            ASSERT_EQ(decoded.messages.size(), all.size());
            for (qsizetype i = 0; i < all.size(); ++i) {
                EXPECT_EQ(decoded.messages[i].text, all[i].text);
                EXPECT_TRUE(decoded.messages[i].rawBytes == withoutLineEnd(all[i].bytes, encoding)) << i;
            }
        }
    }
}

TEST(CentralisedBiscottiCodec, WritesTheBytesThatAreAgreedUpon)
{
    CentralisedBiscottiMessageEncoder encoder(nullptr);
    EXPECT_EQ(encoder.encodeHeartbeat(Id("c,7"), {}, {}), hex("A1 09 80 03 63 2C 37 A5 02 A0 00"));
    // No topics: an empty sequence. Neither audience nor body: no members.
    EXPECT_EQ(encoder.encodePost(Id("m"), post(), {}), envelope(value(0xA4, value(0x80, "c,3") + value(0xA1, {}))));
    EXPECT_EQ(encoder.encodeSubscription(Id("m"), BiscottiSubscriberId("s"), subscription("f", "i"), {}),
              envelope(value(0xA2, value(0x80, "c,2") + value(0x81, "s") + value(0xA2, value(0x80, ".f")))));
    // The time as it stands, in whatever zone.
    QDateTime const time({2011, 2, 3}, {4, 5, 6, 789}, Qt::OffsetFromUTC, 3600);
    EXPECT_EQ(heartbeatAt(time), timed(hex("800207DB 810102 820103 830104 840105 850106 86020315")));
}

TEST(CentralisedBiscottiCodec, RefusesToWriteWhatNoMessageMaySay)
{
    LogCapture log;
    CentralisedBiscottiMessageEncoder encoder(nullptr);
    EXPECT_TRUE(encoder.encodeHeartbeat(Id("m"), {}, BiscottiSignatureId("s")).isEmpty());
    EXPECT_TRUE(log.contains("Signatures are not currently supported."));

    // A time without a date has a month of 0.
    for (Encoding const encoding : allEncodings)
        EXPECT_TRUE(heartbeatAt(QDateTime({}, {1, 2}, Qt::UTC), encoding).isEmpty());
    EXPECT_TRUE(log.contains("Trying to encode object that fails constraint validation ("));

    QByteArray const largest(centralisedBiscottiMaximumMessageBytes, 'x');
    EXPECT_TRUE(encoder.encodePost(Id("m"), post({}, {}, largest), {}).isEmpty());
    EXPECT_TRUE(encoder.encodePost(Id("m"), post({}, {}, largest + "x"), {}).isEmpty());
    EXPECT_THROW(encoder.encodeSubscription(Id("m"), {}, subscription({}, {}), {}), std::logic_error);
}

TEST(CentralisedBiscottiCodec, RefusesTimesOutsideTheirRanges)
{
    struct Case {
        char const* members;
        bool isGood;
    };
    Case const cases[] = {
        {"800207DB 81010C 82011F 830117 84013B 85013B 860203E7", true},
        {"800207DB 81010D 820101 830100 840100 850100 860100", false}, // month 13
        {"800207DB 810100 820101 830100 840100 850100 860100", false},
        {"800207DB 810101 820120 830100 840100 850100 860100", false},   // day 32
        {"800207DB 810101 820101 830118 840100 850100 860100", false},   // hour 24
        {"800207DB 810101 820101 830100 84013C 850100 860100", false},   // minute 60
        {"800207DB 810101 820101 830100 840100 85013C 860100", false},   // second 60
        {"800207DB 810101 820101 830100 840100 850100 860203E8", false}, // millisecond 1000
        {"800207DB 8101FF 820101 830100 840100 850100 860100", false},   // month -1
    };
    for (Case const& c : cases) {
        SCOPED_TRACE(c.members);
        LogCapture log;
        DecodedMessages decoded;
        decoded.decoder.appendBytes(timed(hex(c.members)));
        EXPECT_EQ(decoded.messages.size(), c.isGood ? 1 : 0);
        EXPECT_EQ(decoded.errors, c.isGood ? 0 : 1);
        EXPECT_EQ(log.contains("Received message that failed constraint validation: "), !c.isGood);
        // The bytes are gone: the next message is understood.
        decoded.decoder.appendBytes(envelope(value(0xA0, {})));
        EXPECT_EQ(decoded.messages.size(), c.isGood ? 2 : 1);
    }
}

TEST(CentralisedBiscottiCodec, KeepsMessagesWhoseTimeIsNoDay)
{
    char const* const times[] = {
        "800207DB 810102 82011E 830100 840100 850100 860100",             // the 30th of February
        "800100 810101 820101 830100 840100 850100 860100",               // the year 0
        "80087FFFFFFFFFFFFFFF 810101 820101 830100 840100 850100 860100", // beyond every calendar
        "80088000000000000000 810101 820101 830100 840100 850100 860100",
    };
    for (char const* const time : times) {
        DecodedMessages decoded;
        decoded.decoder.appendBytes(timed(hex(time)));
        ASSERT_EQ(decoded.messages.size(), 1) << time;
        EXPECT_TRUE(decoded.messages[0].text.endsWith("SendUtc:=")) << time;
    }
}

TEST(CentralisedBiscottiCodec, KeepsAcksApartFromSuccess)
{
    struct Case {
        char const* members;
        char const* text;
    };
    Case const cases[] = {
        {"800163 810200C8 82024F4B", "AckCode:=200, AckDescription:=OK, "},
        {"800163 810200C8", "AckCode:=200, AckDescription:=OK, "}, // without a description
        {"800163 810200C8 820178", "AckCode:=200, AckDescription:=OK, "},
        {"800163 810163", "AckCode:=99, AckDescription:=<UNKNOWN>, "},
        {"800163 8105 01000000C8", "AckCode:=0, AckDescription:=Unspecified error., "}, // 2^32 + 200
        {"800163 8108 80000000000000C8", "AckCode:=0, AckDescription:=Unspecified error., "},
    };
    for (Case const& c : cases) {
        DecodedMessages decoded;
        decoded.decoder.appendBytes(envelope(value(0xA1, hex(c.members))));
        ASSERT_EQ(decoded.messages.size(), 1) << c.members;
        EXPECT_THAT(decoded.messages[0].text.toStdString(), HasSubstr(c.text));
    }
    DecodedMessages decoded;
    decoded.decoder.appendBytes(envelope(value(0xA1, hex("800163 8109 0100000000000000C8"))));
    EXPECT_EQ(decoded.errors, 1);
}

TEST(CentralisedBiscottiCodec, DropsSignedMessagesAndThoseThatSayNothing)
{
    QByteArray const signedMessage = value(0xA0, value(0x81, hex("00")) + value(0x82, "m") + value(0x83, "s"));
    QByteArray const booleanInterest =
        envelope(value(0xA2, value(0x80, "i") + value(0x81, "s") + value(0xA2, value(0x81, "a&b"))));
    QByteArray const booleanAudience = envelope(value(0xA4, value(0x80, "i") + value(0xA1, {}) + value(0x82, "a|b")));
    QByteArray const heartbeat = envelope(value(0xA0, {}));
    LogCapture log;
    DecodedMessages decoded;
    decoded.decoder.appendBytes(signedMessage + booleanInterest + booleanAudience + heartbeat);
    EXPECT_TRUE(log.contains("Signed messages are not currently supported."));
    EXPECT_EQ(log.count("Error parsing message: ERROR: Boolean topic expressions not yet implemented."), 2);
    EXPECT_EQ(decoded.errors, 0);
    ASSERT_EQ(decoded.messages.size(), 1);
    EXPECT_EQ(decoded.messages[0].rawBytes, heartbeat);
}

TEST(CentralisedBiscottiCodec, SlotsMayResetAndFeedTheDecoder)
{
    QByteArray const heartbeat = envelope(value(0xA0, {}));
    DecodedMessages decoded;
    auto const connection =
        QObject::connect(&decoded.decoder, &CentralisedBiscottiMessageDecoder::heartbeatAvailable, [&] {
            if (decoded.messages.size() == 1)
                decoded.decoder.reset();
            else if (decoded.messages.size() == 2)
                decoded.decoder.appendBytes(heartbeat + heartbeat);
        });
    decoded.decoder.appendBytes(heartbeat + heartbeat + heartbeat);
    EXPECT_EQ(decoded.messages.size(), 1);
    decoded.decoder.appendBytes(heartbeat);
    EXPECT_EQ(decoded.messages.size(), 4);
    EXPECT_EQ(decoded.errors, 0);
    QObject::disconnect(connection);
}
