#include "HttpMmsRequest.h"

#include "FFwrapper.h"
#include "HttpClientFactory.h"
#include "Logger.h"
#include "LoggerManager.h"
#include "MmsChunkProcessor.h"
#include "MmsPragmas.h"
#include "TimedHttpClient.h"

#include <QHash>
#include <QThread>

#include <algorithm>
#include <utility>

Logger* HttpMmsRequest::log = LoggerManager::logger();

namespace
{

/// E chunks of this reason end an entry of a playlist; all others end the stream.
constexpr int endOfEntry = 1;

} // namespace

HttpMmsRequest::HttpMmsRequest(QUrl const& url, HttpClientFactory* httpClientFactory, QObject* parent)
    : QObject(parent), _url(url), _httpClientFactory(httpClientFactory),
      _processor(std::make_unique<MmsChunkProcessor>())
{
    connectProcessor();
}

HttpMmsRequest::~HttpMmsRequest()
{
    releaseClient();
}

void HttpMmsRequest::connectProcessor()
{
    MmsChunkProcessor* const processor = _processor.get();
    connect(processor, &ChunkProcessor::onHeader, this, &HttpMmsRequest::onHeaderChunk);
    connect(processor, &ChunkProcessor::onData, this, &HttpMmsRequest::onDataChunk);
    connect(processor, &ChunkProcessor::onEndOfData, this, &HttpMmsRequest::onEndOfDataChunk);
    connect(processor, &MmsChunkProcessor::onTestChunk, this, &HttpMmsRequest::onTestChunk);
    connect(processor, &MmsChunkProcessor::onMetadataChunk, this, &HttpMmsRequest::onMetadataChunk);
    connect(processor, &MmsChunkProcessor::onResetChunk, this, &HttpMmsRequest::onResetChunk);
}

void HttpMmsRequest::setPacketSize(int size)
{
    _processor->setPacketSize(std::clamp(size, 0, maximumPacketSize));
    _processor->setPadding(true);
}

void HttpMmsRequest::sendRequest(HttpRequestHeader const& header, QByteArray const& body, int timeout)
{
    if (_client)
        return;
    _requestHeader = header;
    _requestTimeout = timeout;
    _client = _httpClientFactory->createHttpClient(nullptr);
    connect(_client, &HttpClient::responseHeaderReceived, this, &HttpMmsRequest::responseHeaderReceived);
    connect(_client, &HttpClient::readyRead, this, &HttpMmsRequest::readyRead);
    connect(_client, &HttpClient::done, this, qOverload<HttpClient*, bool>(&HttpMmsRequest::done));
    LOG_DEBUG("%s%s", qPrintable(header.toString()), body.constData());
    if (_url.scheme() == "https")
        _client->setHost(_url.host(), HttpClient::ConnectionModeHttps, _url.port(0));
    else
        _client->setHost(_url.host(), _url.port(80));
    if (auto* const timedClient = qobject_cast<TimedHttpClient*>(_client))
        timedClient->request(header, body, std::max(1, timeout / 1000 + (timeout % 1000 > 0 ? 1 : 0)));
    else
        _client->request(header, body);
}

void HttpMmsRequest::abortRequest()
{
    _isAborted = true;
    abortClient();
}

void HttpMmsRequest::abortClient()
{
    if (_client)
        _client->abort();
}

void HttpMmsRequest::abandon()
{
    blockSignals(true);
    _processor->blockSignals(true);
    releaseClient();
    setParent(nullptr);
    deleteLater();
}

void HttpMmsRequest::releaseClient()
{
    HttpClient* const client = std::exchange(_client, nullptr);
    if (!client)
        return;
    client->disconnect(this);
    client->abort();
    client->close();
    _httpClientFactory->disposeHttpClient(client);
}

void HttpMmsRequest::responseHeaderReceived(HttpClient*, HttpResponseHeader const& header)
{
    _responseHeader = header;
    LOG_DEBUG("%s", qPrintable(header.toString()));
    if (header.statusCode() / 100 != 2 || !header.hasKey("Pragma"))
        return;
    MmsPragmas const pragmas = MmsPragmas::of(header);
    _isBroadcast = pragmas.isBroadcast;
    _isPlaylist = pragmas.isPlaylist;
    _isResetStreamReceived = pragmas.hasResetStream;
    _isLiveStream = pragmas.isLive;
    if (!pragmas.clientId.isEmpty())
        _clientId = pragmas.clientId;
    if (pragmas.timeout > 0)
        _requestTimeout = pragmas.timeout;
}

void HttpMmsRequest::setReading(bool reading)
{
    if (std::exchange(_isReading, reading) == reading || !reading)
        return;
    // Not from within: the reader asks for it.
    QMetaObject::invokeMethod(this, &HttpMmsRequest::take, Qt::QueuedConnection);
}

void HttpMmsRequest::readyRead(HttpClient*, HttpResponseHeader const&)
{
    take();
}

/// Handles what has come, unless nothing is to be read now.
void HttpMmsRequest::take()
{
    QByteArray slice(sliceBytes, Qt::Uninitialized);
    while (_client && _isReading && !QThread::currentThread()->isInterruptionRequested()) {
        qint64 const size = _client->read(slice.data(), slice.size());
        if (size <= 0) {
            if (_isOver)
                conclude();
            return;
        }
        process(QByteArray(slice.constData(), size));
    }
}

