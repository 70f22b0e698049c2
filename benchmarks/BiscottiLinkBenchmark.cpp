// A chat line from one end of Biscotti to the other: posted by the player's client, taken by the server on a thread
// of its own, received by the subscriber at the same client, and acknowledged, before the next one is posted. The
// baseline sends as many bytes to and fro over a plain socket between two threads. "median_us" and "p99_us" are the
// delay from posting to the subscriber, or of the round trip.

#include "BiscottiServer.h"
#include "BiscottiSubscriber.h"
#include "CentralisedBiscotti.h"
#include "MonotonicTickCounter.h"
#include "QtTcpSocketFactory.h"
#include "QtTimerFactory.h"
#include "SortedMemoQueue.h"
#include "TrieBiscottiSubscriptionEngine.h"

#include <QEventLoop>
#include <QThread>

#include <algorithm>
#include <arpa/inet.h>
#include <benchmark/benchmark.h>
#include <chrono>
#include <future>
#include <netinet/tcp.h>
#include <sys/socket.h>
#include <thread>
#include <unistd.h>
#include <vector>

namespace
{

using Clock = std::chrono::steady_clock;

char const* const topic = ".ombra.chat.news";
QByteArray const body("Good evening to everyone who watches the news");

class Delays
{
public:
    void add(Clock::time_point since)
    {
        _us.push_back(std::chrono::duration<double, std::micro>(Clock::now() - since).count());
    }

    void report(benchmark::State& state)
    {
        state.SetItemsProcessed(state.iterations());
        if (_us.empty())
            return;
        std::sort(_us.begin(), _us.end());
        state.counters["median_us"] = _us[_us.size() / 2];
        state.counters["p99_us"] = _us[_us.size() * 99 / 100];
    }

private:
    std::vector<double> _us;
};

BiscottiPost chatLine()
{
    BiscottiPost post;
    post.setTopic(BiscottiTopic(topic));
    post.setPostId(BiscottiPostId("0123456789abcdef,123456"));
    post.setBody(body);
    return post;
}

/// How many bytes a post takes to the server, and the post and its acknowledgement back.
std::pair<size_t, size_t> bytesOfAPost()
{
    CentralisedBiscottiMessageEncoder encoder(nullptr);
    CentralisedBiscottiAck ack;
    ack.setAckMsgId(CentralisedBiscottiMessageId("0123456789abcdef,123456"));
    ack.setAckCode(CentralisedBiscottiAck::Ok);
    qsizetype const there = encoder.encodePost(ack.ackMsgId(), chatLine(), {}).size();
    qsizetype const back = there + encoder.encodeAck(CentralisedBiscottiMessageId("server,123456"), ack, {}).size();
    return {static_cast<size_t>(there), static_cast<size_t>(back)};
}

bool transfer(int socket, std::vector<char>& bytes, ssize_t (*call)(int, char*, size_t))
{
    for (size_t done = 0; done < bytes.size();) {
        ssize_t const count = call(socket, bytes.data() + done, bytes.size() - done);
        if (count <= 0)
            return false;
        done += static_cast<size_t>(count);
    }
    return true;
}

bool sendAll(int socket, std::vector<char>& bytes)
{
    return transfer(socket, bytes,
                    [](int s, char* data, size_t size) { return ::send(s, data, size, MSG_NOSIGNAL); });
}

bool receiveAll(int socket, std::vector<char>& bytes)
{
    return transfer(socket, bytes, [](int s, char* data, size_t size) { return ::recv(s, data, size, 0); });
}

void answer(int listener, size_t there, size_t back)
{
    int const socket = ::accept(listener, nullptr, nullptr);
    int const on = 1;
    ::setsockopt(socket, IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);
    std::vector<char> in(there), out(back);
    while (receiveAll(socket, in) && sendAll(socket, out)) {
    }
    ::close(socket);
}

void rawPingPong(benchmark::State& state)
{
    auto const [there, back] = bytesOfAPost();
    int const listener = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof address;
    int const client = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (::bind(listener, reinterpret_cast<sockaddr*>(&address), size) != 0 || ::listen(listener, 1) != 0 ||
        ::getsockname(listener, reinterpret_cast<sockaddr*>(&address), &size) != 0 ||
        ::connect(client, reinterpret_cast<sockaddr*>(&address), size) != 0)
        return state.SkipWithError("no socket");
    int const on = 1;
    ::setsockopt(client, IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);
    std::thread server(answer, listener, there, back);
    std::vector<char> out(there), in(back);
    Delays delays;
    for ([[maybe_unused]] auto const& iteration : state) {
        Clock::time_point const begin = Clock::now();
        if (!sendAll(client, out) || !receiveAll(client, in))
            state.SkipWithError("the link broke");
        delays.add(begin);
    }
    ::close(client);
    server.join();
    ::close(listener);
    delays.report(state);
}

/// A server on a thread of its own, while this lives.
class ServerThread
{
public:
    ServerThread() : _thread([this] { run(); }) { _port = _ready.get_future().get(); }

