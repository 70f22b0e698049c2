#include "NetworkTest.h"

#include "Logger.h"
#include "LoggerManager.h"
#include "Timer.h"
#include "TimerFactory.h"

#include <QHostAddress>
#include <QUrl>

#include <cerrno>
#include <cstring>
#include <mutex>
#include <netdb.h>
#include <sys/socket.h>
#include <system_error>
#include <thread>
#include <unistd.h>
#include <utility>

Logger* NetworkTest::log = LoggerManager::logger();

/// What the object and its thread both know.
struct NetworkTest::Shared {
    std::mutex mutex;                ///< Guards what follows; held while the pointer is used.
    NetworkTest* receiver = nullptr; ///< Null once it is gone.
    Answer answer;
};

namespace
{

/// The system's choice of a local address for the peer. Connecting a datagram socket sends nothing.
QString failureToReach(addrinfo const& peer)
{
    int const descriptor = socket(peer.ai_family, SOCK_DGRAM | SOCK_CLOEXEC, 0);
    sockaddr_storage local = {};
    socklen_t size = sizeof local;
    QString failure;
    if (descriptor < 0 || connect(descriptor, peer.ai_addr, peer.ai_addrlen) != 0)
        failure = "could not connected";
    else if (getsockname(descriptor, reinterpret_cast<sockaddr*>(&local), &size) != 0)
        failure = "could not get socket name";
    if (descriptor >= 0)
        close(descriptor);
    return failure;
}

} // namespace

NetworkTest::NetworkTest(TimerFactory* timerFactory, QObject* parent) : QObject(parent), _timerFactory(timerFactory)
{
    connect(this, &NetworkTest::answered, this, &NetworkTest::onAnswer, Qt::QueuedConnection);
}

NetworkTest::~NetworkTest()
{
    cancel();
    if (_shared) {
        std::lock_guard const lock(_shared->mutex);
        _shared->receiver = nullptr;
    }
}

NetworkTest::Answer NetworkTest::test(QString const& host, bool isNumeric)
{
    addrinfo hints = {};
    hints.ai_socktype = SOCK_DGRAM;
    hints.ai_flags = isNumeric ? AI_NUMERICHOST | AI_NUMERICSERV : AI_NUMERICSERV;
    addrinfo* peers = nullptr;
    QByteArray const name = isNumeric ? host.toLatin1() : QUrl::toAce(host);
    if (int const error = getaddrinfo(name.constData(), "80", &hints, &peers); error != 0)
        return {false, QString("Couldn't get address info for host %1 error %2").arg(host, gai_strerror(error))};
    Answer answer;
    for (addrinfo const* peer = peers; peer && !answer.isAvailable; peer = peer->ai_next) {
        answer.failure = failureToReach(*peer);
        answer.isAvailable = answer.failure.isEmpty();
    }
    freeaddrinfo(peers);
    return answer;
}

std::optional<bool> NetworkTest::start(QString const& host)
{
    if (!QHostAddress(host).isNull()) {
        Answer const answer = test(host, true);
        if (!answer.isAvailable)
            LOG_WARNING("%s", qPrintable(answer.failure));
        return answer.isAvailable;
    }
    if (_timer)
        return std::nullopt; // The one that runs will do.
    if (_shared || host.isEmpty())
        return false;
    auto const shared = std::make_shared<Shared>();
    shared->receiver = this;
    auto const run = [shared, host] {
        Answer const answer = test(host, false);
        std::lock_guard const lock(shared->mutex);
        shared->answer = answer;
        if (shared->receiver)
            emit shared->receiver->answered(); // Queued: it only posts.
    };
    try {
        std::thread(run).detach();
    } catch (std::system_error const& failure) {
        LOG_ERROR("Could not look %s up: %s", qPrintable(host), failure.what());
        return false;
    }
    _shared = shared;
    _timer = _timerFactory->createTimer();
    _timer->setSingleShot(true);
    connect(_timer, &Timer::timeout, this, [this] { finish(false); });
    _timer->start(limit);
    return std::nullopt;
}

void NetworkTest::cancel()
{
    if (Timer* const timer = std::exchange(_timer, nullptr)) {
        timer->disconnect(this);
        timer->stop();
        _timerFactory->disposeTimer(timer);
    }
}

void NetworkTest::onAnswer()
{
    Answer answer;
    {
        std::lock_guard const lock(_shared->mutex);
        answer = _shared->answer;
    }
    _shared.reset();
    if (!answer.isAvailable)
        LOG_WARNING("%s", qPrintable(answer.failure));
    finish(answer.isAvailable);
}

void NetworkTest::finish(bool isAvailable)
{
    if (!_timer)
        return;
    cancel();
    emit finished(isAvailable);
}
