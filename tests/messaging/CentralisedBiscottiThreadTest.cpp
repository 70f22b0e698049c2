// The client on a thread of its own, over a real socket, used from several threads.

#include "BiscottiSubscriber.h"
#include "CentralisedBiscotti.h"
#include "CentralisedBiscottiMessageEncoder.h"
#include "DecodedMessages.h"
#include "EventLoop.h"
#include "MonotonicTickCounter.h"
#include "QtTcpSocketFactory.h"
#include "ThreadedMemoQueue.h"
#include "TrieBiscottiSubscriptionEngine.h"

#include <QTcpServer>
#include <QTcpSocket>

#include <atomic>
#include <gtest/gtest.h>
#include <thread>

namespace
{

/// A server for one client: it agrees with everything, and sends each post back.
class AgreeablePeer
{
public:
    AgreeablePeer()
    {
        _server.listen(QHostAddress::LocalHost, 0);
        QObject::connect(&_server, &QTcpServer::newConnection, [this] {
            socket = _server.nextPendingConnection();
            QObject::connect(socket, &QTcpSocket::readyRead, [this] { onReadyRead(); });
        });
        using Decoder = CentralisedBiscottiMessageDecoder;
        QObject::connect(&_decoded.decoder, &Decoder::postAvailable,
                         [this](auto const& id, BiscottiPost const& post) {
                             ++posts;
                             socket->write(_encoder.encodePost(id, post, BiscottiSignatureId()));
                             ack(id);
                         });
        QObject::connect(&_decoded.decoder, &Decoder::subscriptionAvailable, [this](auto const& id) { ack(id); });
        QObject::connect(&_decoded.decoder, &Decoder::unsubscriptionAvailable, [this](auto const& id) { ack(id); });
    }

    quint16 port() const { return _server.serverPort(); }
    int errors() const { return _decoded.errors; }

    QTcpSocket* socket = nullptr;
    int posts = 0;

private:
    void onReadyRead()
    {
        if (!_hasGreeted) {
            _hasGreeted = true;
            EXPECT_EQ(socket->readLine(), "~@ 1.0 1.0 \n");
            socket->write("~@ 1.0 1.0 \n");
        }
        _decoded.decoder.appendBytes(socket->readAll());
    }
    void ack(CentralisedBiscottiMessageId const& id)
    {
        CentralisedBiscottiAck ack;
        ack.setAckCode(CentralisedBiscottiAck::Ok);
        ack.setAckMsgId(id);
        socket->write(_encoder.encodeAck(id, ack, BiscottiSignatureId()));
    }

    QTcpServer _server;
    DecodedMessages _decoded;
    CentralisedBiscottiMessageEncoder _encoder{nullptr};
    bool _hasGreeted = false;
};

class CountingSubscriber : public BiscottiSubscriber
{
public:
    CountingSubscriber(QString const& id, std::atomic<int>& calls) : _id(id), _calls(calls) {}
    ~CountingSubscriber() override { _isAlive = false; }

    BiscottiSubscriberId biscottiSubscriberId() const override { return _id; }
    void handleBiscottiPost(BiscottiPost const&) override
    {
        EXPECT_TRUE(_isAlive);
        ++_calls;
    }

private:
    BiscottiSubscriberId const _id;
    std::atomic<int>& _calls;
    bool _isAlive = true;
};

class CentralisedBiscottiThread : public testing::Test
{
protected:
    CentralisedBiscottiThread()
    {
        memoThread.start();
        memoThread.waitUntilReady();
    }

    std::unique_ptr<CentralisedBiscotti> createClient(quint16 port)
    {
        return std::make_unique<CentralisedBiscotti>(&ticker, nullptr, &memoThread, &sockets, "127.0.0.1", port,
                                                     "client", &engine);
    }

    QObject here; ///< Receives what comes from the client's thread.
    MonotonicTickCounter ticker;
    QtTcpSocketFactory sockets;
    TrieBiscottiSubscriptionEngine engine;
    ThreadedMemoQueue memoThread;
};

} // namespace

