#include "HttpMmsClient.h"

#include "HttpMmsMemos.h"
#include "HttpMmsRequest.h"
#include "Logger.h"
#include "LoggerManager.h"
#include "MemoQueue.h"
#include "Timer.h"
#include "TimerFactory.h"

#include <QEventLoop>
#include <QLocale>
#include <QMetaEnum>
#include <QPointer>

#include <algorithm>
#include <utility>

Logger* HttpMmsClient::log = LoggerManager::logger();

namespace
{

QString acceptLanguage()
{
    QLocale const locale = QLocale::system();
    QString const language = locale.language() == QLocale::C
                                 ? QString(qEnvironmentVariable("LANG").left(2) + "-" +
                                           QLocale::territoryToString(locale.territory()).left(2))
                                 : locale.name().replace('_', '-');
    return language + "; q=0.1";
}

} // namespace

HttpMmsClient::HttpMmsClient(QString const& guid, HttpClientFactory* httpClientFactory, TimerFactory* timerFactory,
                             DateTimeBuilder* dateTimeBuilder, MemoQueue* memoQueue, QObject* parent)
    : AbstractMmsClient(guid, dateTimeBuilder, memoQueue, parent), _acceptLanguage(acceptLanguage()),
      _httpClientFactory(httpClientFactory, timerFactory), _timerFactory(timerFactory)
{
    _packetSize = 1300;
    _memoQueue->acquire(this);
}

HttpMmsClient::~HttpMmsClient()
{
    _memoQueue->release(this);
    if (_farewells && !_lastWords.isEmpty())
        _farewells->say(_url, _lastWords);
    dropRequests();
    for (HttpMmsRequest* const request : std::exchange(_sideRequests, {}))
        request->abandon();
}

void HttpMmsClient::setGUID(QString const& guid)
{
    _guid = QUuid(guid);
}

bool HttpMmsClient::getHeader(QUrl const& url, int timeout, QByteArray& header)
{
    constexpr int slice = 1000; // ms
    QPointer<HttpMmsClient> const alive(this);
    QEventLoop loop;
    bool hasEnded = false;
    connect(this, &MmsClient::connected, &loop, &QEventLoop::quit);
    connect(this, &MmsClient::done, &loop, [&] {
        hasEnded = true;
        loop.quit();
    });
    Timer* const timer = _timerFactory->createTimer();
    timer->setSingleShot(true);
    connect(timer, &Timer::timeout, &loop, &QEventLoop::quit);
    TimerFactory* const timerFactory = _timerFactory;

    connectToServer(url, QString(), timeout);
    _isHeaderWanted = true;
    _state = ReadingHeader;
    for (int left = timeout; left > 0 && alive && !hasEnded && _state != Connected; left -= slice) {
        timer->start(std::min(left, slice));
        loop.exec();
    }
    timerFactory->disposeTimer(timer);
    if (!alive)
        return false;
    _isHeaderWanted = false;
    bool const hasHeader = _state == Connected && !_header.isEmpty();
    if (hasHeader)
        header += _header;
    disconnectFromServer();
    return hasHeader;
}

void HttpMmsClient::connectToServer(QUrl const& url, QString const& referrer, int timeout)
{
    _referrer = referrer;
    _timeout = timeout;
    _detours = 0;
    begin(url, 0);
}

/// Begins a session in place of the one there is, if any.
void HttpMmsClient::begin(QUrl const& url, unsigned int delay)
{
    _memoQueue->clear(this);
    dropRequests();
    if (url != _url) {
        _receivedHeader.clear(); // Another stream; the same one goes on with the header that is known.
        _header.clear();
    }
    _url = url;
    _lastWords.clear();
    _hasDelivered = false;
    reset();
    _memoQueue->handleSoon(delay, new HttpMmsDescribeMemo(this));
}

/// Begins anew where the server wants it, within the limit.
void HttpMmsClient::detour(QUrl const& url, unsigned int delay)
{
    if (++_detours > maximumDetours || url.host().isEmpty() ||
        !(url.scheme().startsWith("http") || url.scheme().startsWith("mms"))) {
        LOG_WARNING("\"%s\" leads nowhere.", qPrintable(url.toString()));
        endSession(StreamNotAvailable);
        return;
    }
    begin(url, delay);
}

void HttpMmsClient::reset()
{
    _playlistGenId.clear();
    _clientId.clear();
    _isBroadcast = false;
    _isLive = false;
    _error = NoError;
    _state = Unconnected;
    _httpMmsState = None;
}

void HttpMmsClient::disconnectFromServer()
{
    _memoQueue->clear(this);
    if (_httpMmsState == Stopping)
        return;
    mmsStop();
    if (_httpMmsState == Stopping)
        return;
    dropRequests();
    _clientId.clear();
    _httpMmsState = None;
    _state = Unconnected;
}

/// Ends the session's requests without a word.
void HttpMmsClient::dropRequests()
{
    _streamingRequest = nullptr;
    for (HttpMmsRequest* const request : std::exchange(_requests, {}))
        request->abandon();
}

