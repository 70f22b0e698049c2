#pragma once

#include "HttpClient.h"
#include "Uri.h"

#include <QNetworkAccessManager>
#include <QPointer>
#include <QString>
#include <QUrl>

/// The service that account calls go to, as a copyable value.
struct SoapService {
    static constexpr int defaultResponseTimeout = 30000; // ms

    /// The service at a base address, http or https. The access manager is borrowed.
    static SoapService at(Uri const& base, QNetworkAccessManager* networkAccessManager);

    /// The address of a path of the service; not valid when the service has none that can be called.
    QUrl url(QString const& path) const;

    /// Whether the host is this machine, so that what is sent there does not leave it.
    bool isThisMachine() const;

    /// Why nothing may be sent there, in words; empty when something may. Calls carry what an account is known by: in
    /// the clear they go to this machine only.
    QString refusal() const;

    QPointer<QNetworkAccessManager> networkAccessManager;
    QString host;
    HttpClient::ConnectionMode connectionMode = HttpClient::ConnectionModeHttp;
    int port = -1;                                ///< -1 is the protocol's own.
    QString basePath;                             ///< What comes before the path of a call; may be empty.
    int responseTimeout = defaultResponseTimeout; ///< Of silence, in ms; a whole answer may take four times as long.
    bool allowPlainCredentials = false;           ///< The viewer wants calls in the clear to go elsewhere, too.
};
