#pragma once

#include <QNetworkCookieJar>

/// The cookies of the application's web access, kept in the settings file between runs.
class CookieJar : public QNetworkCookieJar
{
    Q_OBJECT

public:
    using QNetworkCookieJar::QNetworkCookieJar;

    /// Replaces the cookies by the stored ones.
    void load();

    /// Stores all but session cookies.
    void save() const;
};
