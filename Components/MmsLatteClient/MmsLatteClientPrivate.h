#pragma once

#include "BitrateWatch.h"
#include "HttpContentChecker.h"
#include "LatteClient.h"
#include "MmsClient.h"
#include "MmsPlaylist.h"
#include "MmsStreamBuffer.h"
#include "MonotonicTickCounter.h"
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
/// One attempt is made at a time: whatever begins another one ends what is under way. How it stands is one state;
/// whether the viewer is played to is the buffer's, as it goes on while another address is looked at.
class MmsLatteClientPrivate : public QObject
{
    Q_OBJECT

public:
    /// How the present attempt stands. Changed by enter() alone.
    enum State {
        Stopped,        ///< Nothing is under way.
        Checking,       ///< What an address is is being found out; a transport may be tried, or play, meanwhile.
        Connecting,     ///< A transport is to bring the header,
        Receiving,      ///< and has.
        Waiting,        ///< The next attempt has a time.
        TestingNetwork, ///< What the last failure means depends on whether there is a network.
        Finished        ///< There will be none any more.
    };
    Q_ENUM(State)

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
    static constexpr int drySeconds =
        4; ///< Without a byte to play before the viewer is told: what is decoded lasts so long.
    static constexpr qint64 leapOfTime = 4000; ///< ms between two looks at the bit rate: it was frozen.

    /// The name is what the transports present themselves with. The client is the parent.
    MmsLatteClientPrivate(QString const& name, Factories const& factories, MmsLatteClient* client);
    ~MmsLatteClientPrivate() override;

    /// Makes transports with these from now on instead of those for MMS over HTTP and TCP.
    void setMmsClientFactories(std::unique_ptr<MmsClientFactory> http, std::unique_ptr<MmsClientFactory> tcp);

    /// Goes by this from now on; before prepare(). The clock is borrowed.
    void setClock(TickCounter& clock) { _clock = &clock; }
    void setReconnectionPolicy(ReconnectionPolicy const& policy) { _policy = policy; }

    /// What servers are told last goes this way; borrowed. Before prepare().
    void setFarewells(MmsFarewells* farewells) { _farewells = farewells; }

    /// Any thread.
    LatteClient::LatteClientState latteState() const;
    MmsStreamBuffer& buffer() { return _buffer; }

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

    /// The address delivers: what it is need not be found out again.
    void updateContent(QString const& url);

    /// The transport has brought this header.
    void takeHeader(QByteArray const& header);
    /// Playing begins. What is buffered of a new stream can be read after changeDelay, when the demultiplexer of the
    /// one before has stopped: released() tells then.
    void hasStarted(bool isNewStream);
    /// The transport has failed: arranges for another attempt, or gives up. The network is as isNetworkAvailable()
    /// said before.
    void mend(MmsClient::MmsClientError error, std::optional<bool> isNetworkAvailable);

    /// The buffer has little room left, or none: the server has to wait. Whether it was not so before.
    bool hold(bool isFull);
    /// The other way round, when there is room again. Any thread.
    void goOnWhenThereIsRoom();

    void startBitrateTimer();
    void stopBitrateTimer();

    /// Something to play has come; whether the viewer was told last that there is nothing.
    bool flowsAgain();

    /// Ends everything that is under way, and takes the pending memos along. The state is Stopped then, if it was not
    /// Finished.
    void cancel();

    /// Whether the network is there; nothing when the test will tell later. The first result is only kept: the
    /// network counts as unavailable until it has been seen before.
    std::optional<bool> isNetworkAvailable();

signals:
    /// The server that had to wait for room does so no more.
    void hasRoomAgain();
    /// There has been nothing to play for a while, though the connection stands.
    void ranDry();
    void released();
    /// An attempt has failed; there will be another.
    void failed(NetworkErrors::NetworkError code);
    /// It was the last one. The state is Finished.
    void finished(NetworkErrors::NetworkError code);

public slots:
    void onContentCheckerFinished(HttpContentChecker::CheckResponse const& response, bool failed);
    void onContentCheckerSilent(HttpContentChecker::CheckResponse const& response);
    void onCheckStatus(Timer* timer);
    void onCheckBitrate(Timer* timer);
    void onNetworkTested(bool isAvailable);

private:
    /// Whether the transport reads.
    enum class Intake {
        Open,
        Held, ///< It does not: there is little room.
        Full  ///< Nor did that help.
    };

    void enter(State state);
    void makeFactories();
    void connectTo(bool http, QString const& url, QString const& referrer);
    void openTransport(bool http, QString const& url, QString const& referrer);
    void connectTransport(QString const& url, QString const& referrer);
    void attempt(MmsPlaylist::Address const& address);
    bool isRefused() const { return _firstConnect && _refusal != NetworkErrors::NoError; }
    void noteRefusal(HttpContentChecker::CheckResponse const& response);
    bool isTryingTcp(QString const& url) const;
    void fallBackToTcp(HttpContentChecker::CheckResponse const& response);
    void openPlaylist(HttpContentChecker::CheckResponse const& response);
    void giveUp(QString const& url, NetworkErrors::NetworkError code);
    bool takeOver(MmsClient::MmsClientError error);
    void retryAfterRemoteClose();
    void settle(NetworkErrors::NetworkError code, bool isNetworkAvailable);
    void finish(NetworkErrors::NetworkError code);
    void postMemo(int ms, Memo* memo);
    void goOnToNext();
    bool catchUp();
    void noticeDrought(int bytes);
    void release();

    static Logger* log;

    MmsLatteClient* const _latteClient;
    QString const _name;
    Factories const _factories;
    MonotonicTickCounter _ownClock;
    TickCounter* _clock = &_ownClock; ///< Of the queue.
    ReconnectionPolicy _policy;

    std::atomic<State> _state{Stopped};
    NetworkErrors::NetworkError _failure = NetworkErrors::NoError; ///< While the network is tested.
    NetworkErrors::NetworkError _refusal =
        NetworkErrors::NoError; ///< What the last check came to, if it is for good.

    // All of these are null while nothing is under way.
    SortedMemoQueue* _queue = nullptr; ///< This client's own.
    HttpContentChecker* _contentChecker = nullptr;
    Timer* _statusTimer = nullptr;
    Timer* _bitrateTimer = nullptr;
    Timer* _changeTimer = nullptr;

    NetworkTest* _networkTest;
    std::unique_ptr<MmsClientFactory> _mmsClientFactories[2]; ///< For TCP and for HTTP.
    bool _hasOwnFactories = true;
    MmsFarewells* _farewells = nullptr;
    MmsClient* _client = nullptr;               ///< The transport.
    MmsClientFactory* _clientFactory = nullptr; ///< That it came from.
    QString _transportUrl;                      ///< Where it has connected to.

    MmsStreamBuffer _buffer;
    MmsPlaylist _playlist;
    QString _currentUrl;       ///< The address in use.
    QString _currentKey;       ///< What it was redirected from, or the same.
    QString _referrer;         ///< The address of the playlist that it stands in.
    bool _firstConnect = true; ///< No header has arrived yet.
    bool _networkWasAvailable = false;
    int _connectTimeout = firstConnectTimeout;
    int _reconnectAttempts = 0; ///< After the server closed the connection.
    int _normalBitrate = 1;     ///< Bits a second, from the header.
    BitrateWatch _bitrateWatch;
    std::atomic<Intake> _intake{Intake::Open};
    int _drySeconds = 0;    ///< In a row, without a byte.
    qint64 _lastLook = 0;   ///< At the bit rate, by the clock.
    bool _hasLeapt = false; ///< What was sent while we were frozen is coming.
};
