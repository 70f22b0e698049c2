#include "FakeBiscotti.h"

#include "CentralisedBiscottiBench.h"

#include <QRegularExpression>

namespace
{

/// What a service's server does.
struct Server {
    std::function<void()> connect;
    std::function<void()> lose;
    std::function<void(int code)> answer; ///< To the one request that it has not answered.
    std::function<void(QString const& topic)> deliver;
};

/// What the service tells and its subscriber hears, with ids and numbers left out.
QString story(Biscotti& biscotti, Server const& server)
{
    QStringList told;
    CentralisedBiscottiBench::record(biscotti, told);
    RecordingSubscriber subscriber("s");
    auto const subscribe = [&](QString const& topic) {
        BiscottiSubscription subscription;
        subscription.setInterest(BiscottiTopicExpression(topic));
        return biscotti.subscribe(&subscription, &subscriber, {});
    };
    BiscottiSubscriptionId const first = subscribe("a");
    server.connect();
    server.answer(200);
    server.deliver("a.b");
    server.deliver("b");

    BiscottiPost post;
    post.setTopic(BiscottiTopic("b"));
    biscotti.post(&post, {});
    server.answer(200);
    biscotti.post(&post, {});
    server.answer(403);
    subscribe("b");
    server.answer(403);
    server.deliver("b");

    server.lose();
    server.connect();
    server.answer(200);
    biscotti.unsubscribe(first);
    server.answer(500);
    server.deliver("a");
    biscotti.unsubscribe(first);
    server.answer(200);
    server.deliver("a");
    subscribe("c");
    server.answer(200);
    biscotti.unsubscribeAll(subscriber.biscottiSubscriberId());
    server.deliver("c");
    server.answer(200);
    biscotti.unsubscribe(first); // Which nobody knows any more.
    server.deliver("a");
    return (told + subscriber.heard).join('\n').replace(QRegularExpression("\\w+,\\d+"), "id");
}

} // namespace

TEST(FakeBiscotti, TellsWhatTheRealOneTells)
{
    CentralisedBiscottiBench bench;
    QString const real =
        story(*bench.client, {[&] { bench.connect(); },
                              [&] {
                                  bench.loseLink();
                                  bench.waitForRetry();
                              },
                              [&](int code) {
                                  bench.run();
                                  bench.ack(bench.sentOne().id, code);
                              },
                              [&](QString const& topic) { bench.receive(bench.postBytes(topic, topic.toUtf8())); }});
    FakeBiscotti fake(&bench.queue);
    auto const enter = [&](Biscotti::BiscottiState state) {
        fake.setState(state);
        bench.run();
    };
    auto const answer = [&](int code) {
        CentralisedBiscottiAck ack;
        ack.setAckCode(static_cast<CentralisedBiscottiAck::AckCode>(code));
        fake.answerWith(code, ack.ackDescription());
        bench.run();
    };
    auto const deliver = [&](QString const& topic) {
        fake.deliver(topic, topic.toUtf8());
        bench.run();
    };
    auto const lose = [&] {
        enter(Biscotti::Disconnected);
        fake.answerWith(200);
    };
    QString const faked = story(fake, {[&] { enter(Biscotti::Connected); }, lose, answer, deliver});
    EXPECT_EQ(faked.toStdString(), real.toStdString());
    EXPECT_TRUE(real.endsWith("\na.b\na"));
}
