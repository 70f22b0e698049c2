#include "DateTimeBuilder.h"
#include "HttpMmsClient.h"
#include "HttpMmsReport.h"
#include "HttpMmsRequest.h"
#include "HttpMmsTexts.h"
#include "HttpRequestHeader.h"
#include "Logger.h"

#include <QDateTime>
#include <QMetaEnum>

// The requests of a HttpMmsClient.

namespace
{

QString pathOf(QUrl const& url)
{
    QString path = url.path(QUrl::FullyEncoded);
    if (url.hasQuery())
        path = (path.isEmpty() ? QString("/") : path) + "?" + url.query(QUrl::FullyEncoded);
    return path.isEmpty() ? QString("/") : path;
}

QString hostOf(QUrl const& url)
{
    QString host = url.host(QUrl::FullyEncoded);
    if (host.contains(':'))
        host = "[" + host + "]";
    return url.port(80) == 80 ? host : QString(host + ":" + QString::number(url.port()));
}

} // namespace

/// What every request begins with.
HttpRequestHeader HttpMmsClient::plainHeader(QUrl const& url, QString const& method) const
{
    HttpRequestHeader header(method, pathOf(url), 1, 1);
    header.addValue("Host", hostOf(url));
    header.addValue("Accept", "*/*");
    header.addValue("User-Agent", HttpMmsTexts::userAgent);
    return header;
}

HttpRequestHeader HttpMmsClient::constructHeader(QUrl const& url, QString const& method) const
{
    HttpRequestHeader header = plainHeader(url, method);
    header.addValue("Supported", HttpMmsTexts::supported);
    header.addValue("Accept-Language", _acceptLanguage);
    header.addValue("Pragma", HttpMmsTexts::pragmaClientInfo + _guid.toString());
    return header;
}

/// How many streams we speak of, who we are, and which of the streams we want.
void HttpMmsClient::addSelection(HttpRequestHeader& header) const
{
    header.addValue("Pragma", HttpMmsTexts::pragmaStreamCount + QString::number(_selection.size()));
    addClientId(header);
    if (_selection.isEmpty())
        return;
    QString entries = HttpMmsTexts::pragmaStreamEntry;
    for (auto entry = _selection.cbegin(); entry != _selection.cend(); ++entry)
        entries += QStringLiteral("ffff:%1:%2 ").arg(entry.key()).arg(entry.value());
    header.addValue("Pragma", entries);
}

/// From where in the stream on.
void HttpMmsClient::addOffsets(HttpRequestHeader& header) const
{
    if (_isBroadcast && _playlistGenId.isEmpty()) {
        header.addValue("Pragma", _isLive ? HttpMmsTexts::pragmaLive : HttpMmsTexts::pragmaMediaInfo);
        return;
    }
    header.addValue("Pragma", QString(HttpMmsTexts::pragmaSeekable).arg(_streamOffsetHigh).arg(_streamOffsetLow));
    if (!_playlistGenId.isEmpty())
        header.addValue("Pragma", HttpMmsTexts::pragmaPlaylistGenId + _playlistGenId);
}

void HttpMmsClient::addClientId(HttpRequestHeader& header) const
{
    if (!_clientId.isEmpty())
        header.addValue("Pragma", HttpMmsTexts::pragmaClientId + _clientId);
}

void HttpMmsClient::addReferrer(HttpRequestHeader& header) const
{
    if (!_referrer.isEmpty())
        header.addValue("Referrer", _referrer);
}

/// Whether an operation may go on; if not, says so in the log.
bool HttpMmsClient::isInState(bool isRight, char const* operation) const
{
    if (!isRight)
        LOG_WARNING("%s(%s),_httpMmsState=%s,_error=%s", operation, qPrintable(_url.toString()),
                    QMetaEnum::fromType<HttpMmsClientState>().valueToKey(_httpMmsState),
                    QMetaEnum::fromType<MmsClientError>().valueToKey(_error));
    return isRight;
}

HttpMmsRequest* HttpMmsClient::send(HttpRequestHeader const& header, bool withStream)
{
    auto* const request = new HttpMmsRequest(_url, &_httpClientFactory, this);
    _requests.append(request);
    if (withStream) {
        connect(request, &HttpMmsRequest::headerReceived, this, &HttpMmsClient::onHeaderReceived);
        connect(request, &HttpMmsRequest::dataReceived, this, &HttpMmsClient::onDataReceived);
        connect(request, &HttpMmsRequest::selectStream, this, &HttpMmsClient::onSelectStream);
    }
    connect(request, qOverload<MmsClient::MmsClientError>(&HttpMmsRequest::done), this, &HttpMmsClient::onDone);
    if (!_header.isEmpty())
        request->setPacketSize(_packetSize);
    request->sendRequest(header, {}, _timeout);
    return request;
}

