#include "MmsLatteClient.h"

#include "Logger.h"
#include "LoggerManager.h"
#include "MmsLatteClientPrivate.h"

#include <QThread>

#include <algorithm>
#include <climits>
#include <utility>

Logger* MmsLatteClient::log = LoggerManager::logger();

namespace
{

/// What a transport reports that has no words of its own for the viewer.
constexpr auto otherFailure = static_cast<NetworkErrors::NetworkError>(8);

NetworkErrors::NetworkError networkErrorOf(MmsClient::MmsClientError error)
{
    switch (error) {
    case MmsClient::NoError:
        return NetworkErrors::NoError;
    case MmsClient::EndOfStream:
        return NetworkErrors::EndOfStream;
    case MmsClient::CouldNotConnected:
        return NetworkErrors::CouldNotConnect;
    case MmsClient::StreamNotAvailable:
    case MmsClient::ReadTimeout:
        return NetworkErrors::StreamUnavailable;
    case MmsClient::RemoteServerClosed:
        return NetworkErrors::RemoteClosed;
    case MmsClient::CouldNotResolveServer:
        return NetworkErrors::CouldNotResolve;
    case MmsClient::AuthenticationRequiredError:
        return NetworkErrors::AuthenticationRequired;
    case MmsClient::ProxyAuthenticationRequiredError:
        return NetworkErrors::ProxyAuthenticationRequired;
    case MmsClient::Redirected:
    case MmsClient::BandwidthNotAvailable:
    case MmsClient::NoContent:
    case MmsClient::UnknownError:
        break;
    }
    return otherFailure;
}

} // namespace

MmsLatteClient::MmsLatteClient(QString const& name, Uri const& uri, TimerFactory* timerFactory,
                               TcpSocketFactory* tcpSocketFactory, HttpClientFactory* httpClientFactory,
                               DateTimeBuilder* dateTimeBuilder, MemoQueue*, QObject* parent)
    : LatteClient(parent), _uri(uri),
      _private(
          new MmsLatteClientPrivate(name, {timerFactory, tcpSocketFactory, httpClientFactory, dateTimeBuilder}, this))
{
    LOG_DEBUG("Contsructing....");
    LOG_DEBUG("Constructed");
}

MmsLatteClient::~MmsLatteClient()
{
    _private->cancel();
}

void MmsLatteClient::setFarewells(MmsFarewells* farewells)
{
    _private->_farewells = farewells;
}

void MmsLatteClient::startBuffering()
{
    if (state() == Delivering)
        return;
    _private->prepare();
    _state = Delivering;
    _private->checkContent(_uri.toString(), "", "");
    LOG_DEBUG("beginBuffering()");
    emit stateChanged(this);
    emit progressChanged(this, "Connecting...");
}

void MmsLatteClient::stopBuffering()
{
    LOG_DEBUG("stopBuffering()");
    _private->cancel();
    _pendingError.reset();
    if (state() == Delivering)
        setState(Idle);
    emit progressChanged(this, "Stopped");
}

void MmsLatteClient::setState(LatteClientState state)
{
    _state = state;
    emit stateChanged(this);
}

qint64 MmsLatteClient::bufferByteLength() const
{
    return _private->_buffer.requestedLength();
}

void MmsLatteClient::setBufferByteLength(qint64 length)
{
    if (!_private->_buffer.setRequestedLength(length))
        return;
    if (QThread::currentThread() == thread())
        stopBuffering();
    else
        QMetaObject::invokeMethod(this, &MmsLatteClient::stopBuffering, Qt::QueuedConnection);
}

void MmsLatteClient::clearBuffer()
{
    _private->_buffer.clear();
    _private->goOnWhenThereIsRoom();
}

qint64 MmsLatteClient::bytesAvailable() const
{
    return _private->_buffer.bytesAvailable();
}

qint64 MmsLatteClient::bytesBuffered() const
{
    return _private->_buffer.size();
}

void MmsLatteClient::seekToTime(QDateTime const&) {}

qint64 MmsLatteClient::read(char* data, qint64 size)
{
    qint64 const count = _private->_buffer.read(data, size);
    _private->goOnWhenThereIsRoom();
    return count;
}

QByteArray MmsLatteClient::descriptor(qint64) const
{
    return _private->_buffer.descriptor();
}

void MmsLatteClient::onMmsConnected()
{
    LOG_DEBUG("onMmsConnected()");
    emit stateChanged(this);
    emit progressChanged(this, "Connected");
}

