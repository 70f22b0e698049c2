#pragma once

#include "HttpClient.h"
#include "Keychain.h"
#include "Uri.h"

#include <QHash>
#include <QMap>

class HttpClientFactory;
class Logger;

/// A Keychain that asks a web service for the public keys that it does not know: the key of an id is what the service
/// answers, with status 200, to a GET of the id, percent-encoded, as an element behind the path of the service.
/// Private keys are those that it was given.
///
/// Lives on the thread that made it.
class RestfulKeychain : public Keychain
{
    Q_OBJECT

public:
    /// An answer beyond this is no key: the largest RSA keys in use are a few KiB of text.
    static constexpr qint64 maximumKeyBytes = 64 * 1024;

    /// The factory is borrowed and must outlive the keychain. The address is that of the service, http or https.
    RestfulKeychain(HttpClientFactory* httpClientFactory, Uri const& keychainUri, QObject* parent = nullptr);
    ~RestfulKeychain() override;

    /// Empty for an id that is not known yet; one of the signals follows. One request runs at a time for an id.
    QByteArray publicKeyFor(QString const& id) override;
    QByteArray privateKeyFor(QString const& id) override;
    void setPrivateKeyFor(QString const& id, QByteArray const& key) override;

private slots:
    void onReadyRead(HttpClient* client);
    void onDone(HttpClient* client, bool error);

private:
    struct Request {
        QString id;
        int status = 0;
    };

    void requestKey(QString const& id);

    static Logger* log;

    HttpClientFactory* _httpClientFactory;
    Uri _keychainUri;
    QMap<QString, QByteArray> _privateKeys;
    QMap<QString, QByteArray> _publicKeys;
    QHash<HttpClient*, Request> _requests; ///< Those that run, by their clients, which belong to this.
};