/// Sends a request that is no step of the session.
void HttpMmsClient::sendAside(HttpRequestHeader const& header, QByteArray const& body)
{
    if (_sideRequests.size() >= maximumSideRequests) {
        LOG_WARNING("\"%s\" leaves too many requests without an answer.", qPrintable(_url.toString()));
        return;
    }
    auto* const request = new HttpMmsRequest(_url, &_httpClientFactory, this);
    _sideRequests.append(request);
    connect(request, qOverload<MmsClient::MmsClientError>(&HttpMmsRequest::done), this, &HttpMmsClient::onDone);
    request->sendRequest(header, body, _timeout);
}

void HttpMmsClient::mmsDescribe()
{
    if (!isInState(_httpMmsState == None || _error == Redirected, "mmsDescribe"))
        return;
    HttpRequestHeader header = constructHeader(_url);
    header.addValue("Pragma", HttpMmsTexts::pragmaMediaInfo);
    addReferrer(header);
    _state = Connecting;
    _httpMmsState = Describing;
    send(header, true);
}

void HttpMmsClient::mmsPlay()
{
    if (!isInState(_httpMmsState != Playing, "mmsPlay"))
        return;
    HttpRequestHeader header = constructHeader(_url);
    addSelection(header);
    addOffsets(header);
    header.addValue("Pragma", HttpMmsTexts::pragmaXPlay);
    addReferrer(header);
    LOG_INFO("mmsPlay(%s)", qPrintable(_url.toString()));
    _state = Streaming;
    _httpMmsState = Playing;
    _streamingRequest = send(header, true);
}

void HttpMmsClient::mmsSelectStream()
{
    if (!isInState(_httpMmsState == Playing, "mmsSelectStream"))
        return;
    HttpRequestHeader header = constructHeader(_url, "POST");
    addSelection(header);
    header.addValue("Pragma", HttpMmsTexts::pragmaLive);
    addReferrer(header);
    header.setContentLength(0);
    _state = Connected;
    _httpMmsState = SelectingStream;
    send(header, false);
}

void HttpMmsClient::mmsStop()
{
    if (!isInState(_httpMmsState == Playing, "mmsStop"))
        return;
    dropRequests(); // Nothing of the stream is wanted any more.
    _lastWords = {stopWords(), reportWords()};
    LOG_INFO("mmsStop(%s)", qPrintable(_url.toString()));
    _httpMmsState = Stopping;
    send(_lastWords.constFirst().header, false);
}

MmsFarewells::Words HttpMmsClient::stopWords() const
{
    HttpRequestHeader header = constructHeader(_url, "POST");
    header.addValue("Pragma", HttpMmsTexts::pragmaStop);
    header.setContentLength(0);
    return {header, {}};
}

void HttpMmsClient::mmsKeepAlive()
{
    HttpRequestHeader header = constructHeader(_url, "POST");
    header.addValue("Pragma", HttpMmsTexts::pragmaKeepAlive);
    header.addValue("Connection", "Keep-Alive");
    header.setContentLength(0);
    sendAside(header, {});
}

void HttpMmsClient::mmsLog()
{
    sendLog();
}

void HttpMmsClient::tryPipeline()
{
    HttpRequestHeader header = plainHeader(_url, "GET");
    header.addValue("Pragma", "no-cache");
    addClientId(header);
    header.addValue("Connection", "keep-alive");
    LOG_INFO("tryPipeline(%s)", qPrintable(_url.toString()));
    sendAside(header, {});
}

void HttpMmsClient::sendLog()
{
    LOG_INFO("sendLog(%s)", qPrintable(_url.toString()));
    MmsFarewells::Words const words = reportWords();
    sendAside(words.header, words.body);
}

MmsFarewells::Words HttpMmsClient::reportWords() const
{
    HttpRequestHeader header = plainHeader(_url, "POST");
    addClientId(header);
    header.addValue("Pragma", HttpMmsTexts::pragmaClientInfo + _guid.toString());
    header.addValue("Content-Type", HttpMmsReport::contentType);
    HttpMmsReport const report{_url.toString(), _referrer, _guid.toString(), _dateTimeBuilder->currentDateTime()};
    QByteArray const body = report.body();
    header.setContentLength(body.size());
    return {header, body};
}
