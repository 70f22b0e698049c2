#include "TimedHttpClient.h"

#include "Logger.h"
#include "LoggerManager.h"
#include "Timer.h"
#include "TimerFactory.h"

#include <QIODevice>

#include <algorithm>
#include <limits>
#include <utility>

Logger* TimedHttpClient::log = LoggerManager::logger();

TimedHttpClient::TimedHttpClient(HttpClient* client, TimerFactory* timerFactory, QObject* parent)
    : HttpClient(parent), _client(client), _timerFactory(timerFactory), _timer(timerFactory->createTimer())
{
    _client->setParent(this);
    _timer->setParent(this);
    _timer->setSingleShot(true);
    connect(_timer, &Timer::timeout, this, &TimedHttpClient::onTimeout);
    connect(_client, &HttpClient::responseHeaderReceived, this, &TimedHttpClient::rethrowResponseHeaderReceived);
    connect(_client, &HttpClient::readyRead, this, &TimedHttpClient::rethrowReadyRead);
    connect(_client, &HttpClient::done, this, &TimedHttpClient::rethrowDone);
    connect(_client, &HttpClient::authenticationRequired, this, &TimedHttpClient::rethrowAuthenticationRequired);
    connect(_client, &HttpClient::proxyAuthenticationRequired, this,
            &TimedHttpClient::rethrowProxyAuthenticationRequired);
    connect(_client, &HttpClient::dataSendProgress, this, &TimedHttpClient::rethrowDataSendProgress);
    connect(_client, &HttpClient::dataReadProgress, this, &TimedHttpClient::rethrowDataReadProgress);
}

TimedHttpClient::~TimedHttpClient()
{
    disposeTimer();
}

HttpClient* TimedHttpClient::retire()
{
    blockSignals(true);
    disposeTimer();
    _client->disconnect(this);
    _client->setParent(nullptr);
    return _client;
}

void TimedHttpClient::disposeTimer()
{
    if (!_timer)
        return;
    _timer->disconnect(this);
    _timer->setParent(nullptr);
    _timerFactory->disposeTimer(std::exchange(_timer, nullptr));
}

int TimedHttpClient::get(QString const& path, int timeoutSeconds, QIODevice* device)
{
    LOG_DEBUG("Downloading %s with timeout %d seconds.", qPrintable(path), timeoutSeconds);
    begin(timeoutSeconds, device);
    return _client->get(path, device);
}

int TimedHttpClient::post(QString const& path, QByteArray const& data, int timeoutSeconds, QIODevice* device)
{
    begin(timeoutSeconds, device);
    return _client->post(path, data, device);
}

int TimedHttpClient::request(HttpRequestHeader const& header, QByteArray const& data, int timeoutSeconds)
{
    begin(timeoutSeconds, nullptr);
    return _client->request(header, data);
}

void TimedHttpClient::begin(int timeoutSeconds, QIODevice* device)
{
    _timedOut = false;
    if (device)
        connect(device, &QIODevice::bytesWritten, this, &TimedHttpClient::onDeviceBytesWritten, Qt::UniqueConnection);
    _timer->stop();
    if (timeoutSeconds > 0)
        _timer->start(std::min(timeoutSeconds, std::numeric_limits<int>::max() / 1000) * 1000);
}

void TimedHttpClient::restartTimer()
{
    if (!_timer->isActive())
        return;
    int const interval = _timer->interval();
    _timer->stop();
    _timer->start(interval);
}

void TimedHttpClient::onDeviceBytesWritten(qint64)
{
    restartTimer();
}

void TimedHttpClient::onTimeout(Timer*)
{
    if (_client->bytesAvailable() > 0) {
        _timer->start(_timer->interval());
        return;
    }
    LOG_ERROR("********** TimedHttpClient timed out!");
    _timedOut = true;
    _client->abort();
}

int TimedHttpClient::setHost(QString const& host, int port)
{
    return _client->setHost(host, port);
}

int TimedHttpClient::setHost(QString const& host, HttpClient::ConnectionMode mode, int port)
{
    return _client->setHost(host, mode, port);
}

int TimedHttpClient::setProxy(QString const& host, int port, QString const& user, QString const& password)
{
    return _client->setProxy(host, port, user, password);
}

int TimedHttpClient::setUser(QString const& user, QString const& password)
{
    return _client->setUser(user, password);
}

int TimedHttpClient::request(HttpRequestHeader const& header, QByteArray const& data)
{
    return request(header, data, 0);
}

int TimedHttpClient::get(QString const& path, QIODevice* device)
{
    return get(path, 0, device);
}

int TimedHttpClient::post(QString const& path, QByteArray const& data, QIODevice* device)
{
    return post(path, data, 0, device);
}

int TimedHttpClient::close()
{
    _timer->stop();
    return _client->close();
}

void TimedHttpClient::abort()
{
    _timer->stop();
    _client->abort();
}

QByteArray TimedHttpClient::readAll()
{
    return _client->readAll();
}

qint64 TimedHttpClient::read(char* data, qint64 maxSize)
{
    return _client->read(data, maxSize);
}

qint64 TimedHttpClient::bytesAvailable() const
{
    return _client->bytesAvailable();
}

HttpClient::State TimedHttpClient::state() const
{
    return _client->state();
}

HttpClient::Error TimedHttpClient::error() const
{
    return _timedOut ? Aborted : _client->error();
}

HttpRequestHeader TimedHttpClient::currentRequest() const
{
    return _client->currentRequest();
}

void TimedHttpClient::rethrowResponseHeaderReceived(HttpClient*, HttpResponseHeader const& header)
{
    restartTimer();
    emit responseHeaderReceived(this, header);
}

void TimedHttpClient::rethrowReadyRead(HttpClient*, HttpResponseHeader const& header)
{
    restartTimer();
    emit readyRead(this, header);
}

void TimedHttpClient::rethrowDone(HttpClient*, bool error)
{
    _timer->stop();
    emit done(this, error);
}

void TimedHttpClient::rethrowAuthenticationRequired(HttpClient*, QString const& host, quint16 port,
                                                    QAuthenticator* authenticator)
{
    emit authenticationRequired(this, host, port, authenticator);
}

void TimedHttpClient::rethrowProxyAuthenticationRequired(HttpClient*, QNetworkProxy const& proxy,
                                                         QAuthenticator* authenticator)
{
    emit proxyAuthenticationRequired(this, proxy, authenticator);
}

void TimedHttpClient::rethrowDataSendProgress(HttpClient*, int done, int total)
{
    restartTimer();
    emit dataSendProgress(this, done, total);
}

void TimedHttpClient::rethrowDataReadProgress(HttpClient*, int done, int total)
{
    restartTimer(); // Not every device tells of its writes, files do not.
    emit dataReadProgress(this, done, total);
}
