#pragma once

#include <QNetworkProxy>

#include <memory>

class AppSettings;
class QNetworkAccessManager;

/// How the program itself reaches the web: the proxy of the settings, and the access manager that all web views
/// share, with the cookies. GUI thread only.
class WebAccess
{
public:
    /// The settings are borrowed.
    explicit WebAccess(AppSettings& settings);
    ~WebAccess();

    /// Makes the application's proxy as the settings say.
    void setProxy() const;
    QNetworkProxy proxy() const;

    void createManager();
    /// Later, since replies may be on their way to it.
    void destroyManager();
    /// Null before the first and after the second of the two.
    QNetworkAccessManager* manager() const { return _manager; }

    void loadCookieJar();
    void saveCookieJar() const;

private:
    AppSettings& _settings;
    QNetworkAccessManager* _manager = nullptr;
};
