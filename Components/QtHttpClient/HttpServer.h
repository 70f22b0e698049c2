#pragma once

#include "HttpClient.h"

#include <QNetworkProxy>
#include <QString>

/// Where the requests of a client go, by which way and as whom.
struct HttpServer {
    QString host;
    int port = 0; ///< 0 is the protocol's own.
    HttpClient::ConnectionMode mode = HttpClient::ConnectionModeHttp;
    QString user;
    QString password;
    QNetworkProxy proxy; ///< The default one stands for the application's.

    bool isSecure() const { return mode == HttpClient::ConnectionModeHttps; }
    int defaultPort() const { return isSecure() ? 443 : 80; }
    int effectivePort() const { return port > 0 ? port : defaultPort(); }

    /// The host as a URL and a Host line have it, with the port where it is not the protocol's own.
    QString authority() const
    {
        QString const name = host.contains(':') && !host.startsWith('[') ? "[" + host + "]" : host;
        return effectivePort() == defaultPort() ? name : QString(name + ":" + QString::number(port));
    }

    QNetworkProxy effectiveProxy() const
    {
        return proxy.type() == QNetworkProxy::DefaultProxy ? QNetworkProxy::applicationProxy() : proxy;
    }
};
