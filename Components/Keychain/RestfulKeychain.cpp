#include "RestfulKeychain.h"

#include "HttpClientFactory.h"
#include "Logger.h"
#include "LoggerManager.h"

#include <QUrl>

#include <algorithm>

Logger* RestfulKeychain::log = LoggerManager::logger();

namespace
{

constexpr int statusOk = 200;

} // namespace

RestfulKeychain::RestfulKeychain(HttpClientFactory* httpClientFactory, Uri const& keychainUri, QObject* parent)
    : Keychain(parent), _httpClientFactory(httpClientFactory), _keychainUri(keychainUri)
{
}

RestfulKeychain::~RestfulKeychain()
{
    for (HttpClient* const client : _requests.keys()) {
        client->disconnect(this);
        _httpClientFactory->disposeHttpClient(client);
    }
}

QByteArray RestfulKeychain::publicKeyFor(QString const& id)
{
    auto const known = _publicKeys.constFind(id);
    if (known != _publicKeys.constEnd())
        return *known;
    bool const isAsked =
        std::any_of(_requests.cbegin(), _requests.cend(), [&id](Request const& request) { return request.id == id; });
    if (!isAsked)
        requestKey(id);
    return {};
}

QByteArray RestfulKeychain::privateKeyFor(QString const& id)
{
    return _privateKeys.value(id);
}

void RestfulKeychain::setPrivateKeyFor(QString const& id, QByteArray const& key)
{
    _privateKeys.insert(id, key);
}

void RestfulKeychain::requestKey(QString const& id)
{
    HttpClient* const client = _httpClientFactory->createHttpClient(this);
    _requests.insert(client, Request{id});
    connect(client, &HttpClient::responseHeaderReceived, this,
            [this](HttpClient* sender, HttpResponseHeader const& header) {
                _requests[sender].status = header.statusCode();
            });
    connect(client, &HttpClient::readyRead, this, &RestfulKeychain::onReadyRead);
    connect(client, &HttpClient::done, this, &RestfulKeychain::onDone);

    QUrl const url(_keychainUri.toString());
    bool const isSecure = url.scheme() == QLatin1String("https");
    client->setHost(url.host(), isSecure ? HttpClient::ConnectionModeHttps : HttpClient::ConnectionModeHttp,
                    url.port(0));
    QString path = url.path(QUrl::FullyEncoded);
    if (!path.endsWith(u'/'))
        path += u'/';
    client->get(path + QString::fromLatin1(QUrl::toPercentEncoding(id)));
}

/// A service that never stops answering is stopped.
void RestfulKeychain::onReadyRead(HttpClient* client)
{
    if (client->bytesAvailable() > maximumKeyBytes)
        client->abort();
}

void RestfulKeychain::onDone(HttpClient* client, bool error)
{
    if (!_requests.contains(client))
        return;
    Request const request = _requests.take(client);
    QByteArray const key = client->readAll();
    client->disconnect(this);
    _httpClientFactory->disposeHttpClient(client);

    if (error || request.status != statusOk || key.isEmpty() || key.size() > maximumKeyBytes) {
        LOG_WARNING("No public key for %s: status %d, error %d, %lld bytes.", qUtf8Printable(request.id),
                    request.status, static_cast<int>(error), static_cast<long long>(key.size()));
        emit publicKeyUnavailable(request.id);
        return;
    }
    _publicKeys.insert(request.id, key);
    emit publicKeyUpdated(request.id, key);
}
