#pragma once

#include "RtspClient.h"
#include "RtspSession.h"

#include <QTimer>

#include <memory>

class Logger;
class RtspWorkers;

/// RTSP (RFC 2326), RTP and SDP as FFmpeg speaks them; what comes is passed on in NUT, neither decoded nor encoded.
///
/// FFmpeg runs on a worker thread for each session, which is left behind, silenced and interrupted, when the session
/// is ended from this side.
class NativeRtspClient : public RtspClient
{
    Q_OBJECT

public:
    static constexpr int grace = 1000; ///< ms after its time for a worker to say that its time is over.

    explicit NativeRtspClient(std::shared_ptr<RtspWorkers> workers, RtspPatience patience = {},
                              QObject* parent = nullptr);
    ~NativeRtspClient() override;

    void connectToServer(Uri const& uri, int timeout) override;
    void disconnectFromServer() override;
    bool isNetworkAvailable() const override { return _networkAvailable; }
    bool isFinite() const override { return _finite; }

private:
    void drain();
    void finish(NetworkErrors::NetworkError error);
    void onStuck();

    static Logger* log;

    std::shared_ptr<RtspWorkers> const _workers;
    RtspPatience const _patience;
    std::shared_ptr<RtspSession> _session; ///< Null between sessions.
    QTimer _stuckTimer;                    ///< For a worker in a call that cannot be interrupted.
    RtspTransport _transport = RtspTransport::Unknown;
    qint64 _endTime = 0; ///< µs, where the next session's time begins.
    bool _networkAvailable = false;
    bool _finite = false;
};
