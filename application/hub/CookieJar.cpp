#include "CookieJar.h"

#include "SettingsFile.h"

#include <QNetworkCookie>

namespace
{
constexpr char const* key = "Cookies";

} // namespace

void CookieJar::load()
{
    setAllCookies(QNetworkCookie::parseCookies(settingsFile().value(key).toByteArray()));
}

void CookieJar::save() const
{
    QByteArray text;
    for (QNetworkCookie const& cookie : allCookies())
        if (!cookie.isSessionCookie())
            text += cookie.toRawForm(QNetworkCookie::Full) + '\n';
    settingsFile().setValue(key, text);
}
