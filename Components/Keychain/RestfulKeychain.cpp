#include "RestfulKeychain.h"

#include "HttpClient.h"
#include "HttpClientFactory.h"

RestfulKeychain::RestfulKeychain(HttpClientFactory* httpClientFactory, Uri const& keychainUri, QObject* parent)
    : Keychain(parent), _httpClientFactory(httpClientFactory), _keychainUri(keychainUri)
{
}

RestfulKeychain::~RestfulKeychain()
{
    for (HttpClient* const client : _idOf.keys()) {
        client->disconnect(this);
        _httpClientFactory->disposeHttpClient(client);
    }
}

QByteArray RestfulKeychain::publicKeyFor(QString const& id)
{
    auto const known = _publicKeys.constFind(id);
    if (known != _publicKeys.constEnd())
        return *known;
    if (_idOf.key(id) == nullptr) {
        HttpClient* const client = _httpClientFactory->createHttpClient(this);
        connect(client, &HttpClient::done, this, &RestfulKeychain::onDone);
        _idOf.insert(client, id);
    }
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

void RestfulKeychain::onDone(HttpClient* client, bool error)
{
    if (!_idOf.contains(client))
        return;
    QString const id = _idOf.take(client);
    QByteArray const key = client->readAll();
    client->disconnect(this);
    _httpClientFactory->disposeHttpClient(client);
    if (error || key.isEmpty()) {
        emit publicKeyUnavailable(id);
        return;
    }
    _publicKeys.insert(id, key);
    emit publicKeyUpdated(id, key);
}