void HttpMmsRequest::process(QByteArray const& bytes)
{
    if (_responseHeader.statusCode() / 100 != 2)
        return; // The page of an error holds no chunks.
    _uselessBytes += bytes.size();
    _processor->processData(bytes);
    if (_uselessBytes - _processor->incompleteHeaderBytes() <= maximumUselessBytes)
        return;
    LOG_ERROR("%lld bytes of \"%s\" made no packet.", static_cast<long long>(_uselessBytes),
              qPrintable(_url.toString()));
    abortClient();
}

void HttpMmsRequest::onHeaderChunk(QByteArray const& header)
{
    _uselessBytes = 0;
    FormatContextPointer const context(
        FFwrapper::contextFromHeader(header.constData(), static_cast<int>(header.size())));
    if (!context) {
        LOG_ERROR("ContextFromHeader failed!");
        abortClient();
        return;
    }
    setPacketSize(FFwrapper::getAsfPacketSize(context.get()));
    _streamBitrate = std::max(FFwrapper::getMaxBitrate(context.get()), 1);
    _asfHeader = header;
    emit headerReceived(header);
}

void HttpMmsRequest::onDataChunk(QByteArray const& packet)
{
    _uselessBytes = 0;
    emit dataReceived(packet);
}

void HttpMmsRequest::onEndOfDataChunk(int reason)
{
    LOG_INFO("onEndOfData() reason %d", reason);
    _endOfStreamReason = reason;
    if (reason != endOfEntry) {
        _isFatalEnd = true;
        abortClient();
    } else if (!_previousPlaylistGenId.isEmpty() &&
               _previousPlaylistGenId.toULongLong() != _playlistGenId.toULongLong()) {
        emit selectStream();
    }
}

void HttpMmsRequest::onTestChunk(int) {}

void HttpMmsRequest::onMetadataChunk(QString const& text)
{
    QHash<QString, QString> values;
    for (QString const& piece : text.split(','))
        values.insert(piece.section('=', 0, 0).trimmed(), piece.section('=', 1).trimmed().left(maximumIdLength));
    _previousPlaylistGenId = _playlistGenId;
    _playlistGenId = values.value("playlist-gen-id");
    _broadcastId = values.value("broadcast-id");
    LOG_INFO("onMetadataChunk() playlist-gen-id=%s;broadcast-id=%s", qPrintable(_playlistGenId),
             qPrintable(_broadcastId));
}

void HttpMmsRequest::onResetChunk(int)
{
    LOG_INFO("onResetChunk()");
}

void HttpMmsRequest::done(HttpClient* client, bool)
{
    auto const* const timedClient = qobject_cast<TimedHttpClient const*>(client);
    _isTimedOut = timedClient && timedClient->timedOut();
    _isOver = true;
    if (_isAborted || _isFatalEnd)
        conclude();
    else
        take();
}

/// All that came has been handled.
void HttpMmsRequest::conclude()
{
    HttpClient::Error const code = _client->error();
    // A stream that breaks off was there, whatever number its end has.
    bool const isBrokenOff = _responseHeader.statusCode() / 100 == 2 && _responseHeader.statusCode() != 204 &&
                             (code == HttpClient::UnexpectedClose || code == HttpClient::WrongContentLength);
    MmsClient::MmsClientError result = MmsClient::EndOfStream;
    if (!_isFatalEnd && isBrokenOff)
        result = MmsClient::RemoteServerClosed;
    else if (!_isFatalEnd)
        result = code != HttpClient::NoError ? errorOf(code) : errorOfStatus();
    releaseClient();
    emit done(result);
}

MmsClient::MmsClientError HttpMmsRequest::errorOf(HttpClient::Error error)
{
    switch (error) {
    case HttpClient::HostNotFound:
        return MmsClient::CouldNotResolveServer;
    case HttpClient::ConnectionRefused:
        return MmsClient::CouldNotConnected;
    case HttpClient::Aborted:
        return _isAborted ? MmsClient::NoError : MmsClient::CouldNotConnected;
    case HttpClient::AuthenticationRequiredError:
        return MmsClient::AuthenticationRequiredError;
    case HttpClient::ProxyAuthenticationRequiredError:
        return MmsClient::ProxyAuthenticationRequiredError;
    default:
        return MmsClient::UnknownError;
    }
}

MmsClient::MmsClientError HttpMmsRequest::errorOfStatus()
{
    int const status = _responseHeader.statusCode();
    switch (status / 100) {
    case 2:
        return status == 204 ? MmsClient::NoContent : MmsClient::NoError;
    case 3:
        return status == 302 && _responseHeader.hasKey("Location") ? errorOfRedirection() : MmsClient::NoError;
    case 4:
    case 5: {
        bool const isBandwidth =
            status == 453 && _responseHeader.reasonPhrase().compare("Not Enough Bandwidth", Qt::CaseInsensitive) == 0;
        return isBandwidth ? MmsClient::BandwidthNotAvailable : MmsClient::StreamNotAvailable;
    }
    default:
        return MmsClient::NoError;
    }
}

MmsClient::MmsClientError HttpMmsRequest::errorOfRedirection()
{
    QString const location = _responseHeader.value("Location").trimmed();
    QUrl url(location);
    if (!url.isValid() || url.host().isEmpty()) {
        url = _url.resolved(url.isValid() ? url : QUrl());
        url.setHost(_url.host());
        url.setPort(_url.port());
    }
    if (location.endsWith('?'))
        url.setQuery(_url.query(QUrl::FullyEncoded));
    _redirectLocation = url.toString(QUrl::FullyEncoded);
    return MmsClient::Redirected;
}
