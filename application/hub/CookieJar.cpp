#include "CookieJar.h"

#include "SettingsWriter.h"

#include <QNetworkCookie>

namespace
{
constexpr char const* key = "Cookies";

} // namespace

void CookieJar::load(SettingsWriter& settings)
{
    setAllCookies(QNetworkCookie::parseCookies(SettingsWriter::Group(settings)->value(key).toByteArray()));
}

void CookieJar::removeCookiesOf(QString const& host)
{
    QList<QNetworkCookie> cookies = allCookies();
    cookies.removeIf([&host](QNetworkCookie const& cookie) {
        QString const domain = cookie.domain();
        QString const name = domain.startsWith('.') ? domain.mid(1) : domain;
        return host.compare(name, Qt::CaseInsensitive) == 0 || host.endsWith('.' + name, Qt::CaseInsensitive);
    });
    setAllCookies(cookies);
}

void CookieJar::save(SettingsWriter& settings) const
{
    QByteArray text;
    for (QNetworkCookie const& cookie : allCookies())
        if (!cookie.isSessionCookie())
            text += cookie.toRawForm(QNetworkCookie::Full) + '\n';
    SettingsWriter::Group(settings)->setValue(key, text);
}