void HttpMmsClient::setReading(bool reading)
{
    if (_streamingRequest)
        _streamingRequest->setReading(reading);
}

void HttpMmsClient::selectStream()
{
    _memoQueue->handleNow(new HttpMmsSelectStreamMemo(this));
}

void HttpMmsClient::startStreaming()
{
    _memoQueue->handleNow(new HttpMmsPlayMemo(this));
}

void HttpMmsClient::onHeaderReceived(QByteArray const& header)
{
    LOG_INFO("onHeaderReceived() size=%d", static_cast<int>(header.size()));
    if (header == _receivedHeader || header == _header)
        return;
    QByteArray rewritten = header;
    if (!openHeader(rewritten)) {
        LOG_WARNING("ContextFromHeader failed!");
        return;
    }
    _packetSize = std::clamp(_packetSize, 0, HttpMmsRequest::maximumPacketSize);
    _receivedHeader = header;
    _header = rewritten.isEmpty() ? header : rewritten;
    if (rewritten.isEmpty())
        LOG_WARNING("The header cannot be rewritten. All streams are taken as they are.");
    emit onHeader(_header);
}

void HttpMmsClient::onDataReceived(QByteArray const& packet)
{
    if (auto* const request = qobject_cast<HttpMmsRequest*>(sender()))
        _streamingRequest = request;
    _totalBytes += packet.size();
    if (!std::exchange(_hasDelivered, true))
        _memoQueue->handleSoon(ReconnectionPolicy::lastingPlay, new HttpMmsLastingMemo(this));
    emit onData(packet);
}

void HttpMmsClient::onSelectStream()
{
    LOG_INFO("onSelectStream()");
    if (auto const* const request = qobject_cast<HttpMmsRequest*>(sender()))
        _clientId = request->clientId();
    sendLog();
    selectStream();
}

void HttpMmsClient::onDone(MmsClient::MmsClientError error)
{
    LOG_INFO("onDone(). Error %s", QMetaEnum::fromType<MmsClientError>().valueToKey(error));
    auto* const request = qobject_cast<HttpMmsRequest*>(sender());
    bool const isAside = _sideRequests.removeOne(request);
    if (isAside && _lastWords.size() == 1)
        _lastWords.clear(); // It was the report.
    bool const wasStreaming = request && request == _streamingRequest;
    if (wasStreaming)
        _streamingRequest = nullptr;
    _requests.removeOne(request);
    if (request)
        request->abandon(); // It outlives this object, should that be deleted further on, and still can be asked.
    // While streams are being selected the end of the old stream is no answer to that; the answer is still to come.
    if (!isAside && !(wasStreaming && error == NoError && _httpMmsState == SelectingStream))
        onSessionDone(error, request);
}

void HttpMmsClient::onSessionDone(MmsClientError error, HttpMmsRequest* request)
{
    switch (error) {
    case NoError:
        onNoError(request);
        break;
    case BandwidthNotAvailable:
        if (_httpMmsState == Describing) {
            _selection.clear();
            startStreaming();
        } else {
            endSession(error);
        }
        break;
    case NoContent:
        detour(_url, noContentDelay);
        break;
    case Redirected:
        detour(request ? QUrl(request->redirectLocation()) : _url, 0);
        break;
    default:
        endSession(error);
    }
}

void HttpMmsClient::onNoError(HttpMmsRequest* request)
{
    switch (_httpMmsState) {
    case None:
        detour(_url, 0);
        break;
    case Describing:
        onDescribed(request);
        break;
    case Playing:
        endSession(RemoteServerClosed);
        break;
    case SelectingStream:
        onStreamSelected(request);
        break;
    case Stopping:
        _lastWords.removeFirst();
        sendLog();
        endSession(NoError);
        break;
    }
}

void HttpMmsClient::onDescribed(HttpMmsRequest const* request)
{
    if (request) {
        _clientId = request->clientId();
        _timeout = request->requestTimeout();
    }
    _state = Connected;
    if (!_isHeaderWanted)
        startStreaming();
    emit connected();
}

void HttpMmsClient::onStreamSelected(HttpMmsRequest const* request)
{
    if (!request || !request->isResetStreamReceived()) {
        _state = Streaming;
        _httpMmsState = Playing;
        if (!_streamingRequest)
            endSession(RemoteServerClosed); // It ended while the streams were selected.
        return;
    }
    _clientId.clear();
    _httpMmsState = None;
    _timeout = request->requestTimeout();
    if (_streamingRequest)
        _streamingRequest->abortRequest(); // Its done() begins the session anew.
    else
        detour(_url, 0);
}

/// Leaves nothing behind, and tells so.
void HttpMmsClient::endSession(MmsClientError error)
{
    _memoQueue->clear(this);
    dropRequests();
    _clientId.clear();
    _httpMmsState = None;
    _error = error;
    _state = Unconnected;
    emit done(error);
}
