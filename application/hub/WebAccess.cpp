#include "WebAccess.h"

#include "AppSettings.h"
#include "CookieJar.h"

#include <QNetworkAccessManager>

#include <utility>

WebAccess::WebAccess(AppSettings& settings) : _settings(settings) {}

WebAccess::~WebAccess()
{
    delete _manager;
}

void WebAccess::setProxy() const
{
    QNetworkProxy::setApplicationProxy(proxy());
}

QNetworkProxy WebAccess::proxy() const
{
    auto const type = static_cast<QNetworkProxy::ProxyType>(_settings.proxyType());
    return {type, _settings.proxyHostName(), static_cast<quint16>(_settings.proxyPort()), _settings.proxyUser(),
            _settings.proxyPassword()};
}

void WebAccess::createManager()
{
    _manager = new QNetworkAccessManager;
    loadCookieJar();
}

void WebAccess::destroyManager()
{
    saveCookieJar();
    std::exchange(_manager, nullptr)->deleteLater();
}

void WebAccess::loadCookieJar()
{
    auto jar = std::make_unique<CookieJar>();
    jar->load(_settings.file());
    _manager->setCookieJar(jar.release());
}

void WebAccess::saveCookieJar() const
{
    if (auto const* const jar = qobject_cast<CookieJar*>(_manager->cookieJar()))
        jar->save(_settings.file());
}
