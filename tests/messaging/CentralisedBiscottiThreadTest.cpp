// The client on a thread of its own, over a real socket to our own server, used from several threads.

#include "BiscottiServer.h"
#include "BiscottiSubscriber.h"
#include "CentralisedBiscotti.h"
#include "EventLoop.h"
#include "FakeTimerFactory.h"
#include "MonotonicTickCounter.h"
#include "QtTcpSocketFactory.h"
#include "ThreadedMemoQueue.h"
#include "TrieBiscottiSubscriptionEngine.h"

#include <atomic>
#include <gtest/gtest.h>
#include <memory>
#include <thread>

namespace
{

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

} // namespace

TEST(CentralisedBiscottiThread, ServesFourThreadsWhoseSubscribersComeAndGo)
{
    constexpr int threads = 4;
    constexpr int rounds = 40;
    FakeTickCounter clock;
    FakeTimerFactory timers(clock);
    BiscottiServer server(clock, timers);
    ASSERT_TRUE(server.listen(QHostAddress::LocalHost, 0));
    MonotonicTickCounter ticker;
    QtTcpSocketFactory sockets;
    TrieBiscottiSubscriptionEngine engine;
    ThreadedMemoQueue memoThread;
    memoThread.start();
    memoThread.waitUntilReady();
    auto client = std::make_unique<CentralisedBiscotti>(&ticker, nullptr, &memoThread, &sockets, "127.0.0.1",
                                                        server.port(), "client", &engine);
    QObject here; // Receives what comes from the client's thread.
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

    calls = 0;
    CountingSubscriber last("last", calls);
    BiscottiSubscription everything;
    everything.setInterest(BiscottiTopicExpression("."));
    client->subscribe(&everything, &last, BiscottiSignatureId());
    BiscottiPost farewell;
    farewell.setTopics({BiscottiTopic("farewell")});
    client->post(&farewell, BiscottiSignatureId());
    EXPECT_TRUE(processEventsUntil([&] { return posted == threads * rounds + 1; }));
    EXPECT_EQ(subscribed, threads * rounds * 2 + 1);
    EXPECT_EQ(calls, 1) << "the farewell came back before it was acknowledged";
    farewell.setBody(QByteArray(60000, 'x'));
    client->post(&farewell, BiscottiSignatureId());
    client.reset();
    EXPECT_TRUE(processEventsUntil([&] { return server.postCount() == threads * rounds + 2; }))
        << "what was posted before the end has left";
    EXPECT_EQ(engine.count(), 1);
}
