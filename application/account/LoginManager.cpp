#include "LoginManager.h"

#include "AppData.h"
#include "Logger.h"
#include "LoggerManager.h"
#include "LoginDialog.h"
#include "MachineIdGenerator.h"
#include "RsaProvider.h"
#include "SoapLogin.h"
#include "SoapSignup.h"

#include <QCryptographicHash>

#include <algorithm>
#include <utility>

Logger* LoginManager::log = LoggerManager::logger();

namespace
{

QString const passwordKey = QStringLiteral("password");
QString const automaticKey = QStringLiteral("signInAutomatically");

} // namespace

LoginManager::LoginManager(AppData& appData, QObject* parent)
    : QObject(parent), _appData(appData), _soapLogin(new SoapLogin(service(), this)),
      _soapSignup(new SoapSignup(service(), this))
{
    connect(_soapLogin, &SoapLogin::updateAvailable, this, &LoginManager::onUpdateAvailable);
    connect(_soapLogin, &SoapLogin::loginCompleted, this, &LoginManager::onLoginResponse);
    connect(_soapSignup, &SoapSignup::signupCompleted, this, &LoginManager::onSignupCompleted);
    connect(this, &LoginManager::loginCompleted, this, &LoginManager::onLoginCompleted);
}

LoginManager::~LoginManager() = default;

SoapService LoginManager::service() const
{
    SoapService service = SoapService::at(_appData.settings.soapHost(), _appData.networkAccessManager());
    service.allowPlainCredentials = _appData.settings.allowPlainCredentials();
    return service;
}

QString LoginManager::nodeId(QString const& email, QString const& machineId)
{
    QByteArray const hash = QCryptographicHash::hash((email + machineId).toUtf8(), QCryptographicHash::Sha256);
    QString nodeId = QString::fromLatin1(hash.toHex());
    LoggerManager::logger()->setHostname(nodeId);
    return nodeId;
}

void LoginManager::login(QString const& email, QString const& password, bool automatic)
{
    if (_soapLogin->isWaitingForResponse())
        return;
    _wasAnswered = false;
    _attempt = {email, password, nodeId(email, MachineIdGenerator::machineId()), automatic, false};
    _soapLogin->login({email, password, _attempt.nodeId, _appData.settings.version(), automatic});
    emit loginStarted();
}

bool LoginManager::autoLogin()
{
    SettingsWriter& file = _appData.settings.file();
    QString const email = SettingsWriter::Group(file)->value("application/lastUser").toString();
    if (email.isEmpty())
        return false;
    SettingsWriter::Group const settings(file, AppSettings::userGroup(email));
    if (!settings->value(automaticKey, false).toBool())
        return false;
    QString const password = readUserPassword(*settings);
    if (password.isEmpty())
        return false;
    login(email, password, true);
    _attempt.keepSignedIn = true;
    return true;
}

QString LoginManager::readUserPassword(QSettings& settings)
{
    return _appData.settings.readEncryptedPassword(settings, passwordKey);
}

bool LoginManager::hasStoredPassword(QString const& email) const
{
    return SettingsWriter::Group(_appData.settings.file(), AppSettings::userGroup(email))->contains(passwordKey);
}

void LoginManager::removeStoredPassword(QString const& email)
{
    SettingsWriter::Group(_appData.settings.file(), AppSettings::userGroup(email))->remove(passwordKey);
}

void LoginManager::cancelLogin()
{
    _soapLogin->cancelRequest();
    _attempt = {};
}

void LoginManager::onLoginResponse(bool ok, SoapLoginResponse const& response)
{
    _wasAnswered = ok;
    if (!ok || !response.authenticated) {
        fail(response.message.isEmpty() ? tr("The service does not accept this e-mail address and password.")
                                        : response.message);
        return;
    }
    pushSettings(response);
    if (response.isUpdateCritical()) {
        fail(tr("You must install the critical update"));
        return;
    }
    makeUser(response);
    AppSettings& settings = _appData.settings;
    settings.setTwitpicConsumerKey(response.tpck);
    settings.setTwitterConsumerKey(response.tck);
    settings.setTwitterConsumerSecret(response.tcs);
    remember();
    LOG_INFO("Login succeeded for %s", qUtf8Printable(_attempt.email));
    emit loginCompleted(true, _attempt.email);
}

