#pragma once

#include "BiscottiSubscriber.h"
#include "CentralisedBiscotti.h"
#include "CentralisedBiscottiMessageEncoder.h"
#include "DecodedMessages.h"
#include "FakeTcpSocketFactory.h"
#include "FakeTimerFactory.h"
#include "LogCapture.h"
#include "SortedMemoQueue.h"
#include "TrieBiscottiSubscriptionEngine.h"

#include <QStringList>

#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <utility>

/// A subscriber that writes down the bodies of what it hears.
class RecordingSubscriber : public BiscottiSubscriber
{
public:
    explicit RecordingSubscriber(QString const& id) : _id(id) {}

    BiscottiSubscriberId biscottiSubscriberId() const override { return _id; }
    void handleBiscottiPost(BiscottiPost const& post) override
    {
        heard.append(QString::fromUtf8(post.body()));
        if (onPost)
            onPost();
    }

    QStringList heard;
    std::function<void()> onPost;

private:
    BiscottiSubscriberId const _id;
};

/// A client whose clock, memos and server are in the test's hands.
class CentralisedBiscottiBench
{
public:
    using Message = DecodedMessages::Message;

    CentralisedBiscottiBench() { createClient(); }
    ~CentralisedBiscottiBench() { client.reset(); }

    void createClient()
    {
        client = std::make_unique<CentralisedBiscotti>(&clock, nullptr, &queue, &sockets, "server", quint16(22473),
                                                       "client", &engine);
        record(*client, told);
    }

    /// Writes down each signal of a service, with the id that it is about.
    static void record(Biscotti& biscotti, QStringList& told)
    {
        Biscotti* const b = &biscotti;
        auto const tell = [&told](QString const& what, auto const& id) { told.append(what + ' ' + id.toString()); };
        QObject::connect(b, &Biscotti::subscribed, [=](auto const& s) { tell("subscribed", s.subscriptionId()); });
        QObject::connect(b, &Biscotti::unsubscribed,
                         [=](auto const& u) { tell("unsubscribed", u.subscriptionId()); });
        QObject::connect(b, &Biscotti::posted, [=](auto const& p) { tell("posted", p.postId()); });
        QObject::connect(b, &Biscotti::stateChanged,
                         [&told](auto state) { told.append(state == Biscotti::Connected ? "connected" : "lost"); });
        auto const tellError = [&told](QString const& what, auto const& id, int code, QString const& text) {
            told.append(QString("%1 %2: %3 %4").arg(what, id.toString()).arg(code).arg(text));
        };
        QObject::connect(b, &Biscotti::errorSubscribing, [=](auto const& s, int code, QString const& text) {
            tellError("errorSubscribing", s.subscriptionId(), code, text);
        });
        QObject::connect(b, &Biscotti::errorUnsubscribing, [=](auto const& id, int code, QString const& text) {
            tellError("errorUnsubscribing", id, code, text);
        });
        QObject::connect(b, &Biscotti::errorPosting, [=](auto const& p, int code, QString const& text) {
            tellError("errorPosting", p.postId(), code, text);
        });
    }

    /// Handles all memos that are due.
    void run() { timers.advance(0); }
    void advance(qint64 ms) { timers.advance(ms); }

    FakeTcpSocket& socket() { return *sockets.sockets().at(0); }

    /// The server accepts the connection, which the client must have begun, and takes its greeting.
    void accept()
    {
        run();
        ASSERT_EQ(socket().state(), QAbstractSocket::ConnectingState);
        socket().takeWritten(); // To the former link.
        socket().accept();
        run();
        EXPECT_EQ(socket().takeWritten(), "~@ 1.0 1.0 \n");
        server.decoder.reset();
    }

    /// The server accepts and greets.
    void connect(QByteArray const& notes = {})
    {
        accept();
        receive("~@ 1.7 1.2 " + notes + '\n');
        EXPECT_EQ(client->state(), Biscotti::Connected);
    }

    void receive(QByteArray const& bytes)
    {
        socket().receive(bytes);
        run();
    }

    void loseLink()
    {
        socket().closeRemotely();
        run();
        EXPECT_EQ(client->state(), Biscotti::Disconnected);
    }

    /// The time of the next heartbeat comes, and with it the next connection.
    void waitForRetry() { advance(CentralisedBiscotti::DefaultHeartbeatMs); }

    /// What the client has sent since the last time.
    QList<Message> sent()
    {
        server.messages.clear();
        server.decoder.appendBytes(socket().takeWritten());
        EXPECT_EQ(server.errors, 0);
        return server.messages;
    }

    /// The same, which must be one message.
    Message sentOne()
    {
        QList<Message> const messages = sent();
        EXPECT_EQ(messages.size(), 1);
        return messages.value(0);
    }

    QByteArray ackBytes(QString const& messageId, int code = 200)
    {
        CentralisedBiscottiAck ack;
        ack.setAckMsgId(CentralisedBiscottiMessageId(messageId));
        ack.setAckCode(static_cast<CentralisedBiscottiAck::AckCode>(code));
        return encoder.encodeAck(CentralisedBiscottiMessageId("ack"), ack, BiscottiSignatureId());
    }
    void ack(QString const& messageId, int code = 200) { receive(ackBytes(messageId, code)); }

    QByteArray postBytes(QString const& topic, QByteArray const& body)
    {
        BiscottiPost post;
        post.setTopics({BiscottiTopic(topic)});
        post.setBody(body);
        return encoder.encodePost(CentralisedBiscottiMessageId("m"), post, BiscottiSignatureId());
    }

    QString subscribe(QString const& topic, BiscottiSubscriber& subscriber)
    {
        BiscottiSubscription subscription;
        subscription.setInterest(BiscottiTopicExpression(topic));
        return client->subscribe(&subscription, &subscriber, BiscottiSignatureId()).toString();
    }

    QString post(QString const& topic, QByteArray const& body, QString const& signatureId = {})
    {
        BiscottiPost post;
        post.setTopics({BiscottiTopic(topic)});
        post.setBody(body);
        return client->post(&post, BiscottiSignatureId(signatureId)).toString();
    }

    QStringList takeTold() { return std::exchange(told, {}); }

    LogCapture capture;
    FakeTickCounter clock;
    FakeTimerFactory timers{clock};
    SortedMemoQueue queue{&clock, &timers};
    FakeTcpSocketFactory sockets;
    TrieBiscottiSubscriptionEngine engine;
    CentralisedBiscottiMessageEncoder encoder{nullptr};
    DecodedMessages server;
    QStringList told; ///< The client's signals, each with the id that it is about.
    std::unique_ptr<CentralisedBiscotti> client;
};

class CentralisedBiscottiTest : public testing::Test, protected CentralisedBiscottiBench
{
};
