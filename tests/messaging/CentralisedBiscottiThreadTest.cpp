// The client on a thread of its own, over a real socket to our own server, used from several threads.

#include "BiscottiServer.h"
#include "CentralisedBiscottiBench.h"
#include "EventLoop.h"
#include "MonotonicTickCounter.h"
#include "QtTcpSocketFactory.h"
#include "ThreadedMemoQueue.h"

#include <thread>

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
    std::vector<std::thread> users;
    for (int thread = 0; thread < threads; ++thread)
        users.emplace_back([&, thread] {
            for (int round = 0; round < rounds; ++round) {
                RecordingSubscriber subscriber(QString("%1.%2").arg(thread).arg(round % 10));
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

    EXPECT_EQ(subscribed, threads * rounds * 2);
    BiscottiPost farewell;
    farewell.setTopics({BiscottiTopic("farewell")});
    farewell.setBody(QByteArray(60000, 'x'));
    client->post(&farewell, BiscottiSignatureId());
    client.reset();
    EXPECT_TRUE(processEventsUntil([&] { return server.postCount() == threads * rounds + 1; }))
        << "what was posted before the end has left";
    EXPECT_EQ(engine.count(), 0);
}
