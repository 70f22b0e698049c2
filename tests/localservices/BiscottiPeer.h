#pragma once

#include "CentralisedBiscottiMessageDecoder.h"
#include "CentralisedBiscottiMessageEncoder.h"
#include "EventLoop.h"

#include <QHostAddress>
#include <QTcpSocket>

#include <memory>

/// A client of the Biscotti server that says what it is told to, in messages or in bytes, and keeps what it hears.
class BiscottiPeer
{
public:
    using Ack = CentralisedBiscottiAck;

    /// Greets, unless told otherwise. The identity is what its ids begin with.
    explicit BiscottiPeer(quint16 port, QString identity = "peer", QByteArray const& greeting = "~@ 1.0 1.0 \n")
        : _identity(std::move(identity))
    {
        using Decoder = CentralisedBiscottiMessageDecoder;
        QObject::connect(&_socket, &QTcpSocket::readyRead, &_socket, [this] { read(); });
        QObject::connect(&_decoder, &Decoder::ackAvailable, &_decoder,
                         [this](auto const&, Ack const& ack) { acks.append(ack); });
        QObject::connect(&_decoder, &Decoder::postAvailable, &_decoder,
                         [this](auto const&, BiscottiPost const& post) { posts.append(post); });
        QObject::connect(&_decoder, &Decoder::heartbeatAvailable, &_decoder, [this] { ++heartbeats; });
        _socket.connectToHost(QHostAddress::LocalHost, port);
        say(greeting);
    }

    void say(QByteArray const& bytes) { _socket.write(bytes); }

    QByteArray subscription(QString const& messageId, QString const& id, QString const& topic)
    {
        BiscottiSubscription subscription;
        subscription.setSubscriptionId(BiscottiSubscriptionId(id));
        subscription.setInterest(BiscottiTopicExpression(topic));
        return _encoder.encodeSubscription(idOf(messageId), BiscottiSubscriberId("subscriber"), subscription, {});
    }

    QByteArray unsubscription(QString const& messageId, QString const& id)
    {
        BiscottiUnsubscription unsubscription;
        unsubscription.setSubscriptionId(BiscottiSubscriptionId(id));
        return _encoder.encodeUnsubscription(idOf(messageId), unsubscription, {});
    }

    QByteArray post(QString const& messageId, QString const& topic, QByteArray const& body = "body")
    {
        BiscottiPost post;
        post.setPostId(BiscottiPostId("post" + messageId));
        post.setTopic(BiscottiTopic(topic));
        post.setBody(body);
        return _encoder.encodePost(idOf(messageId), post, {});
    }

    QByteArray heartbeat() { return _encoder.encodeHeartbeat(idOf("beat"), {}, {}); }

    /// The code that the server acknowledges these bytes with; -1 when there is none.
    int ask(QByteArray const& bytes)
    {
        qsizetype const before = acks.size();
        say(bytes);
        return processEventsUntil([&] { return acks.size() > before || isClosed(); }) && acks.size() > before
                   ? acks.last().ackCode()
                   : -1;
    }

    bool waitForEnd()
    {
        return processEventsUntil([&] { return isClosed(); });
    }

    bool isClosed() const { return _socket.state() == QAbstractSocket::UnconnectedState; }
    QTcpSocket& socket() { return _socket; }

    QByteArray serverGreeting;
    QList<Ack> acks;
    QList<BiscottiPost> posts;
    int heartbeats = 0;

private:
    CentralisedBiscottiMessageId idOf(QString const& messageId) const
    {
        return CentralisedBiscottiMessageId(_identity + ',' + messageId);
    }

    void read()
    {
        if (serverGreeting.isEmpty()) {
            if (!_socket.canReadLine())
                return;
            serverGreeting = _socket.readLine();
        }
        _decoder.appendBytes(_socket.readAll());
    }

    QString const _identity;
    QTcpSocket _socket;
    CentralisedBiscottiMessageEncoder _encoder{nullptr};
    CentralisedBiscottiMessageDecoder _decoder{nullptr};
};
