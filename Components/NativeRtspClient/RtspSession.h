#pragma once

#include "NetworkErrors.h"
#include "RtspInput.h"

#include <QByteArray>
#include <QElapsedTimer>
#include <QList>
#include <QString>

#include <condition_variable>
#include <functional>
#include <mutex>

class Logger;
class RtspRemuxer;
class RtspStreamFinder;
struct AVPacket;

/// How long a server may be silent, in ms.
struct RtspPatience {
    int udp = 3000;      ///< Before the first packet by UDP, when TCP can be tried still.
    int silence = 10000; ///< Otherwise, before it counts as lost.
};

/// One RTSP session, which blocks on a worker thread and hands over what happens.
///
/// Tries UDP first, which most servers prefer, and TCP when UDP is refused or brings nothing: a firewall lets nothing
/// through. A server that refuses TCP gets all the time that UDP may need.
class RtspSession
{
public:
    static constexpr qint64 maximumPendingBytes = 8 << 20; ///< Waiting to be fetched; then reading waits.
    static constexpr std::int64_t endTolerance = 2000000;  ///< µs between the end of a film and that of its packets.

    struct Order {
        QByteArray url;
        QString host;
        int port;
        RtspPatience patience;
        int timeout;             ///< ms for the server to accept.
        RtspTransport transport; ///< What worked before.
        qint64 startTime;        ///< µs at which the time stamps begin.
    };

    struct Event {
        enum Kind { Connected, Header, Data, Done } kind;
        QByteArray bytes = {};
        bool isEntry = false;
        NetworkErrors::NetworkError error = NetworkErrors::NoError;
    };

    enum class Phase { Resolving, Opening, Streaming };

    /// `wake` is called, on the worker's thread, when events wait and none waited before.
    RtspSession(Order order, std::function<void()> wake) : _order(std::move(order)), _wake(std::move(wake)) {}

    /// The whole session; on the worker's thread.
    void run();

    // Any thread.

    /// Ends the session as soon as FFmpeg lets go. No wake call is running or comes when this returns.
    void abandon();
    QList<Event> takeEvents();
    Phase phase() const { return _phase; }
    RtspTransport transport() const { return _transport; } ///< What brought packets; Unknown before.
    qint64 endTime() const { return _endTime; }            ///< µs, of what was handed over; 0 when nothing was.
    bool isNetworkAvailable() const { return _networkAvailable; } ///< As of the Done event.
    bool isFinite() const { return _finite; }                     ///< Likewise.

private:
    NetworkErrors::NetworkError play();
    int tryTransports();
    int attempt(RtspTransport transport, int firstPacketTimeout);
    int pump(RtspInput& input, RtspTransport transport, int firstPacketTimeout);
    int beginStreams(RtspStreamFinder& finder, RtspRemuxer& remuxer);
    void pass(AVPacket& packet, RtspRemuxer& remuxer);
    void push(Event event);
    NetworkErrors::NetworkError meaningOf(int error) const;

    static Logger* log;

    Order const _order;
    QElapsedTimer _sinceStart;
    bool _everConnected = false; ///< In this session.
    std::atomic<bool> _abandoned{false};
    std::atomic<Phase> _phase{Phase::Resolving};
    std::atomic<RtspTransport> _transport{RtspTransport::Unknown};
    std::atomic<qint64> _endTime{0};
    std::atomic<bool> _networkAvailable{false};
    std::atomic<bool> _finite{false};

    std::mutex _mutex; ///< Guards what follows; held while waking.
    std::condition_variable _room;
    std::function<void()> const _wake;
    QList<Event> _events;
    qint64 _pendingBytes = 0;
};