void LoginManager::makeUser(SoapLoginResponse const& response)
{
    _user = OmbravisionUser(response.userId, _attempt.email, _attempt.nodeId);
    for (OmbravisionUserGroup const& group : response.groups)
        _user.addGroup(group);
    for (OmbravisionUserRole const& role : response.roles)
        _user.addRole(role);
}

/// In this order: each may be heard of.
void LoginManager::pushSettings(SoapLoginResponse const& response)
{
    AppSettings& settings = _appData.settings;
    settings.setBannerAdvertisingEnabled(response.showBanners);
    settings.setBannerAdvertisingUrl(response.bannersBaseUrl);
    settings.setBannerAdvertisingDelay(response.bannerRefreshRate);
    settings.setBannerAdvertisingSizes(response.bannerSizes.split(',', Qt::SkipEmptyParts));
    settings.setChatAllowed(response.chatAllowed);
    settings.setSponsorshipEnabled(response.showSponsorship);
    // A service that says 0 means one.
    settings.setMultiviewChannelLimit(response.multiviewChannels < 0 ? -1 : std::max(1, response.multiviewChannels));
    settings.setAllowChatRoomChange(response.chatTethering);
    settings.setAllowVideoPostProcessing(response.videoPostprocessing);
    settings.setBuyPremiumMessage(response.buyPremiumMessage);
}

void LoginManager::fail(QString const& text)
{
    LOG_WARNING("Login failed for %s: %s", qUtf8Printable(_attempt.email), qUtf8Printable(text));
    emit loginCompleted(false, text);
}

/// A sign-in that was called for without a dialog has no say in whether the next one is automatic. After an automatic
/// one the password is stored as well: somebody may have written it by hand.
void LoginManager::remember()
{
    SettingsWriter& file = _appData.settings.file();
    SettingsWriter::Group(file)->setValue("application/lastUser", _attempt.email);
    if (!_attempt.isAutomatic && !_loginDialog)
        return;
    SettingsWriter::Group const settings(file, AppSettings::userGroup(_attempt.email));
    settings->setValue(automaticKey, _attempt.keepSignedIn);
    if (!_attempt.keepSignedIn) {
        settings->remove(passwordKey);
        return;
    }
    RsaProvider const& rsaProvider = *_appData.rsaProvider();
    if (rsaProvider.isReady())
        storePassword(_attempt.email, _attempt.password);
    else if (rsaProvider.isUnavailable())
        tellPasswordIsNotKept();
    else
        storeOnceThereIsAKey(_attempt.email, _attempt.password);
}

/// The key is in the making. Whatever comes of it, the password is forgotten then.
void LoginManager::storeOnceThereIsAKey(QString const& email, QString const& password)
{
    auto* const wait = new QObject(this);
    connect(_appData.rsaProvider(), &RsaProvider::ready, wait, [this, wait, email, password] {
        wait->deleteLater();
        storePassword(email, password);
    });
    connect(_appData.rsaProvider(), &RsaProvider::unavailable, wait, [this, wait] {
        wait->deleteLater();
        tellPasswordIsNotKept();
    });
}

void LoginManager::tellPasswordIsNotKept()
{
    emit _appData.settings.settingsFileFailed(
        tr("Your password could not be stored. You will be asked for it at the next start."));
}

void LoginManager::storePassword(QString const& email, QString const& password)
{
    SettingsWriter::Group const settings(_appData.settings.file(), AppSettings::userGroup(email));
    if (settings->value(automaticKey).toBool()) // The viewer may have thought better of it by now.
        _appData.settings.writeEncryptedPassword(*settings, passwordKey, password);
}

void LoginManager::onLoginCompleted(bool ok, QString const& text)
{
    Attempt const attempt = std::exchange(_attempt, {});
    if (attempt.isAutomatic)
        emit autoLoginCompleted(ok, text);
    else if (_loginDialog && ok)
        _loginDialog->finish();
    else if (_loginDialog)
        _loginDialog->showError(text);
}

void LoginManager::signup(QString const& email, QString const& password, bool emailAllowed)
{
    _soapSignup->signup(email, password, emailAllowed);
}

void LoginManager::cancelSignup()
{
    _soapSignup->cancelRequest();
}
