#include "CurlTransfer.h"

#include "CurlDriver.h"
#include "Logger.h"
#include "LoggerManager.h"

#include <algorithm>
#include <limits>
#include <utility>

Logger* CurlTransfer::log = LoggerManager::logger();

namespace
{

int clamped(qint64 bytes)
{
    return static_cast<int>(std::min<qint64>(bytes, std::numeric_limits<int>::max()));
}

bool isDigest(QString const& challenge)
{
    return challenge.startsWith("Digest", Qt::CaseInsensitive);
}

/// The text between the quotes after "realm=".
QString realmOf(QString const& challenge)
{
    qsizetype const start = challenge.indexOf("realm=\"", 0, Qt::CaseInsensitive);
    return start < 0 ? QString() : challenge.mid(start + 7).section('"', 0, 0);
}

} // namespace

CurlTransfer::CurlTransfer(HttpServer const& server, HttpRequestHeader const& header, QByteArray const& body,
                           QIODevice* device)
    : _server(server), _header(header), _requestBody(body), _hasDevice(device), _device(device), _handle(this),
      _driver(CurlDriver::ofThisThread())
{
    _handle.set(CURLOPT_HEADERFUNCTION, &CurlTransfer::onHeaderLine);
    _handle.set(CURLOPT_HEADERDATA, this);
    _handle.set(CURLOPT_WRITEFUNCTION, &CurlTransfer::onBody);
    _handle.set(CURLOPT_WRITEDATA, this);
    _handle.set(CURLOPT_XFERINFOFUNCTION, &CurlTransfer::onProgress);
    _handle.set(CURLOPT_XFERINFODATA, this);
    _handle.set(CURLOPT_NOPROGRESS, 0L);
    _handle.set(CURLOPT_SOCKOPTFUNCTION, &CurlTransfer::onConnecting);
    _handle.set(CURLOPT_SOCKOPTDATA, this);
    _handle.set(CURLOPT_PREREQFUNCTION, &CurlTransfer::onConnected);
    _handle.set(CURLOPT_PREREQDATA, this);
}

CurlTransfer::~CurlTransfer()
{
    _driver->remove(this);
}

bool CurlTransfer::start(bool onFreshConnection)
{
    _handle.set(CURLOPT_FRESH_CONNECT, onFreshConnection ? 1L : 0L);
    _state = HttpClient::HostLookup;
    if (_handle.prepare(_server, _header, _requestBody) && _driver->add(this))
        return true;
    _state = HttpClient::Unconnected;
    return false;
}

qint64 CurlTransfer::read(char* data, qint64 maxSize)
{
    qint64 const size = std::min(maxSize, bytesAvailable());
    if (size <= 0)
        return 0;
    std::copy_n(_body.cbegin(), size, data);
    _body.remove(0, size);
    resumeIfRead();
    return size;
}

QByteArray CurlTransfer::readAll()
{
    if (_hasDevice)
        return {};
    QByteArray bytes = std::exchange(_body, {});
    resumeIfRead();
    return bytes;
}

void CurlTransfer::resumeIfRead()
{
    if (_isPaused && _body.size() < maximumUnreadBytes / 2) {
        _isPaused = false;
        _driver->resume(this);
    }
}

size_t CurlTransfer::onHeaderLine(char* data, size_t size, size_t count, void* transfer)
{
    CurlTransfer* const self = static_cast<CurlTransfer*>(transfer);
    size_t const bytes = size * count;
    self->_headerRefused = !self->takeHeaderLine(QByteArray(data, static_cast<qsizetype>(bytes)));
    return self->_headerRefused ? 0 : bytes;
}

bool CurlTransfer::takeHeaderLine(QByteArray const& line)
{
    _state = HttpClient::Reading;
    _headerBytes += line.size();
    if (line.size() > maximumHeaderLineBytes || _headerBytes > maximumHeaderBytes ||
        ++_headerLines > maximumHeaderLines)
        return false;
    if (_response.isValid())
        return true; // What follows the body is no header.
    if (_headerBlock.isEmpty() && !line.startsWith("HTTP/") && !line.toUpper().startsWith("ICY "))
        return true;
    _headerBlock += line;
    return (line != "\r\n" && line != "\n") || takeHeader();
}

