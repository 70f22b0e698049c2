#pragma once

#include "Keychain.h"
#include "Uri.h"

#include <QHash>
#include <QMap>

class HttpClient;
class HttpClientFactory;

/// A Keychain in front of a web service with the public keys that it does not know. How the service is asked is not
/// settled yet: an unknown id gets an HTTP client, whose end tells the key, and no request is made. Private keys are
/// those that it was given.
///
/// Lives on the thread that made it.
class RestfulKeychain : public Keychain
{
    Q_OBJECT

public:
    /// The factory is borrowed and must outlive the keychain. The address is that of the service.
    RestfulKeychain(HttpClientFactory* httpClientFactory, Uri const& keychainUri, QObject* parent = nullptr);
    ~RestfulKeychain() override;

    /// Empty for an id that is not known yet. There is one client at a time for an id.
    QByteArray publicKeyFor(QString const& id) override;
    QByteArray privateKeyFor(QString const& id) override;
    void setPrivateKeyFor(QString const& id, QByteArray const& key) override;

private slots:
    void onDone(HttpClient* client, bool error);

private:
    HttpClientFactory* _httpClientFactory;
    Uri const _keychainUri;
    QMap<QString, QByteArray> _privateKeys;
    QMap<QString, QByteArray> _publicKeys;
    QHash<HttpClient*, QString> _idOf; ///< The id that each client is for; they belong to this.
};
