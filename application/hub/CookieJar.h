#pragma once

#include <QNetworkCookieJar>

class SettingsWriter;

/// The cookies of the application's web access, kept in the settings file between runs.
class CookieJar : public QNetworkCookieJar
{
    Q_OBJECT

public:
    using QNetworkCookieJar::QNetworkCookieJar;

    /// Replaces the cookies by the stored ones.
    void load(SettingsWriter& settings);

    /// Forgets what a host has set, for itself or for all of its domain.
    void removeCookiesOf(QString const& host);

    /// Stores all but session cookies.
    void save(SettingsWriter& settings) const;
};