bool CurlTransfer::takeHeader()
{
    HttpResponseHeader const header(QString::fromLatin1(std::exchange(_headerBlock, {})));
    if (!header.isValid())
        return false;
    if (header.statusCode() < 200)
        return true;
    _challenge = HttpResponseHeader();

    long status = 0;
    long tunnelStatus = 0;
    curl_easy_getinfo(handle(), CURLINFO_RESPONSE_CODE, &status);
    curl_easy_getinfo(handle(), CURLINFO_HTTP_CONNECTCODE, &tunnelStatus);
    bool const isTunnel = tunnelStatus != 0 && status == 0;
    if ((header.statusCode() == 401 && header.hasKey("WWW-Authenticate")) ||
        (header.statusCode() == 407 && header.hasKey("Proxy-Authenticate"))) {
        _challenge = header;
    } else if (!isTunnel) {
        _response = header;
        _undelivered.header = true;
        _driver->markPending(this);
    }
    return true;
}

size_t CurlTransfer::onBody(char* data, size_t size, size_t count, void* transfer)
{
    CurlTransfer* const self = static_cast<CurlTransfer*>(transfer);
    size_t const bytes = size * count;
    if (self->_challenge.isValid())
        return bytes;
    if (self->_body.size() >= maximumUnreadBytes) {
        self->_isPaused = true;
        return CURL_WRITEFUNC_PAUSE;
    }
    self->_body.append(data, static_cast<qsizetype>(bytes));
    self->_received += static_cast<qint64>(bytes);
    self->_undelivered.body = true;
    self->_driver->markPending(self);
    return bytes;
}

int CurlTransfer::onProgress(void* transfer, curl_off_t, curl_off_t, curl_off_t, curl_off_t sent)
{
    CurlTransfer* const self = static_cast<CurlTransfer*>(transfer);
    if (sent > self->_sent) {
        self->_sent = sent;
        self->_undelivered.sent = true;
        self->_driver->markPending(self);
    }
    return 0;
}

int CurlTransfer::onConnecting(void* transfer, curl_socket_t, curlsocktype)
{
    static_cast<CurlTransfer*>(transfer)->_state = HttpClient::Connecting;
    return CURL_SOCKOPT_OK;
}

int CurlTransfer::onConnected(void* transfer, char*, char*, int, int)
{
    static_cast<CurlTransfer*>(transfer)->_state = HttpClient::Sending;
    return CURL_PREREQFUNC_OK;
}

void CurlTransfer::complete(CURLcode code)
{
    _code = code;
    _isCompleted = true;
    curl_socket_t socket = CURL_SOCKET_BAD;
    curl_easy_getinfo(handle(), CURLINFO_ACTIVESOCKET, &socket);
    _state = socket == CURL_SOCKET_BAD ? HttpClient::Unconnected : HttpClient::Connected;
}

void CurlTransfer::deliver()
{
    QPointer<CurlTransfer> const alive(this);
    if (std::exchange(_undelivered.sent, false)) {
        emit dataSendProgress(clamped(_sent), clamped(_requestBody.size()));
        if (!alive)
            return;
    }
    if (std::exchange(_undelivered.header, false)) {
        emit responseHeaderReceived(_response);
        if (!alive)
            return;
    }
    if (std::exchange(_undelivered.body, false)) {
        bool const isWritten = !_hasDevice || writeToDevice();
        if (!alive)
            return;
        if (!isWritten) {
            _driver->remove(this);
            complete(CURLE_WRITE_ERROR);
            _error = HttpClient::UnknownError;
            emit finished(true);
            return;
        }
        emit dataReadProgress(clamped(_received), clamped(_response.contentLength()));
        if (alive && !_hasDevice)
            emit readyRead(_response);
    }
    if (alive && std::exchange(_isCompleted, false))
        conclude();
}

bool CurlTransfer::writeToDevice()
{
    QPointer<CurlTransfer> const alive(this);
    QByteArray const bytes = std::exchange(_body, {});
    if (!_device || _device->write(bytes) != bytes.size()) {
        if (alive)
            LOG_ERROR("writeToDevice(): %s", _device ? qPrintable(_device->errorString()) : "the device is gone");
        return false;
    }
    if (alive)
        resumeIfRead();
    return true;
}