    ~ServerThread()
    {
        QMetaObject::invokeMethod(_loop, &QEventLoop::quit, Qt::QueuedConnection);
        _thread.join();
    }

    quint16 port() const { return _port; }

private:
    void run()
    {
        MonotonicTickCounter clock;
        QtTimerFactory timers;
        BiscottiServer server(clock, timers);
        QEventLoop loop;
        _loop = &loop;
        server.listen(QHostAddress::LocalHost, 0);
        _ready.set_value(server.port());
        loop.exec();
    }

    std::promise<quint16> _ready;
    QEventLoop* _loop = nullptr; ///< Written before the promise is kept, read after.
    quint16 _port = 0;
    std::thread _thread;
};

class Receiver : public BiscottiSubscriber
{
public:
    BiscottiSubscriberId biscottiSubscriberId() const override { return BiscottiSubscriberId("receiver"); }
    void handleBiscottiPost(BiscottiPost const&) override
    {
        ++received;
        delays.add(postedAt);
    }

    Clock::time_point postedAt;
    qint64 received = 0;
    Delays delays;
};

void postAndReceive(benchmark::State& state)
{
    ServerThread const server;
    MonotonicTickCounter clock;
    QtTimerFactory timers;
    SortedMemoQueue memos(&clock, &timers);
    QtTcpSocketFactory sockets;
    TrieBiscottiSubscriptionEngine engine;
    CentralisedBiscotti biscotti(&clock, nullptr, &memos, &sockets, "127.0.0.1", server.port(), "0123456789abcdef",
                                 &engine);
    qint64 acknowledged = 0;
    bool isSubscribed = false;
    QObject::connect(&biscotti, &Biscotti::posted, &biscotti, [&] { ++acknowledged; });
    QObject::connect(&biscotti, &Biscotti::subscribed, &biscotti, [&] { isSubscribed = true; });
    Receiver receiver;
    BiscottiSubscription subscription;
    subscription.setInterest(BiscottiTopicExpression(topic));
    biscotti.subscribe(&subscription, &receiver, {});
    QEventLoop loop;
    while (!isSubscribed)
        loop.processEvents(QEventLoop::WaitForMoreEvents);
    BiscottiPost post = chatLine();
    qint64 posted = 0;
    for ([[maybe_unused]] auto const& iteration : state) {
        receiver.postedAt = Clock::now();
        biscotti.post(&post, {});
        ++posted;
        while (acknowledged < posted || receiver.received < posted)
            loop.processEvents(QEventLoop::WaitForMoreEvents);
    }
    receiver.delays.report(state);
}

} // namespace

BENCHMARK(rawPingPong)->Name("Link/RawPingPong")->UseRealTime();
BENCHMARK(postAndReceive)->Name("Link/PostAndReceive")->UseRealTime();
