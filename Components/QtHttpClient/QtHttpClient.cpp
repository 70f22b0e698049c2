#include "QtHttpClient.h"

#include "CurlTransfer.h"
#include "HttpServer.h"
#include "Logger.h"
#include "LoggerManager.h"

#include <QIODevice>

#include <utility>

Logger* QtHttpClient::log = LoggerManager::logger();

QtHttpClient::QtHttpClient(QObject* parent) : HttpClient(parent), _server(std::make_unique<HttpServer>()) {}

QtHttpClient::~QtHttpClient() = default;

int QtHttpClient::setHost(QString const& host, int port)
{
    return setHost(host, ConnectionModeHttp, port);
}

int QtHttpClient::setHost(QString const& host, HttpClient::ConnectionMode mode, int port)
{
    return enqueue({[this, host, mode, port] {
        _server->host = host;
        _server->mode = mode;
        _server->port = port;
    }});
}

int QtHttpClient::setProxy(QString const& host, int port, QString const& user, QString const& password)
{
    QNetworkProxy const proxy =
        host.isEmpty() ? QNetworkProxy()
                       : QNetworkProxy(QNetworkProxy::HttpProxy, host, static_cast<quint16>(port), user, password);
    return enqueue({[this, proxy] { _server->proxy = proxy; }});
}

int QtHttpClient::setUser(QString const& user, QString const& password)
{
    return enqueue({[this, user, password] {
        _server->user = user;
        _server->password = password;
    }});
}

int QtHttpClient::request(HttpRequestHeader const& header, QByteArray const& data)
{
    return enqueue({nullptr, header, data, nullptr, true});
}

int QtHttpClient::get(QString const& path, QIODevice* device)
{
    return send("GET", path, {}, device);
}

int QtHttpClient::post(QString const& path, QByteArray const& data, QIODevice* device)
{
    return send("POST", path, data, device);
}

int QtHttpClient::send(QString const& method, QString const& path, QByteArray const& data, QIODevice* device)
{
    HttpRequestHeader header(method, path);
    header.setValue("Connection", "Keep-Alive");
    return enqueue({nullptr, header, data, device});
}

int QtHttpClient::close()
{
    return enqueue({[this] { _needsFreshConnection = true; }});
}

int QtHttpClient::enqueue(Request request)
{
    _requests.append(std::move(request));
    if (_requests.size() == 1)
        QMetaObject::invokeMethod(this, &QtHttpClient::startNext, Qt::QueuedConnection);
    return ++_lastId;
}

void QtHttpClient::startNext()
{
    if (_isTransferring || _requests.isEmpty())
        return; // The queue was dropped and begun anew since this call was posted.
    while (!_requests.isEmpty()) {
        Request const request = _requests.first();
        _error = NoError;
        _transfer.reset();
        if (!request.apply) {
            startTransfer(request);
            return;
        }
        request.apply();
        _requests.removeFirst();
    }
    emit done(this, false);
}

void QtHttpClient::startTransfer(Request const& request)
{
    if (_server->host.isEmpty()) {
        LOG_WARNING("startTransfer(): no host is set.");
        fail(UnknownError);
        return;
    }
    HttpRequestHeader header = request.header;
    if (!request.isWhole) {
        auto lines = header.values();
        lines.prepend({"Host", _server->authority()});
        header.setValues(lines);
    }
    _transfer = std::make_unique<CurlTransfer>(*_server, header, request.body, request.device);
    CurlTransfer* const transfer = _transfer.get();
    connect(transfer, &CurlTransfer::responseHeaderReceived, this, &QtHttpClient::rethrowResponseHeaderReceived);
    connect(transfer, &CurlTransfer::readyRead, this, &QtHttpClient::rethrowReadyRead);
    connect(transfer, &CurlTransfer::finished, this, &QtHttpClient::rethrowDone);
    connect(transfer, &CurlTransfer::authenticationRequired, this, &QtHttpClient::rethrowAuthenticationRequired);
    connect(transfer, &CurlTransfer::proxyAuthenticationRequired, this,
            &QtHttpClient::rethrowProxyAuthenticationRequired);
    connect(transfer, &CurlTransfer::dataSendProgress, this, &QtHttpClient::rethrowDataSendProgress);
    connect(transfer, &CurlTransfer::dataReadProgress, this, &QtHttpClient::rethrowDataReadProgress);
    if (transfer->start(std::exchange(_needsFreshConnection, false)))
        _isTransferring = true;
    else
        fail(HostNotFound);
}

void QtHttpClient::abort()
{
    if (_requests.isEmpty())
        return;
    _transfer.reset();
    fail(Aborted);
}

void QtHttpClient::fail(HttpClient::Error error)
{
    _isTransferring = false;
    _requests.clear();
    _error = error;
    emit done(this, true);
}

QByteArray QtHttpClient::readAll()
{
    return _transfer ? _transfer->readAll() : QByteArray();
}

qint64 QtHttpClient::read(char* data, qint64 maxSize)
{
    return _transfer ? _transfer->read(data, maxSize) : 0;
}

qint64 QtHttpClient::bytesAvailable() const
{
    return _transfer ? _transfer->bytesAvailable() : 0;
}

HttpClient::State QtHttpClient::state() const
{
    return _transfer ? _transfer->state() : Unconnected;
}

HttpRequestHeader QtHttpClient::currentRequest() const
{
    if (_isTransferring)
        return _transfer->header();
    return _requests.isEmpty() ? HttpRequestHeader() : _requests.first().header;
}

void QtHttpClient::rethrowResponseHeaderReceived(HttpResponseHeader const& header)
{
    emit responseHeaderReceived(this, header);
}

void QtHttpClient::rethrowReadyRead(HttpResponseHeader const& header)
{
    emit readyRead(this, header);
}

void QtHttpClient::rethrowDone(bool error)
{
    if (error) {
        fail(_transfer->error());
        return;
    }
    _isTransferring = false;
    *_server = _transfer->server();
    _requests.removeFirst();
    if (_requests.isEmpty())
        emit done(this, false);
    else
        // The transfer is still on the stack, and starting the next one deletes it.
        QMetaObject::invokeMethod(this, &QtHttpClient::startNext, Qt::QueuedConnection);
}

void QtHttpClient::rethrowAuthenticationRequired(QString const& host, quint16 port, QAuthenticator* authenticator)
{
    emit authenticationRequired(this, host, port, authenticator);
}

void QtHttpClient::rethrowProxyAuthenticationRequired(QNetworkProxy const& proxy, QAuthenticator* authenticator)
{
    emit proxyAuthenticationRequired(this, proxy, authenticator);
}

void QtHttpClient::rethrowDataSendProgress(int done, int total)
{
    emit dataSendProgress(this, done, total);
}

void QtHttpClient::rethrowDataReadProgress(int done, int total)
{
    emit dataReadProgress(this, done, total);
}
