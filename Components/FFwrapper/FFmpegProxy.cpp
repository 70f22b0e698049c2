#include "FFmpegProxy.h"

#include "Logger.h"
#include "LoggerManager.h"

#include <QUrl>

Logger* FFmpegProxy::log = LoggerManager::logger();

namespace
{

bool isOnTheWeb(QUrl const& url)
{
    return url.scheme() == "http" || url.scheme() == "https";
}

bool isUsable(QNetworkProxy const& proxy)
{
    bool const isHttp = proxy.type() == QNetworkProxy::HttpProxy || proxy.type() == QNetworkProxy::HttpCachingProxy;
    return isHttp && !proxy.hostName().isEmpty();
}

} // namespace

QNetworkProxy FFmpegProxy::proxyFor(QUrl const& url) const
{
    if (_proxy.type() != QNetworkProxy::DefaultProxy)
        return _proxy;
    QList<QNetworkProxy> const proxies = QNetworkProxyFactory::systemProxyForQuery(QNetworkProxyQuery(url));
    return proxies.isEmpty() ? QNetworkProxy(QNetworkProxy::NoProxy) : proxies.constFirst();
}

QByteArray FFmpegProxy::forAddress(QByteArray const& address) const
{
    QUrl const url = QUrl::fromEncoded(address);
    QNetworkProxy const proxy = proxyFor(url);
    if (!isOnTheWeb(url) || !isUsable(proxy))
        return "";
    QByteArray const host = QUrl::toAce(proxy.hostName());
    QByteArray text = "http://";
    if (!proxy.user().isEmpty())
        text += QUrl::toPercentEncoding(proxy.user()) + ':' + QUrl::toPercentEncoding(proxy.password()) + '@';
    text += proxy.hostName().contains(':') ? '[' + proxy.hostName().toLatin1() + ']' : host;
    return text + ':' + QByteArray::number(proxy.port());
}

void FFmpegProxy::warnUnlessUsable(QByteArray const& address) const
{
    QUrl const url = QUrl::fromEncoded(address);
    QNetworkProxy const proxy = proxyFor(url);
    if (proxy.type() == QNetworkProxy::NoProxy || (isOnTheWeb(url) && isUsable(proxy)))
        return;
    LOG_WARNING("The proxy is not used for %s: FFmpeg takes HTTP proxies only, and for http and https only",
                address.constData());
}
