#include "MmsLatteClientPrivate.h"

#include "HttpMmsClientFactory.h"
#include "Logger.h"
#include "LoggerManager.h"
#include "MmsLatteClient.h"
#include "NetworkTest.h"
#include "SortedMemoQueue.h"
#include "TcpMmsClientFactory.h"
#include "Timer.h"
#include "TimerFactory.h"

#include <QMetaEnum>
#include <QUrl>

#include <algorithm>
#include <climits>
#include <utility>

Logger* MmsLatteClientPrivate::log = LoggerManager::logger();

MmsLatteClientPrivate::MmsLatteClientPrivate(QString const& name, Factories const& factories, MmsLatteClient* client)
    : QObject(client), _latteClient(client), _name(name), _factories(factories),
      _networkTest(new NetworkTest(factories.timerFactory, this))
{
    connect(_networkTest, &NetworkTest::finished, this, &MmsLatteClientPrivate::onNetworkTested);
}

MmsLatteClientPrivate::~MmsLatteClientPrivate()
{
    cancel();
}

void MmsLatteClientPrivate::setMmsClientFactories(std::unique_ptr<MmsClientFactory> http,
                                                  std::unique_ptr<MmsClientFactory> tcp)
{
    _mmsClientFactories[false] = std::move(tcp);
    _mmsClientFactories[true] = std::move(http);
    _hasOwnFactories = false;
}

void MmsLatteClientPrivate::enter(State state)
{
    LOG_DEBUG("%s", QMetaEnum::fromType<State>().valueToKey(state));
    _state = state;
}

LatteClient::LatteClientState MmsLatteClientPrivate::latteState() const
{
    switch (_state) {
    case Stopped:
        return LatteClient::Idle;
    case Finished:
        return LatteClient::Finished;
    default:
        return LatteClient::Delivering;
    }
}

void MmsLatteClientPrivate::prepare()
{
    _buffer.interrupt();
    _playlist.clear();
    _currentUrl.clear();
    _currentKey.clear();
    _referrer.clear();
    _firstConnect = true;
    _networkWasAvailable = false;
    _connectTimeout = firstConnectTimeout;
    _reconnectAttempts = 0;
    _policy.reset();
    _queue = new SortedMemoQueue(_clock, _factories.timerFactory, this);
    _queue->acquire(this);
    _contentChecker = new HttpContentChecker(_factories.httpClientFactory, _factories.timerFactory, this);
    connect(_contentChecker, &HttpContentChecker::finished, this, &MmsLatteClientPrivate::onContentCheckerFinished);
    connect(_contentChecker, &HttpContentChecker::silent, this, &MmsLatteClientPrivate::onContentCheckerSilent);
    _statusTimer = _factories.timerFactory->createTimer();
    connect(_statusTimer, &Timer::timeout, this, &MmsLatteClientPrivate::onCheckStatus);
    _statusTimer->start(statusInterval);
    _bitrateTimer = _factories.timerFactory->createTimer();
    connect(_bitrateTimer, &Timer::timeout, this, &MmsLatteClientPrivate::onCheckBitrate);
    _changeTimer = _factories.timerFactory->createTimer();
    _changeTimer->setSingleShot(true);
    connect(_changeTimer, &Timer::timeout, this, &MmsLatteClientPrivate::release);
    if (_hasOwnFactories)
        makeFactories();
}

void MmsLatteClientPrivate::makeFactories()
{
    auto tcp = std::make_unique<TcpMmsClientFactory>(_name, _factories.timerFactory, _factories.tcpSocketFactory,
                                                     _factories.dateTimeBuilder, _queue);
    auto http = std::make_unique<HttpMmsClientFactory>(_name, _factories.httpClientFactory, _factories.timerFactory,
                                                       _factories.dateTimeBuilder, _queue);
    tcp->setFarewells(_farewells);
    http->setFarewells(_farewells);
    _mmsClientFactories[false] = std::move(tcp);
    _mmsClientFactories[true] = std::move(http);
}

void MmsLatteClientPrivate::constructMmsClient(bool http)
{
    destructMmsClient();
    _clientFactory = _mmsClientFactories[http].get();
    _client = _clientFactory->createMmsClient(this);
    connect(_client, &MmsClient::connected, _latteClient, &MmsLatteClient::onMmsConnected);
    connect(_client, &MmsClient::onHeader, _latteClient, &MmsLatteClient::onMmsHeader);
    connect(_client, &MmsClient::onData, _latteClient, &MmsLatteClient::onMmsData);
    connect(_client, &MmsClient::done, _latteClient, &MmsLatteClient::onMmsDone);
}

void MmsLatteClientPrivate::destructMmsClient()
{
    _intake = Intake::Open;
    MmsClient* const client = std::exchange(_client, nullptr);
    if (!client)
        return;
    client->disconnect(_latteClient);
    client->setParent(nullptr); // Goes before the queue, which it uses to the end.
    _clientFactory->disposeMmsClient(client);
}

void MmsLatteClientPrivate::cancel()
{
    if (_state != Finished)
        enter(Stopped);
    _networkTest->cancel();
    if (!_queue)
        return;
    for (Timer** const timer : {&_statusTimer, &_bitrateTimer, &_changeTimer}) {
        (*timer)->stop();
        _factories.timerFactory->disposeTimer(std::exchange(*timer, nullptr));
    }
    _contentChecker->disconnect(this);
    _contentChecker->cancel();
    std::exchange(_contentChecker, nullptr)->deleteLater();
    destructMmsClient();
    _queue->clear(this);
    _queue->clear(_latteClient);
    _queue->release(this);
    _queue->setParent(nullptr);
    std::exchange(_queue, nullptr)->deleteLater();
}

