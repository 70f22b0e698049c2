#include "SoapService.h"

#include <QCoreApplication>
#include <QHostAddress>

SoapService SoapService::at(Uri const& base, QNetworkAccessManager* networkAccessManager)
{
    SoapService service;
    service.networkAccessManager = networkAccessManager;
    QUrl const url(base.toString(), QUrl::StrictMode);
    bool const isHttps = url.scheme() == "https";
    if (!isHttps && url.scheme() != "http")
        return service;
    service.host = url.host();
    service.connectionMode = isHttps ? HttpClient::ConnectionModeHttps : HttpClient::ConnectionModeHttp;
    service.port = url.port();
    service.basePath = url.path();
    while (service.basePath.endsWith('/'))
        service.basePath.chop(1);
    return service;
}

QUrl SoapService::url(QString const& path) const
{
    if (host.isEmpty())
        return {};
    QUrl url;
    url.setScheme(connectionMode == HttpClient::ConnectionModeHttps ? "https" : "http");
    url.setHost(host);
    url.setPort(port);
    url.setPath(basePath + path);
    return url;
}

bool SoapService::isThisMachine() const
{
    return host.compare(QLatin1String("localhost"), Qt::CaseInsensitive) == 0 || QHostAddress(host).isLoopback();
}

QString SoapService::refusal() const
{
    if (host.isEmpty())
        return QCoreApplication::translate("SoapService", "The address of the service is not a web address.");
    bool const isSafe = connectionMode == HttpClient::ConnectionModeHttps || isThisMachine();
    if (isSafe || allowPlainCredentials)
        return {};
    return QCoreApplication::translate("SoapService",
                                       "The service at %1 is not reached over a secure connection (https). What you "
                                       "entered could be read on the way, so it was not sent.")
        .arg(host);
}