void CurlTransfer::conclude()
{
    if (_challenge.isValid()) {
        QPointer<CurlTransfer> const alive(this);
        bool const isAnswered = answerChallenge();
        if (!alive || isAnswered)
            return;
        _error = _challenge.statusCode() == 401 ? HttpClient::AuthenticationRequiredError
                                                : HttpClient::ProxyAuthenticationRequiredError;
    } else {
        _error = errorOf(_code);
    }
    if (_error != HttpClient::NoError)
        LOG_INFO("conclude(): %s failed: %s", qPrintable(_server.authority()),
                 *_handle.errorText() ? _handle.errorText() : curl_easy_strerror(_code));
    emit finished(_error != HttpClient::NoError);
}

/// Asks for credentials, once each for server and proxy, and begins anew with them. False when there are none.
bool CurlTransfer::answerChallenge()
{
    bool const isProxy = _challenge.statusCode() == 407;
    if (std::exchange(isProxy ? _proxyWasAnswered : _serverWasAnswered, true))
        return false;
    QNetworkProxy proxy = _server.effectiveProxy();
    if (isProxy && proxy.hostName().isEmpty())
        return false;

    QString const challenge = _challenge.value(isProxy ? "Proxy-Authenticate" : "WWW-Authenticate");
    QAuthenticator authenticator;
    authenticator.setRealm(realmOf(challenge));
    QPointer<CurlTransfer> const alive(this);
    if (isProxy)
        emit proxyAuthenticationRequired(proxy, &authenticator);
    else
        emit authenticationRequired(_server.host, static_cast<quint16>(_server.effectivePort()), &authenticator);
    if (!alive || authenticator.user().isEmpty())
        return false;

    unsigned long const method = isDigest(challenge) ? CURLAUTH_DIGEST : CURLAUTH_BASIC;
    if (isProxy) {
        proxy.setUser(authenticator.user());
        proxy.setPassword(authenticator.password());
        _server.proxy = proxy;
        _handle.setProxy(_server, method);
    } else {
        _server.user = authenticator.user();
        _server.password = authenticator.password();
        _handle.setUser(_server, method);
    }
    resetResponse();
    return _driver->add(this);
}

void CurlTransfer::resetResponse()
{
    _state = HttpClient::HostLookup;
    _headerBlock.clear();
    _headerBytes = 0;
    _headerLines = 0;
    _challenge = HttpResponseHeader();
    _sent = 0;
}

HttpClient::Error CurlTransfer::errorOf(CURLcode code) const
{
    if (_headerRefused)
        return HttpClient::InvalidResponseHeader;
    switch (code) {
    case CURLE_OK:
        return _response.isValid() ? HttpClient::NoError : HttpClient::UnexpectedClose;
    case CURLE_URL_MALFORMAT:
    case CURLE_COULDNT_RESOLVE_HOST:
    case CURLE_COULDNT_RESOLVE_PROXY:
        return HttpClient::HostNotFound;
    case CURLE_COULDNT_CONNECT:
    case CURLE_OPERATION_TIMEDOUT: // Only connecting has a time limit here.
        return HttpClient::ConnectionRefused;
    case CURLE_GOT_NOTHING:
    case CURLE_SEND_ERROR:
    case CURLE_RECV_ERROR:
        return HttpClient::UnexpectedClose;
    case CURLE_PARTIAL_FILE:
        return _response.hasContentLength() ? HttpClient::WrongContentLength : HttpClient::UnexpectedClose;
    case CURLE_UNSUPPORTED_PROTOCOL: // The reply does not begin as HTTP does.
    case CURLE_WEIRD_SERVER_REPLY:
        return HttpClient::InvalidResponseHeader;
    case CURLE_OUT_OF_MEMORY: // curl's word for a line that never ends.
        return _response.isValid() ? HttpClient::UnknownError : HttpClient::InvalidResponseHeader;
    default:
        return HttpClient::UnknownError;
    }
}