void MmsLatteClientPrivate::startBitrateTimer()
{
    _bitrateWatch.restart(_normalBitrate);
    _lastLook = _clock->msSinceEpoch();
    _hasLeapt = false;
    _buffer.takeBytesThisSecond(); // What came faster than that to begin with does not count.
    _bitrateTimer->start(bitrateInterval);
}

void MmsLatteClientPrivate::stopBitrateTimer()
{
    if (_bitrateTimer)
        _bitrateTimer->stop();
}

void MmsLatteClientPrivate::onCheckStatus(Timer*)
{
    LOG_DEBUG("Current buffer size %d", static_cast<int>(_buffer.size()));
    LOG_DEBUG("Current mms state %d", _client ? _client->state() : MmsClient::Unconnected);
}

void MmsLatteClientPrivate::takeHeader(QByteArray const& header)
{
    if (!_client)
        return;
    if (_state != Checking || !_buffer.isPlaying()) {
        _contentChecker->cancel();
        enter(Receiving);
    }
    if (_transportUrl == _currentUrl) // Else it plays on while another address is looked at.
        updateContent(_currentUrl);
    _firstConnect = false;
    _connectTimeout = firstConnectTimeout;
    if (!_buffer.setHeader(header, _client->streamBitrate(), _client->packetSize())) {
        if (_buffer.isPlaying())
            startBitrateTimer(); // Of the address that has taken over.
        return;
    }
    _normalBitrate = static_cast<int>(std::clamp<qint64>(_client->streamBitrate(), 1, INT_MAX));
    LOG_INFO("New media descriptor length %d", static_cast<int>(header.size()));
    stopBitrateTimer();
}

void MmsLatteClientPrivate::hasStarted(bool isNewStream)
{
    _policy.succeeded();
    _drySeconds = 0;
    startBitrateTimer();
    if (isNewStream)
        _changeTimer->start(changeDelay);
}

void MmsLatteClientPrivate::release()
{
    _buffer.release();
    if (_buffer.bytesAvailable() > 0)
        emit released();
}

bool MmsLatteClientPrivate::hold(bool isFull)
{
    Intake const wanted = isFull ? Intake::Full : Intake::Held;
    if (!_client || _intake >= wanted)
        return false;
    if (_intake.exchange(wanted) == Intake::Open) {
        LOG_INFO("The buffer holds %lld bytes. The server has to wait", static_cast<long long>(_buffer.size()));
        _client->setReading(false);
    }
    return true;
}

void MmsLatteClientPrivate::goOnWhenThereIsRoom()
{
    if (_intake == Intake::Open || !_buffer.hasRoom())
        return;
    auto const goOn = [this] {
        if (!_client || _intake == Intake::Open || !_buffer.hasRoom())
            return;
        _client->setReading(true);
        if (_intake.exchange(Intake::Open) == Intake::Full)
            emit hasRoomAgain();
    };
    QMetaObject::invokeMethod(this, goOn, Qt::QueuedConnection);
}

/// Leaps to what is live when so much time has passed between two looks that we must have been frozen: a second
/// later, for what was sent meanwhile comes first. True when this second tells nothing of the bit rate.
bool MmsLatteClientPrivate::catchUp()
{
    qint64 const now = _clock->msSinceEpoch();
    bool const isLeap = now - std::exchange(_lastLook, now) >= leapOfTime;
    if (std::exchange(_hasLeapt, isLeap) && !isLeap) {
        if (qint64 const dropped = _buffer.leapForward(); dropped > 0)
            LOG_WARNING("Time has leapt: %lld bytes are left out", static_cast<long long>(dropped));
        goOnWhenThereIsRoom();
    }
    return isLeap || _intake != Intake::Open;
}

void MmsLatteClientPrivate::onCheckBitrate(Timer*)
{
    if (catchUp()) {
        _buffer.takeBytesThisSecond();
        return;
    }
    int const bytes = _buffer.takeBytesThisSecond();
    noticeDrought(bytes);
    switch (_bitrateWatch.addSecond(bytes, _playlist.hasAlternative())) {
    case BitrateWatch::Good:
        return;
    case BitrateWatch::LowAverage:
        LOG_WARNING("Average bitrate is below half normal bitrate for %d seconds. Trying to switch to the next "
                    "stream URL...",
                    BitrateWatch::averagedSeconds);
        break;
    case BitrateWatch::LowSeconds:
        LOG_WARNING("The bitrate is below half normal bitrate for %d seconds. Trying to switch to the next stream "
                    "URL...",
                    BitrateWatch::lowSeconds);
        break;
    }
    stopBitrateTimer();
    doCheckNextContent();
}

void MmsLatteClientPrivate::noticeDrought(int bytes)
{
    if (bytes > 0 || _buffer.bytesAvailable() > 0)
        _drySeconds = 0;
    else if (++_drySeconds == drySeconds)
        emit ranDry();
}

bool MmsLatteClientPrivate::flowsAgain()
{
    return std::exchange(_drySeconds, 0) >= drySeconds;
}

std::optional<bool> MmsLatteClientPrivate::isNetworkAvailable()
{
    QString const address = _currentUrl.isEmpty() ? _latteClient->uri().toString() : _currentUrl;
    std::optional<bool> const answer = _networkTest->start(QUrl(address).host());
    if (_networkWasAvailable)
        return answer;
    _networkWasAvailable = answer.value_or(false);
    return false;
}

void MmsLatteClientPrivate::onNetworkTested(bool isAvailable)
{
    _networkWasAvailable = _networkWasAvailable || isAvailable;
    if (_state == TestingNetwork)
        settle(_failure, isAvailable);
}
