#include "BerBytes.h"
#include "CentralisedBiscottiMessageEncoder.h"
#include "DecodedMessages.h"
#include "LogCapture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace BerBytes;
using testing::HasSubstr;

namespace
{

using Id = CentralisedBiscottiMessageId;

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

/// Messages of every kind, with all members and without, as the encoder writes them.
QList<QByteArray> samples()
{
    CentralisedBiscottiMessageEncoder encoder(nullptr);
    CentralisedBiscottiHeartbeat heartbeat;
    heartbeat.setSenderId("zo\u00EB");
    heartbeat.setSenderName("<Zoe>");
    heartbeat.setSenderReplyTo("r");
    // The time as it stands, in whatever zone.
    heartbeat.setSendUtc(QDateTime({2010, 12, 31}, {23, 59, 59, 999}, Qt::OffsetFromUTC, 3600));
    CentralisedBiscottiAck ack;
    ack.setAckMsgId(Id("c,1"));
    ack.setAckCode(CentralisedBiscottiAck::MessageIdExists);
    BiscottiUnsubscription unsubscription;
    unsubscription.setSubscriptionId(BiscottiSubscriptionId("c,2"));
    BiscottiSubscriberId const subscriber("c,chat");
    QList<BiscottiTopic> const topics{BiscottiTopic("a"), BiscottiTopic("b.c")};
    return {
        encoder.encodeHeartbeat(Id("c,7"), heartbeat, {}),
        encoder.encodeAck(Id("c,7"), ack, {}),
        encoder.encodeSubscription(Id("c,7"), subscriber, subscription("vote", "i"), {}),
        encoder.encodeSubscription(Id("c,7"), subscriber, subscription({}, "chat.news"), {}),
        encoder.encodeUnsubscription(Id("c,7"), unsubscription, {}),
        encoder.encodePost(Id("c,7"), post(), {}),
        encoder.encodePost(Id("c,7"), post(topics, "fans", QByteArray("Hi\0\xFF", 4)), {}),
    };
}

} // namespace

TEST(CentralisedBiscottiCodec, WritesTheBytesThatAreAgreedUpon)
{
    // As pyasn1 writes the same messages in DER.
    QList<QByteArray> const expected{
        hex("A1328003632C3781047A6FC3AB82053C5A6F653E830172A417800207DA81010C82011F83011784013B85013B860203E7A502A00"
            "0"),
        hex("A12E8003632C37A527A1258003632C3181020FFC821A4D65737361676520494420616C7265616479206578697374732E"),
        hex("A11F8003632C37A518A2168003632C328106632C63686174A20780052E766F7465"),
        hex("A1248003632C37A51DA21B8003632C328106632C63686174A20C810A2E636861742E6E657773"),
        hex("A10E8003632C37A507A3058003632C32"),
        hex("A1108003632C37A509A4078003632C33A100"),
        hex("A1278003632C37A520A41E8003632C33A10A0C022E610C042E622E6382052E66616E738304486900FF"),
    };
    EXPECT_EQ(samples(), expected);
}

TEST(CentralisedBiscottiCodec, ReadsWhatItWritesHoweverItIsSplit)
{
    char const* const texts[] = {
        "SenderId:=zo\u00EB, SenderName:=<Zoe>, SenderReplyTo:=r, SendUtc:=Fri Dec 31 23:59:59 2010 GMT",
        "AckCode:=4092, AckDescription:=Message ID already exists., AckMsgId:=c,1",
        "[SUB] SubscriptionId:=c,2, Fact:=.vote",
        "[SUB] SubscriptionId:=c,2, Interest:=.chat.news",
        "[UNSUB] SubscriptionId:=c,2",
        "[POST] PostId:=c,3, ",
        "[POST] PostId:=c,3, Topics:=.a, .b.c, Audience:=.fans",
    };
    QList<QByteArray> const all = samples();
    QByteArray const stream = all.join();
    for (qsizetype const piece : {stream.size(), qsizetype(1), qsizetype(7)}) {
        DecodedMessages decoded;
        for (qsizetype i = 0; i < stream.size(); i += piece)
            decoded.decoder.appendBytes(stream.mid(i, piece));
        EXPECT_EQ(decoded.errors, 0);
        ASSERT_EQ(decoded.messages.size(), all.size());
        for (qsizetype i = 0; i < all.size(); ++i) {
            EXPECT_EQ(decoded.messages[i].id, "c,7");
            EXPECT_THAT(decoded.messages[i].text.toStdString(), HasSubstr(texts[i]));
            EXPECT_EQ(decoded.messages[i].rawBytes, all[i]);
            EXPECT_TRUE(decoded.messages[i].isTrusted);
        }
        EXPECT_EQ(decoded.lastPost.body(), QByteArray("Hi\0\xFF", 4));
    }
}

TEST(CentralisedBiscottiCodec, RefusesTimesOutsideTheirRanges)
{
    struct {
        char const* members;
        bool isGood;
    } const cases[] = {
        {"800207DB 81010C 82011F 830117 84013B 85013B 860203E7", true},
        {"800207DB 810102 82011E 830100 840100 850100 860100", true},             // the 30th of February: no time
        {"80087FFFFFFFFFFFFFFF 810101 820101 830100 840100 850100 860100", true}, // beyond every calendar
        {"800207DB 81010D 820101 830100 840100 850100 860100", false},            // month 13
        {"800207DB 810101 820101 830100 840100 850100 860203E8", false},          // millisecond 1000
    };
    for (auto const& [members, isGood] : cases) {
        SCOPED_TRACE(members);
        LogCapture log;
        DecodedMessages decoded;
        decoded.decoder.appendBytes(timed(hex(members)));
        EXPECT_EQ(decoded.messages.size(), isGood ? 1 : 0);
        EXPECT_EQ(decoded.errors, isGood ? 0 : 1);
        EXPECT_EQ(log.contains("Received message that failed constraint validation: "), !isGood);
    }
}

TEST(CentralisedBiscottiCodec, KeepsAcksApartFromSuccess)
{
    struct {
        char const* members;
        char const* text;
    } const cases[] = {
        {"800163 810200C8", "AckCode:=200, AckDescription:=OK, "}, // without a description
        {"800163 810163", "AckCode:=99, AckDescription:=<UNKNOWN>, "},
        {"800163 8105 01000000C8", "AckCode:=0, AckDescription:=Unspecified error., "}, // 2^32 + 200
    };
    for (auto const& [members, text] : cases) {
        DecodedMessages decoded;
        decoded.decoder.appendBytes(envelope(value(0xA1, hex(members))));
        ASSERT_EQ(decoded.messages.size(), 1) << members;
        EXPECT_THAT(decoded.messages[0].text.toStdString(), HasSubstr(text));
    }
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
