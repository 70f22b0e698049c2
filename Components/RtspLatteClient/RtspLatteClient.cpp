#include "RtspLatteClient.h"

#include "Logger.h"
#include "LoggerManager.h"
#include "RtspClient.h"
#include "RtspClientFactory.h"
#include "Timer.h"
#include "TimerFactory.h"

#include <algorithm>
#include <utility>

Logger* RtspLatteClient::log = LoggerManager::logger();

RtspLatteClient::RtspLatteClient(Uri const& uri, RtspClientFactory* clientFactory, TimerFactory* timerFactory,
                                 QObject* parent)
    : LatteClient(parent), _uri(uri), _clientFactory(clientFactory), _timerFactory(timerFactory)
{
}

RtspLatteClient::~RtspLatteClient()
{
    cancel();
}

void RtspLatteClient::startBuffering()
{
    if (_client)
        return;
    _state = Delivering;
    _firstConnect = true;
    _policy.reset();
    _networkWasAvailable = false;
    _connectTimeout = firstConnectTimeout;
    _client = _clientFactory->createRtspClient(nullptr);
    connect(_client, &RtspClient::connected, this, &RtspLatteClient::onConnected);
    connect(_client, &RtspClient::headerReceived, this, &RtspLatteClient::onHeader);
    connect(_client, &RtspClient::dataReceived, this, &RtspLatteClient::onData);
    connect(_client, &RtspClient::done, this, &RtspLatteClient::onDone);
    for (Timer** timer : {&_reconnectTimer, &_changeTimer}) {
        *timer = _timerFactory->createTimer();
        (*timer)->setSingleShot(true);
    }
    connect(_reconnectTimer, &Timer::timeout, this, &RtspLatteClient::onReconnect);
    connect(_changeTimer, &Timer::timeout, this, &RtspLatteClient::onChangeDelayOver);
    LOG_DEBUG("beginBuffering()");
    emit progressChanged(this, QStringLiteral("Connecting..."));
    onReconnect();
}

void RtspLatteClient::stopBuffering()
{
    LOG_DEBUG("stopBuffering()");
    cancel();
    _state = Idle;
    emit progressChanged(this, QStringLiteral("Stopped"));
}

void RtspLatteClient::cancel()
{
    if (!_client)
        return;
    _client->disconnectFromServer();
    _clientFactory->disposeRtspClient(std::exchange(_client, nullptr));
    _timerFactory->disposeTimer(std::exchange(_reconnectTimer, nullptr));
    _timerFactory->disposeTimer(std::exchange(_changeTimer, nullptr));
    _withheld = false;
    _playing = false;
    _acquired = 0;
    _progressPercent = 0;
}

void RtspLatteClient::setBufferByteLength(qint64 length)
{
    if (length > 0)
        watchForDrops(_buffer.setCapacity(length));
}

qint64 RtspLatteClient::bytesAvailable() const
{
    return _withheld ? 0 : _buffer.size();
}

qint64 RtspLatteClient::read(char* data, qint64 size)
{
    return _withheld ? 0 : _buffer.read(data, size);
}

QByteArray RtspLatteClient::descriptor(qint64) const
{
    std::lock_guard const lock(_descriptorMutex);
    return _descriptor;
}

void RtspLatteClient::onConnected()
{
    LOG_INFO("Connected to %s", qPrintable(_uri.toString()));
    emit stateChanged(this);
    emit progressChanged(this, QStringLiteral("Connected"));
}

void RtspLatteClient::onHeader(QByteArray const& header)
{
    bool const isFirst = std::exchange(_firstConnect, false);
    _connectTimeout = firstConnectTimeout;
    if (header == descriptor(0))
        return; // The same streams go on: what is buffered stays.
    LOG_INFO("New media descriptor length %lld", static_cast<long long>(header.size()));
    _withheld = !isFirst;
    _changeTimer->stop();
    _buffer.reset();
    {
        std::lock_guard const lock(_descriptorMutex);
        _descriptor = header;
    }
    _descriptorPending = true;
    _playing = false;
    _acquired = 0;
    _progressPercent = 0;
}

void RtspLatteClient::onData(QByteArray const& chunk, bool isEntry)
{
    watchForDrops(_buffer.append(chunk, isEntry));
    _acquired += chunk.size();
    if (!_playing && _acquired < _threshold)
        return reportAcquired();
    if (!_playing)
        startPlaying();
    if (!_withheld)
        emit readyRead(this);
}

void RtspLatteClient::reportAcquired()
{
    int const percent = static_cast<int>(_acquired * 100 / _threshold) / 10 * 10;
    if (std::exchange(_progressPercent, percent) != percent)
        emit progressChanged(this, QStringLiteral("Acquiring...%1%").arg(percent));
}

void RtspLatteClient::startPlaying()
{
    _playing = true;
    _policy.succeeded();
    if (std::exchange(_descriptorPending, false))
        emit descriptorChanged(this, descriptor(0).size());
    if (_withheld)
        _changeTimer->start(changeDelay);
    announcePlaying();
}

void RtspLatteClient::watchForDrops(qint64 dropped)
{
    if (dropped > 0 && !std::exchange(_dropping, true))
        LOG_WARNING("RTSP buffer full. Leaping forward in %s", qPrintable(_uri.toString()));
    if (dropped == 0 && _dropping)
        _dropping = _buffer.size() > _buffer.capacity() / 2; // One line for each time that nobody keeps up.
}

void RtspLatteClient::onDone(NetworkErrors::NetworkError error)
{
    LOG_INFO("onDone() %s: %s", qPrintable(NetworkErrors::stringForError(error)), qPrintable(_uri.toString()));
    bool const networkAvailable = isNetworkAvailable();
    _acquired = 0;
    _progressPercent = 0;
    bool const wasPlaying = std::exchange(_playing, false);
    if (error == NetworkErrors::EndOfStream && _client->isFinite())
        return giveUp(Finished);
    if (wasPlaying)
        emit progressChanged(this, QStringLiteral("Reconnecting..."));
    if (error == NetworkErrors::NoError)
        return;
    _threshold = reconnectThreshold;
    if (error == NetworkErrors::AuthenticationRequired || (networkAvailable && _firstConnect)) {
        giveUp(Idle);
    } else {
        if (_connectTimeout < maxConnectTimeout)
            _connectTimeout *= 2;
        _reconnectTimer->start(_policy.nextDelay());
    }
    emit this->error(this, error);
}

bool RtspLatteClient::isNetworkAvailable()
{
    bool const available = _client->isNetworkAvailable();
    // A network that has just come up is given another chance.
    return std::exchange(_networkWasAvailable, available) && available;
}

void RtspLatteClient::giveUp(LatteClientState state)
{
    cancel();
    _state = state;
    emit stateChanged(this);
    emit readyRead(this); // Whoever waits for more sees that none will come.
}

void RtspLatteClient::onReconnect()
{
    _client->connectToServer(_uri, _connectTimeout);
}
