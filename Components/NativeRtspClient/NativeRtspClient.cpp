#include "NativeRtspClient.h"

#include "Logger.h"
#include "LoggerManager.h"
#include "RtspSession.h"
#include "RtspTimeline.h"
#include "RtspWorkers.h"
#include "Uri.h"

#include <QUrl>

#include <algorithm>
#include <utility>

Logger* NativeRtspClient::log = LoggerManager::logger();

namespace
{
constexpr int defaultPort = 554;
} // namespace

NativeRtspClient::NativeRtspClient(std::shared_ptr<RtspWorkers> workers, RtspPatience patience, QObject* parent)
    : RtspClient(parent), _workers(std::move(workers)), _patience(patience), _stuckTimer(this)
{
    _stuckTimer.setSingleShot(true);
    connect(&_stuckTimer, &QTimer::timeout, this, &NativeRtspClient::onStuck);
}

NativeRtspClient::~NativeRtspClient()
{
    NativeRtspClient::disconnectFromServer();
}

void NativeRtspClient::connectToServer(Uri const& uri, int timeout)
{
    disconnectFromServer();
    LOG_INFO("Connecting to %s", qPrintable(uri.toString()));
    QUrl const url(uri.toString());
    RtspSession::Order order{.url = uri.toString().toUtf8(),
                             .host = url.host(QUrl::FullyDecoded),
                             .port = url.port(defaultPort),
                             .patience = _patience,
                             .timeout = timeout,
                             .transport = _transport,
                             .startTime = std::max<qint64>(_endTime - RtspTimeline::delay, 0)};
    auto const wake = [this] { QMetaObject::invokeMethod(this, &NativeRtspClient::drain, Qt::QueuedConnection); };
    _session = std::make_shared<RtspSession>(std::move(order), wake);
    _networkAvailable = false;
    _finite = false;
    _stuckTimer.start(timeout + grace);
    if (!_workers->start([session = _session] { session->run(); })) {
        LOG_ERROR("Too many sessions wait for their end");
        auto const fail = [this, session = _session] {
            if (session == _session)
                finish(NetworkErrors::GeneralError);
        };
        QMetaObject::invokeMethod(this, fail, Qt::QueuedConnection);
    }
}

void NativeRtspClient::disconnectFromServer()
{
    _stuckTimer.stop();
    std::shared_ptr<RtspSession> const session = std::exchange(_session, nullptr);
    if (!session)
        return;
    session->abandon();
    if (session->transport() != RtspTransport::Unknown)
        _transport = session->transport();
    _endTime = std::max(_endTime, session->endTime());
}

void NativeRtspClient::drain()
{
    std::shared_ptr<RtspSession> const session = _session;
    if (!session)
        return;
    for (RtspSession::Event const& event : session->takeEvents()) {
        switch (event.kind) {
        case RtspSession::Event::Connected:
            _stuckTimer.stop();
            emit connected();
            break;
        case RtspSession::Event::Header:
            emit headerReceived(event.bytes);
            break;
        case RtspSession::Event::Data:
            emit dataReceived(event.bytes, event.isEntry);
            break;
        case RtspSession::Event::Done:
            _networkAvailable = session->isNetworkAvailable();
            _finite = session->isFinite();
            finish(event.error);
            break;
        }
        if (session != _session)
            return; // A listener has ended it.
    }
}

void NativeRtspClient::finish(NetworkErrors::NetworkError error)
{
    disconnectFromServer();
    emit done(error);
}

void NativeRtspClient::onStuck()
{
    LOG_WARNING("A session that answers to nothing is left behind");
    finish(_session->phase() == RtspSession::Phase::Resolving ? NetworkErrors::CouldNotResolve
                                                              : NetworkErrors::CouldNotConnect);
}