TEST_F(CentralisedBiscottiThread, ServesFourThreadsWhoseSubscribersComeAndGo)
{
    constexpr int threads = 4;
    constexpr int rounds = 40;
    AgreeablePeer peer;
    auto client = createClient(peer.port());
    int posted = 0;
    int subscribed = 0;
    QObject::connect(client.get(), &Biscotti::posted, &here, [&] { ++posted; });
    QObject::connect(client.get(), &Biscotti::subscribed, &here, [&] { ++subscribed; });
    std::atomic<int> calls = 0;
    std::vector<std::thread> users;
    for (int thread = 0; thread < threads; ++thread)
        users.emplace_back([&, thread] {
            for (int round = 0; round < rounds; ++round) {
                CountingSubscriber subscriber(QString("%1.%2").arg(thread).arg(round % 10), calls);
                BiscottiSubscription first;
                first.setInterest(BiscottiTopicExpression(QString("topic%1").arg(thread)));
                BiscottiSubscription second = first;
                client->subscribe(&first, &subscriber, BiscottiSignatureId());
                client->subscribe(&second, &subscriber, BiscottiSignatureId());
                BiscottiPost post;
                post.setTopics({BiscottiTopic(QString("topic%1").arg((thread + round) % threads))});
                client->post(&post, BiscottiSignatureId());
                client->unsubscribe(first.subscriptionId());
                client->state();
                client->unsubscribeAll(subscriber.biscottiSubscriberId());
            }
        });
    EXPECT_TRUE(processEventsUntil([&] { return posted == threads * rounds; }));
    for (std::thread& user : users)
        user.join();

    CountingSubscriber last("last", calls);
    BiscottiSubscription everything;
    everything.setInterest(BiscottiTopicExpression("."));
    client->subscribe(&everything, &last, BiscottiSignatureId());
    BiscottiPost farewell;
    farewell.setTopics({BiscottiTopic("farewell")});
    client->post(&farewell, BiscottiSignatureId());
    EXPECT_TRUE(processEventsUntil([&] { return posted == threads * rounds + 1; }));
    EXPECT_EQ(subscribed, threads * rounds * 2 + 1);
    EXPECT_GT(calls, 0) << "the farewell came back before it was acknowledged";
    EXPECT_EQ(peer.errors(), 0);
    constexpr int lastWords = 50;
    for (int i = 0; i < lastWords; ++i)
        client->post(&farewell, BiscottiSignatureId());
    client.reset();
    EXPECT_TRUE(processEventsUntil([&] { return peer.socket->state() == QAbstractSocket::UnconnectedState; }));
    EXPECT_EQ(peer.posts, threads * rounds + 1 + lastWords) << "what was posted before the end has left";
    EXPECT_EQ(engine.count(), 1);
}

TEST_F(CentralisedBiscottiThread, ReadsAllOfAFlood)
{
    QTcpServer server;
    ASSERT_TRUE(server.listen(QHostAddress::LocalHost, 0));
    auto client = createClient(server.serverPort());
    int arrived = 0;
    QObject::connect(client.get(), &CentralisedBiscotti::postAvailable, &here, [&] { ++arrived; });
    ASSERT_TRUE(processEventsUntil([&] { return server.hasPendingConnections(); }));
    std::unique_ptr<QTcpSocket> const peer(server.nextPendingConnection());
    ASSERT_TRUE(processEventsUntil([&] { return peer->canReadLine(); }));

    CentralisedBiscottiMessageEncoder encoder(nullptr);
    BiscottiPost post;
    post.setBody(QByteArray(1000, 'x'));
    QByteArray const bytes = encoder.encodePost(CentralisedBiscottiMessageId("m"), post, BiscottiSignatureId());
    constexpr int posts = 2000; // More than the socket reads ahead, many times over.
    peer->write("~@ 1.0 1.0 \n" + bytes.repeated(posts));
    EXPECT_TRUE(processEventsUntil([&] { return arrived == posts; }));
}
