#pragma once

#include "LatteClient.h"
#include "ReconnectionPolicy.h"
#include "RtspBuffer.h"

#include <atomic>
#include <mutex>

class Logger;
class RtspClient;
class RtspClientFactory;
class Timer;
class TimerFactory;

/// Delivers what an RTSP server sends, and connects again, without limit, whenever it is lost.
///
/// Emits error() for each loss while it goes on trying, so that an error is not the end of the client. It gives up,
/// with the state Idle, when the server was never reached though the network is up, and when it wants another
/// password; a stream with an end, as the server has told, ends with the state Finished. Otherwise the state is
/// Delivering from startBuffering() to stopBuffering(), on one thread with an event loop.
class RtspLatteClient : public LatteClient
{
    Q_OBJECT

public:
    static constexpr qint64 defaultBufferLength = 5242880;
    static constexpr qint64 startThreshold = 128000; ///< Bytes before it says that it plays: a source wants as many.
    static constexpr qint64 reconnectThreshold = 64000; ///< The same after a failure.
    static constexpr int firstConnectTimeout = 10000;   ///< ms; doubles with each failure ...
    static constexpr int maxConnectTimeout = 80000;     ///< ... up to this.
    /// ms for which data of a new header waits after descriptorChanged(), lest the demultiplexer of the old one takes
    /// it.
    static constexpr int changeDelay = 1000;

    /// Both factories must outlive the client.
    RtspLatteClient(Uri const& uri, RtspClientFactory* clientFactory, TimerFactory* timerFactory,
                    QObject* parent = nullptr);
    ~RtspLatteClient() override;

    /// Goes by this policy from now on.
    void setReconnectionPolicy(ReconnectionPolicy const& policy) { _policy = policy; }

    void startBuffering() override;
    void stopBuffering() override;
    Uri uri() const override { return _uri; }
    LatteClientState state() const override { return _state; }
    qint64 bufferByteLength() const override { return _buffer.capacity(); }
    /// Ignores a length of 0 or less.
    void setBufferByteLength(qint64 length) override;
    void clearBuffer() override { _buffer.clear(); }
    qint64 bytesAvailable() const override;
    void seekToTime(QDateTime const&) override {}
    qint64 read(char* data, qint64 size) override;
    bool isSeekable() const override { return false; }
    QByteArray descriptor(qint64 offset) const override;

private:
    void onConnected();
    void onHeader(QByteArray const& header);
    void onData(QByteArray const& chunk, bool isEntry);
    void onDone(NetworkErrors::NetworkError error);
    void onReconnect();
    void onChangeDelayOver() { _withheld = false; }

    void startPlaying();
    void reportAcquired();
    void watchForDrops(qint64 dropped);
    bool isNetworkAvailable();
    void giveUp(LatteClientState state);
    void cancel();

    static Logger* log;

    Uri const _uri;
    RtspClientFactory* const _clientFactory;
    TimerFactory* const _timerFactory;
    RtspClient* _client = nullptr; ///< Given back to the factory, as are the timers; all null unless buffering.
    Timer* _reconnectTimer = nullptr;
    Timer* _changeTimer = nullptr;
    std::atomic<LatteClientState> _state{Idle};
    std::atomic<bool> _withheld{false}; ///< What is buffered belongs to a header that is not announced yet.
    RtspBuffer _buffer{defaultBufferLength};
    mutable std::mutex _descriptorMutex; ///< Guards _descriptor.
    QByteArray _descriptor;

    ReconnectionPolicy _policy;
    bool _playing = false;
    bool _firstConnect = true; ///< No header has come yet.
    bool _descriptorPending = false;
    bool _networkWasAvailable = false; ///< At the last failure.
    bool _dropping = false;
    int _connectTimeout = firstConnectTimeout;
    int _progressPercent = 0;
    qint64 _threshold = startThreshold;
    qint64 _acquired = 0; ///< Bytes since the last time it did not play.
};
