// The encoder and decoder as a program, so that another implementation can be held against them. Reads one JSON
// object a line and answers each with one:
//   {"encode": MESSAGE, "as": 0, 1 or 2}     {"bytes": HEX}
//   {"decode": HEX, "as": 0 or 1}            {"messages": [MESSAGE...], "errors": NUMBER}
// A MESSAGE is an object of "kind", "id" and the members of its kind.

#include "CentralisedBiscottiMessageDecoder.h"
#include "CentralisedBiscottiMessageEncoder.h"

#include <QCoreApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <iostream>
#include <string>

namespace
{

using Decoder = CentralisedBiscottiMessageDecoder;
using MessageId = CentralisedBiscottiMessageId;

template<typename Message>
Message read(QJsonObject const& json)
{
    Message message;
    message.setSenderId(json["senderId"].toString());
    message.setSenderName(json["senderName"].toString());
    message.setSenderReplyTo(json["senderReplyTo"].toString());
    message.setSendUtc(QDateTime::fromString(json["sendUtc"].toString(), Qt::ISODateWithMs));
    return message;
}

QJsonObject base(QString const& kind, MessageId const& id, BiscottiMessage const& message)
{
    return {{"kind", kind},
            {"id", id.toString()},
            {"senderId", message.senderId()},
            {"senderName", message.senderName()},
            {"senderReplyTo", message.senderReplyTo()},
            {"sendUtc", message.sendUtc().toString(Qt::ISODateWithMs)}};
}

QJsonObject joined(QJsonObject left, QJsonObject const& right)
{
    for (auto member = right.begin(); member != right.end(); ++member)
        left[member.key()] = *member;
    return left;
}

BiscottiPost readPost(QJsonObject const& json)
{
    BiscottiPost post = read<BiscottiPost>(json);
    post.setPostId(BiscottiPostId(json["postId"].toString()));
    QList<BiscottiTopic> topics;
    for (QJsonValue const& topic : json["topics"].toArray())
        topics.append(BiscottiTopic(topic.toString()));
    post.setTopics(topics);
    post.setAudience(BiscottiTopicExpression(json["audience"].toString()));
    post.setBody(QByteArray::fromHex(json["body"].toString().toLatin1()));
    return post;
}

QByteArray encode(QJsonObject const& json, CentralisedBiscottiMessageEncoding encoding)
{
    CentralisedBiscottiMessageEncoder encoder(nullptr);
    encoder.setEncoding(encoding);
    QString const kind = json["kind"].toString();
    MessageId const id(json["id"].toString());
    if (kind == "heartbeat")
        return encoder.encodeHeartbeat(id, read<CentralisedBiscottiHeartbeat>(json), {});
    if (kind == "post")
        return encoder.encodePost(id, readPost(json), {});
    if (kind == "ack") {
        auto ack = read<CentralisedBiscottiAck>(json);
        ack.setAckMsgId(MessageId(json["ackMsgId"].toString()));
        ack.setAckCode(static_cast<CentralisedBiscottiAck::AckCode>(json["ackCode"].toInt()));
        return encoder.encodeAck(id, ack, {});
    }
    if (kind == "unsub") {
        auto unsubscription = read<BiscottiUnsubscription>(json);
        unsubscription.setSubscriptionId(BiscottiSubscriptionId(json["subscriptionId"].toString()));
        return encoder.encodeUnsubscription(id, unsubscription, {});
    }
    auto subscription = read<BiscottiSubscription>(json);
    subscription.setSubscriptionId(BiscottiSubscriptionId(json["subscriptionId"].toString()));
    subscription.setFact(BiscottiTopic(json["fact"].toString()));
    subscription.setInterest(BiscottiTopicExpression(json["interest"].toString()));
    return encoder.encodeSubscription(id, BiscottiSubscriberId(json["subscriberId"].toString()), subscription, {});
}

QJsonObject decode(QByteArray const& bytes, CentralisedBiscottiMessageDecoding decoding)
{
    Decoder decoder(nullptr);
    decoder.setDecoding(decoding);
    QJsonArray messages;
    int errors = 0;
    QObject::connect(&decoder, &Decoder::errorDecoding, [&] { ++errors; });
    QObject::connect(&decoder, &Decoder::heartbeatAvailable, [&](MessageId const& id, auto const& heartbeat) {
        messages.append(base("heartbeat", id, heartbeat));
    });
    QObject::connect(&decoder, &Decoder::ackAvailable, [&](MessageId const& id, auto const& ack) {
        messages.append(joined(base("ack", id, ack), {{"ackMsgId", ack.ackMsgId().toString()},
                                                      {"ackCode", static_cast<int>(ack.ackCode())}}));
    });
    QObject::connect(&decoder, &Decoder::subscriptionAvailable, [&](MessageId const& id, auto const& subscription) {
        messages.append(joined(base("sub", id, subscription),
                               {{"subscriptionId", subscription.subscriptionId().toString()},
                                {"fact", subscription.hasFact() ? subscription.fact().toString() : ""},
                                {"interest", subscription.hasInterest() ? subscription.interest().toString() : ""}}));
    });
    QObject::connect(&decoder, &Decoder::unsubscriptionAvailable, [&](MessageId const& id, auto const& message) {
        messages.append(
            joined(base("unsub", id, message), {{"subscriptionId", message.subscriptionId().toString()}}));
    });
    QObject::connect(&decoder, &Decoder::postAvailable, [&](MessageId const& id, auto const& post) {
        QJsonArray topics;
        for (BiscottiTopic const& topic : post.topics())
            topics.append(topic.toString());
        messages.append(
            joined(base("post", id, post), {{"postId", post.postId().toString()},
                                            {"topics", topics},
                                            {"audience", post.hasAudience() ? post.audience().toString() : ""},
                                            {"body", QString::fromLatin1(post.body().toHex())}}));
    });
    decoder.appendBytes(bytes);
    return {{"messages", messages}, {"errors", errors}};
}

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication const application(argc, argv);
    for (std::string line; std::getline(std::cin, line);) {
        QJsonObject const request = QJsonDocument::fromJson(QByteArray::fromStdString(line)).object();
        int const coding = request["as"].toInt();
        QJsonObject answer;
        if (request.contains("encode"))
            answer["bytes"] = QString::fromLatin1(
                encode(request["encode"].toObject(), static_cast<CentralisedBiscottiMessageEncoding>(coding))
                    .toHex());
        else
            answer = decode(QByteArray::fromHex(request["decode"].toString().toLatin1()),
                            static_cast<CentralisedBiscottiMessageDecoding>(coding));
        std::cout << QJsonDocument(answer).toJson(QJsonDocument::Compact).toStdString() << std::endl;
    }
    return 0;
}
