#include "MmsLatteClient.h"

#include "Logger.h"
#include "LoggerManager.h"
#include "MmsLatteClientPrivate.h"

#include <QThread>

Logger* MmsLatteClient::log = LoggerManager::logger();

MmsLatteClient::MmsLatteClient(QString const& name, Uri const& uri, TimerFactory* timerFactory,
                               TcpSocketFactory* tcpSocketFactory, HttpClientFactory* httpClientFactory,
                               DateTimeBuilder* dateTimeBuilder, MemoQueue*, QObject* parent)
    : LatteClient(parent), _uri(uri),
      _private(
          new MmsLatteClientPrivate(name, {timerFactory, tcpSocketFactory, httpClientFactory, dateTimeBuilder}, this))
{
    LOG_DEBUG("Contsructing....");
    connect(_private, &MmsLatteClientPrivate::hasRoomAgain, this, &MmsLatteClient::announcePlaying);
    connect(_private, &MmsLatteClientPrivate::ranDry, this, [this] { emit progressChanged(this, "Acquiring...0%"); });
    connect(_private, &MmsLatteClientPrivate::released, this, [this] { emit readyRead(this); });
    connect(_private, &MmsLatteClientPrivate::failed, this, [this](auto code) { emit error(this, code); });
    connect(_private, &MmsLatteClientPrivate::finished, this, [this](auto code) {
        emit stateChanged(this);
        emit error(this, code);
    });
    LOG_DEBUG("Constructed");
}

MmsLatteClient::~MmsLatteClient()
{
    _private->cancel();
}

void MmsLatteClient::setFarewells(MmsFarewells* farewells)
{
    _private->setFarewells(farewells);
}

void MmsLatteClient::startBuffering()
{
    if (state() == Delivering)
        return;
    _private->prepare();
    _private->checkContent(_uri.toString(), "", "");
    LOG_DEBUG("beginBuffering()");
    emit stateChanged(this);
    emit progressChanged(this, "Connecting...");
}

void MmsLatteClient::stopBuffering()
{
    LOG_DEBUG("stopBuffering()");
    LatteClientState const before = state();
    _private->cancel();
    if (state() != before)
        emit stateChanged(this);
    emit progressChanged(this, "Stopped");
}

LatteClient::LatteClientState MmsLatteClient::state() const
{
    return _private->latteState();
}

qint64 MmsLatteClient::bufferByteLength() const
{
    return _private->buffer().requestedLength();
}

void MmsLatteClient::setBufferByteLength(qint64 length)
{
    if (!_private->buffer().setRequestedLength(length))
        return;
    if (QThread::currentThread() == thread())
        stopBuffering();
    else
        QMetaObject::invokeMethod(this, &MmsLatteClient::stopBuffering, Qt::QueuedConnection);
}

void MmsLatteClient::clearBuffer()
{
    _private->buffer().clear();
    _private->goOnWhenThereIsRoom();
}

qint64 MmsLatteClient::bytesAvailable() const
{
    return _private->buffer().bytesAvailable();
}

qint64 MmsLatteClient::bytesBuffered() const
{
    return _private->buffer().size();
}

void MmsLatteClient::seekToTime(QDateTime const&) {}

qint64 MmsLatteClient::read(char* data, qint64 size)
{
    qint64 const count = _private->buffer().read(data, size);
    _private->goOnWhenThereIsRoom();
    return count;
}

QByteArray MmsLatteClient::descriptor(qint64) const
{
    return _private->buffer().descriptor();
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
    _private->takeHeader(header);
}

void MmsLatteClient::onMmsData(QByteArray const& data)
{
    MmsStreamBuffer::Appended const result = _private->buffer().append(data);
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
        _private->hasStarted(result.isNewStream);
        if (result.isNewStream)
            emit descriptorChanged(this, result.descriptorSize);
        announcePlaying();
    } else if (result.isReadable && _private->flowsAgain()) {
        announcePlaying();
    }
    if (result.isReadable)
        emit readyRead(this);
}

void MmsLatteClient::onMmsDone(MmsClient::MmsClientError error)
{
    LOG_DEBUG("onMmsDone() %d", error);
    std::optional<bool> const isNetworkAvailable = _private->isNetworkAvailable();
    if (_private->buffer().interrupt()) {
        _private->stopBitrateTimer();
        emit progressChanged(this, "Reconnecting...");
    }
    if (error != MmsClient::NoError && state() == Delivering)
        _private->mend(error, isNetworkAvailable);
}
