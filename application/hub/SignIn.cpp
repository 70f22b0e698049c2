#include "SignIn.h"

#include "AppData.h"
#include "ChannelManager.h"
#include "CookieJar.h"
#include "Logger.h"
#include "LoggerManager.h"
#include "LoginManager.h"
#include "OwnChannels.h"
#include "Timer.h"
#include "TimerFactory.h"

#include <QAction>
#include <QNetworkAccessManager>

#include <utility>

Logger* SignIn::log = LoggerManager::logger();

SignIn::SignIn(AppData& appData, TimerFactory* timers, QObject* parent)
    : QObject(parent), _appData(appData), _timers(timers), _autoSignInTimer(timers->createTimer()),
      _signInTimer(timers->createTimer())
{
    _autoSignInTimer->setSingleShot(true);
    _signInTimer->setSingleShot(true);
    connect(_autoSignInTimer, &Timer::timeout, this, &SignIn::onAutoSignInTimer);
    connect(_signInTimer, &Timer::timeout, this, &SignIn::onSignInTimer);
    connect(appData.loginManager(), &LoginManager::loginStarted, this, &SignIn::onLoginStarted);
    connect(appData.loginManager(), &LoginManager::autoLoginCompleted, this, &SignIn::onAutoLoginCompleted);
    enableActions(true);
}

SignIn::~SignIn()
{
    _timers->disposeTimer(_autoSignInTimer);
    _timers->disposeTimer(_signInTimer);
}

QString SignIn::lastUser() const
{
    return SettingsWriter::Group(_appData.settings.file())->value("application/lastUser").toString();
}

void SignIn::signIn(QWidget* widget, bool automatic)
{
    _autoSignInTimer->stop();
    _signInTimer->stop();
    QString const failure = std::exchange(_failure, {});
    if (isSignedIn())
        return;
    enableActions(false);
    LoginManager& login = *_appData.loginManager();
    if (automatic && login.autoLogin())
        return;
    _isAsking = true;
    bool const ok = login.loginWithGui(widget, failure);
    _isAsking = false;
    endSigningIn();
    if (ok)
        enter(login.user().email());
    enableActions(true);
}

void SignIn::signUp(QWidget* widget)
{
    _autoSignInTimer->stop();
    _signInTimer->stop();
    enableActions(false);
    bool const ok = _appData.loginManager()->signupWithGui(widget);
    enableActions(true);
    if (!ok)
        return;
    signOut(true); // Who has been here until now.
    signIn(widget, false);
}

void SignIn::signOut(bool notify)
{
    if (!isSignedIn())
        return;
    emit aboutToChange();
    ChannelManager& channels = *_appData.channelManager();
    channels.stopChecking();
    channels.unloadChannels();
    save();
    LOG_INFO("Signed out");
    _email.clear();
    _appData.settings.loadGuestSettings();
    LoginManager& login = *_appData.loginManager();
    login.forgetUser();
    if (auto* const jar = qobject_cast<CookieJar*>(_appData.networkAccessManager()->cookieJar()))
        jar->removeCookiesOf(login.service().host); // Whoever comes next is somebody else.
    _appData.saveCookieJar();
    enableActions(true);
    if (notify)
        emit signedInChanged();
}

void SignIn::save()
{
    AppSettings& settings = _appData.settings;
    if (!isSignedIn())
        return settings.saveGuestSettings();
    QString const active = _appData.channelManager()->lastChannelId();
    QStringList open = _appData.channelManager()->lastChannelIds();
    open.removeIf([](QString const& id) { return OwnChannels::hasSecret(id); });
    settings.setActiveChannel(OwnChannels::hasSecret(active) ? open.value(0) : active);
    settings.setOpenChannels(open);
    settings.saveUserSettings(_email);
}

void SignIn::onLoginStarted()
{
    _isSigningIn = true;
    LOG_INFO("Signing in...");
    emit signInStarted();
}

void SignIn::onAutoLoginCompleted(bool ok, QString const& text)
{
    endSigningIn();
    if (ok) {
        enter(text);
        enableActions(true);
    } else if (_appData.settings.startupMode() && !_appData.loginManager()->wasAnswered()) {
        // The network may not be up yet. What the service refuses it would refuse again.
        enableActions(true);
        _autoSignInTimer->start(autoSignInDelay);
    } else {
        _failure = text;
        _signInTimer->start(dialogDelay);
    }
}

void SignIn::endSigningIn()
{
    _isSigningIn = false;
    emit signInEnded();
}

void SignIn::enter(QString const& email)
{
    emit aboutToChange();
    AppSettings& settings = _appData.settings;
    settings.saveGlobalSettings();
    settings.saveGuestSettings();
    settings.loadUserSettings(email);
    _email = email;
    ChannelManager& channels = *_appData.channelManager();
    channels.setLastChannelId(settings.activeChannel());
    channels.setLastChannelIds(settings.openChannels());
    channels.startChecking();
    emit signedInChanged();
}

void SignIn::enableActions(bool enabled)
{
    for (MenuAction const action : {MenuAction::SignIn, MenuAction::CreateAccount})
        if (QAction* const found = _appData.settings.action(action))
            found->setEnabled(enabled);
    if (QAction* const found = _appData.settings.action(MenuAction::SignOut))
        found->setEnabled(isSignedIn());
}

void SignIn::onSignInTimer()
{
    signIn(_appData.mainWidget(), false);
}

void SignIn::onAutoSignInTimer()
{
    signIn(_appData.mainWidget(), true);
}
