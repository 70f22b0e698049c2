#pragma once

#include "BitrateWatch.h"
#include "HttpContentChecker.h"
#include "MmsClient.h"
#include "MmsPlaylist.h"
#include "MmsStreamBuffer.h"
#include "MonotonicTickCounter.h"
#include "NetworkErrors.h"
#include "ReconnectionPolicy.h"

#include <atomic>
#include <memory>
#include <optional>

class DateTimeBuilder;
class HttpClientFactory;
class Memo;
class MmsClientFactory;
class MmsFarewells;
class MmsLatteClient;
class NetworkTest;
class SortedMemoQueue;
class TcpSocketFactory;
class Timer;
class TimerFactory;

/// The work behind a MmsLatteClient: finds out what an address is, builds the transport for it, and goes to the same
/// address again or on to the next one. Moves with its client, and works on the client's thread.
///
/// One attempt is made at a time: whatever begins another one ends what is under way.
class MmsLatteClientPrivate : public QObject
{
    Q_OBJECT

public:
    /// What can be created is created with these, which are borrowed.
    struct Factories {
        TimerFactory* timerFactory = nullptr;
        TcpSocketFactory* tcpSocketFactory = nullptr;
        HttpClientFactory* httpClientFactory = nullptr;
        DateTimeBuilder* dateTimeBuilder = nullptr;
    };

    static constexpr int firstCheckTimeout = 1000;    ///< ms
    static constexpr int firstConnectTimeout = 10000; ///< ms
    static constexpr int maxConnectTimeout = 80000;   ///< ms, where the doubling ends.
    static constexpr int reconnectLimit = 3;          ///< After so many, another address has its turn.
    static constexpr int statusInterval = 5000;       ///< ms
    static constexpr int bitrateInterval = 1000;      ///< ms
    static constexpr int changeDelay = 1000;          ///< ms for which data of a new header is withheld.
    static constexpr qint64 leapOfTime = 4000;        ///< ms between two looks at the bit rate: it was frozen.

    /// The name is what the transports present themselves with. The client is the parent.
    MmsLatteClientPrivate(QString const& name, Factories const& factories, MmsLatteClient* client);
    ~MmsLatteClientPrivate() override;

    /// Makes transports with these from now on instead of those for MMS over HTTP and TCP.
    void setMmsClientFactories(std::unique_ptr<MmsClientFactory> http, std::unique_ptr<MmsClientFactory> tcp);

    /// Goes by this from now on; before prepare(). The clock is borrowed.
    void setClock(TickCounter& clock) { _clock = &clock; }
    void setReconnectionPolicy(ReconnectionPolicy const& policy) { _policy = policy; }

    /// Everything as it was before the first attempt. Called before each start.
    void prepare();

    /// Builds a transport in the place of the present one.
    void constructMmsClient(bool http);
    void destructMmsClient();

    /// Finds out what an address is, and goes on by that; one that is known to be a stream is connected to at once.
    /// With an empty text the check is made under the client's own name.
    void checkContent(QString const& url, QString const& referrer, QString const& text);

    /// Makes another attempt at the address in use, when the policy says so.
    void reconnectCurrentContent();
    void doReconnectCurrentContent();
    /// The same, allowing for more silence and where the address is redirected to.
    void reconnectLater();

    /// Makes an attempt at the next address, likewise. False when there is no other.
    bool checkNextContent();
    void doCheckNextContent();

    /// The transport delivers while the content check of its address is under way: that need not go on.
    void endCheck();

    /// The address delivers: what it is need not be found out again.
    void updateContent(QString const& url);

    /// The buffer has little room left, or none: the server has to wait. Whether it was not so before.
    bool hold(bool isFull);
    /// The other way round, when there is room again. Any thread.
    void goOnWhenThereIsRoom();

    /// What is buffered belongs to a header that has just been announced: it can be read when the demultiplexer of
    /// the one before has stopped.
    void releaseSoon();

    void startBitrateTimer();
    void stopBitrateTimer();

    /// Ends everything that is under way, and takes the pending memos along.
    void cancel();

    /// Whether the network is there; nothing when networkTested() of the client will tell later. The first result is
    /// only kept: the network counts as unavailable until it has been seen before.
    std::optional<bool> isNetworkAvailable();

public slots:
    void onContentCheckerFinished(HttpContentChecker::CheckResponse const& response, bool failed);
    void onContentCheckerSilent(HttpContentChecker::CheckResponse const& response);
    void onCheckStatus(Timer* timer);
    void onCheckBitrate(Timer* timer);
    void onNetworkTested(bool isAvailable);

private:
    friend class MmsLatteClient;

    /// Whether the transport reads.
    enum class Intake {
        Open,
        Held, ///< It does not: there is little room.
        Full  ///< Nor did that help.
    };

    void connectTo(bool http, QString const& url, QString const& referrer);
    void openTransport(bool http, QString const& url, QString const& referrer);
    void attempt(MmsPlaylist::Address const& address);
    bool isTryingTcp(QString const& url) const;
    void fallBackToTcp(HttpContentChecker::CheckResponse const& response);
    void openPlaylist(HttpContentChecker::CheckResponse const& response);
    void giveUp(QString const& url, NetworkErrors::NetworkError code);
    void postMemo(int ms, Memo* memo);
    void goOnToNext();
    void startStatusTimer();
    bool catchUp();
    void disposeTimer(Timer*& timer);

    static Logger* log;

    MmsLatteClient* const _latteClient;
    QString const _name;
    Factories const _factories;
    MonotonicTickCounter _ownClock;
    TickCounter* _clock = &_ownClock; ///< Of the queue.
    ReconnectionPolicy _policy;

    SortedMemoQueue* _queue = nullptr;             ///< This client's own; null once cancelled.
    HttpContentChecker* _contentChecker = nullptr; ///< Likewise.
    NetworkTest* _networkTest;
    std::unique_ptr<MmsClientFactory> _mmsClientFactories[2]; ///< For TCP and for HTTP.
    bool _hasOwnFactories = true;
    MmsFarewells* _farewells = nullptr;
    MmsClient* _client = nullptr;               ///< The transport.
    MmsClientFactory* _clientFactory = nullptr; ///< That it came from.

    MmsStreamBuffer _buffer;
    MmsPlaylist _playlist;
    QString _currentUrl;       ///< The address in use.
    QString _currentKey;       ///< What it was redirected from, or the same.
    QString _referrer;         ///< The address of the playlist that it stands in.
    bool _checking = false;    ///< A content check is under way.
    bool _firstConnect = true; ///< No header has arrived yet.
    bool _networkWasAvailable = false;
    int _connectTimeout = firstConnectTimeout;
    int _reconnectAttempts = 0; ///< After the server closed the connection.
    int _normalBitrate = 1;     ///< Bits a second, from the header.
    BitrateWatch _bitrateWatch;
    std::atomic<Intake> _intake{Intake::Open};
    qint64 _lastLook = 0;   ///< At the bit rate, by the clock.
    bool _hasLeapt = false; ///< What was sent while we were frozen is coming.
    Timer* _statusTimer = nullptr;
    Timer* _bitrateTimer = nullptr;
    Timer* _changeTimer = nullptr;
};