void MmsLatteClient::onMmsHeader(QByteArray const& header)
{
    LOG_DEBUG("onMmsHeader() size %d", static_cast<int>(header.size()));
    MmsClient const* const transport = _private->_client;
    if (!transport)
        return;
    if (_private->_checking && !_private->_buffer.isPlaying())
        _private->endCheck();
    _private->updateContent(_private->_currentUrl);
    _private->_firstConnect = false;
    _private->_connectTimeout = MmsLatteClientPrivate::firstConnectTimeout;
    if (!_private->_buffer.setHeader(header, transport->streamBitrate(), transport->packetSize())) {
        if (_private->_buffer.isPlaying())
            _private->startBitrateTimer(); // Of the address that has taken over.
        return;
    }
    _private->_normalBitrate = static_cast<int>(std::clamp<qint64>(transport->streamBitrate(), 1, INT_MAX));
    LOG_INFO("New media descriptor length %d", static_cast<int>(header.size()));
    _private->stopBitrateTimer();
}

void MmsLatteClient::onMmsData(QByteArray const& data)
{
    MmsStreamBuffer::Appended const result = _private->_buffer.append(data);
    if (result.isFull) {
        if (_private->hold(true)) {
            LOG_ERROR("MMS buffer full. Stopping...");
            emit progressChanged(this, "Stopped");
        }
        return;
    }
    if (result.isNearlyFull)
        _private->hold(false);
    if (result.percent >= 0)
        emit progressChanged(this, QString("Acquiring...%1%").arg(result.percent));
    if (result.hasStarted) {
        _private->_policy.succeeded();
        _private->startBitrateTimer();
        if (result.isNewStream) {
            emit descriptorChanged(this, result.descriptorSize);
            _private->releaseSoon();
        }
        announcePlaying();
    }
    if (result.isReadable)
        emit readyRead(this);
}

void MmsLatteClient::onMmsDone(MmsClient::MmsClientError error)
{
    LOG_DEBUG("onMmsDone() %d", error);
    std::optional<bool> const isAvailable = _private->isNetworkAvailable();
    if (_private->_buffer.interrupt()) {
        _private->stopBitrateTimer();
        emit progressChanged(this, "Reconnecting...");
    }
    if (error == MmsClient::NoError || state() != Delivering)
        return;
    _private->_buffer.useReconnectThreshold();
    if (_private->_checking || takeOver(error))
        return;
    NetworkErrors::NetworkError const code = networkErrorOf(error);
    if (isAvailable)
        settle(code, *isAvailable);
    else if (!_private->_firstConnect)
        settle(code, true); // What the test brings makes no difference.
    else
        _pendingError = code;
}

/// Whether another attempt has been arranged for.
bool MmsLatteClient::takeOver(MmsClient::MmsClientError error)
{
    switch (error) {
    case MmsClient::EndOfStream:
        return _private->checkNextContent();
    case MmsClient::CouldNotConnected:
    case MmsClient::StreamNotAvailable:
    case MmsClient::ReadTimeout:
        if (!_private->checkNextContent())
            return false;
        LOG_INFO("Connecting to next item in playlist %s", qPrintable(_uri.toString()));
        return true;
    case MmsClient::RemoteServerClosed:
        return retryAfterRemoteClose();
    default:
        return false;
    }
}

bool MmsLatteClient::retryAfterRemoteClose()
{
    int& attempts = _private->_reconnectAttempts;
    if (++attempts >= MmsLatteClientPrivate::reconnectLimit && _private->checkNextContent()) {
        attempts = 0;
        return true;
    }
    LOG_INFO("Trying to reconnect to the server %s", qPrintable(_private->_currentUrl));
    _private->reconnectCurrentContent();
    return true;
}

void MmsLatteClient::settle(NetworkErrors::NetworkError code, bool isNetworkAvailable)
{
    if (isNetworkAvailable && _private->_firstConnect) {
        finish(code);
        return;
    }
    _private->reconnectLater();
    emit error(this, code);
}

void MmsLatteClient::networkTested(bool isAvailable)
{
    if (auto const code = std::exchange(_pendingError, std::nullopt))
        settle(*code, isAvailable);
}

/// No further attempt will be made.
void MmsLatteClient::finish(NetworkErrors::NetworkError code)
{
    _private->cancel();
    _pendingError.reset();
    setState(Finished);
    emit error(this, code);
}
