#pragma once

#include "BiscottiServer.h"
#include "BiscottiSubscriber.h"
#include "CentralisedBiscotti.h"
#include "EventLoop.h"
#include "FakeTickCounter.h"
#include "FakeTimerFactory.h"
#include "QtTcpSocketFactory.h"
#include "SortedMemoQueue.h"
#include "TrieBiscottiSubscriptionEngine.h"

#include <QCoreApplication>
#include <QHash>

#include <gtest/gtest.h>
#include <memory>

/// The player's client with a subscriber, and what became of its posts by their bodies. Its clock goes by hand, its
/// sockets are real.
class LinkedClient : public BiscottiSubscriber
{
public:
    LinkedClient(FakeTickCounter& clock, FakeTimerFactory& timers, quint16 port, QString const& id)
        : memos(&clock, &timers), biscotti(std::make_unique<CentralisedBiscotti>(&clock, nullptr, &memos, &_sockets,
                                                                                 "127.0.0.1", port, id, &engine))
    {
        Biscotti* const service = biscotti.get();
        QObject::connect(service, &Biscotti::posted, service, [this](BiscottiPost const& post) {
            outcomes[post.body()] = 200;
            events.append("posted");
        });
        QObject::connect(service, &Biscotti::errorPosting, service,
                         [this](BiscottiPost const& post, int code) { outcomes[post.body()] = code; });
        QObject::connect(service, &Biscotti::subscribed, service, [this](BiscottiSubscription const& subscription) {
            events.append(subscription.subscriptionId().toString());
        });
        QObject::connect(service, &Biscotti::errorSubscribing, service,
                         [this](BiscottiSubscription const&, int code) { events.append(QString::number(code)); });
        QObject::connect(service, &Biscotti::unsubscribed, service, [this] { events.append("unsubscribed"); });
    }

    BiscottiSubscriberId biscottiSubscriberId() const override { return BiscottiSubscriberId("subscriber"); }
    void handleBiscottiPost(BiscottiPost const& post) override { ++received[post.body()]; }

    BiscottiSubscriptionId subscribe(QString const& topic)
    {
        BiscottiSubscription subscription;
        subscription.setInterest(BiscottiTopicExpression(topic));
        return biscotti->subscribe(&subscription, this, {});
    }

    void post(QString const& topic, QByteArray const& body)
    {
        BiscottiPost post;
        post.setTopic(BiscottiTopic(topic));
        post.setBody(body);
        biscotti->post(&post, {});
    }

    QHash<QByteArray, int> outcomes; ///< The code of each post that was answered.
    QHash<QByteArray, int> received; ///< How often each came.
    QStringList events;              ///< What was answered well, in order.
    TrieBiscottiSubscriptionEngine engine;
    SortedMemoQueue memos;

private:
    QtTcpSocketFactory _sockets;

public:
    std::unique_ptr<CentralisedBiscotti> biscotti;
};

/// A server on a port that stays the same, clients, and one clock for all of them.
class BiscottiLinkTest : public testing::Test
{
protected:
    BiscottiLinkTest() { startServer(); }

    void startServer()
    {
        server = std::make_unique<BiscottiServer>(clock, timers);
        ASSERT_TRUE(server->listen(QHostAddress::LocalHost, port));
        port = server->port();
    }

    std::unique_ptr<LinkedClient> client(QString const& id)
    {
        return std::make_unique<LinkedClient>(clock, timers, port, id);
    }

    /// Lets sockets and memos work at a standing clock, until the condition holds.
    bool workUntil(std::function<bool()> const& condition)
    {
        return processEventsUntil([&] {
            timers.advance(0);
            return condition();
        });
    }

    /// The same for so many turns of the event loop.
    void workFor(int rounds)
    {
        workUntil([&] {
            QCoreApplication::postEvent(qApp, new QEvent(QEvent::User)); // So that there is a next turn.
            return rounds-- <= 0;
        });
    }

    /// Moves the clock on by seconds, with all work in between, until the client has its link.
    bool waitForLink(LinkedClient& client)
    {
        for (int second = 0; second < 40; ++second) {
            if (client.biscotti->state() == Biscotti::Connected)
                return true;
            timers.advance(1000);
            workFor(10);
        }
        return false;
    }

    bool waitForLoss(LinkedClient& client)
    {
        return workUntil([&] { return client.biscotti->state() != Biscotti::Connected; });
    }

    FakeTickCounter clock;
    FakeTimerFactory timers{clock};
    quint16 port = 0;
    std::unique_ptr<BiscottiServer> server;
};
