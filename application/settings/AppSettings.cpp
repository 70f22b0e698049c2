#include "AppSettings.h"

#include "Deployment.h"
#include "Logger.h"
#include "LoggerManager.h"
#include "RunAtStartup.h"
#include "SettingsFile.h"
#include "SettingsStore.h"

#include <QAction>
#include <QCoreApplication>
#include <QDir>
#include <QStandardPaths>
#include <QUuid>

#include <algorithm>

Logger* AppSettings::log = LoggerManager::logger();

namespace
{

/// No account's: the names of those have no such sign in the file, see userGroup().
constexpr char const* guestGroup = "user/%guest";

} // namespace

AppSettings::AppSettings(QObject* parent) : QObject(parent), _dataDirectory(QDir::homePath() + "/.Ombravision")
{
    connect(&_file, &SettingsWriter::failed, this, &AppSettings::settingsFileFailed);
}

AppSettings::~AppSettings() = default;

QString AppSettings::organisationDomain() const
{
    return Deployment::organisationDomain;
}

QString AppSettings::cacheDirectory() const
{
    return QStandardPaths::writableLocation(QStandardPaths::CacheLocation);
}

void AppSettings::loadGlobalSettings()
{
    LOG_INFO("Loading global settings");
    tell(checkSettingsFile());
    SettingsWriter::Group const settings(_file, "application");
    load(*settings, SettingScope::Global);
    keepMmsClientGuid(*settings);
}

QString AppSettings::storedLanguage()
{
    return settingsFile().value("application/language").toString().trimmed();
}

void AppSettings::saveGlobalSettings()
{
    LOG_INFO("Saving global settings");
    SettingsWriter::Group const settings(_file, "application");
    save(*settings, SettingScope::Global);
}

void AppSettings::loadUserSettings(QString const& email)
{
    LOG_INFO("Loading settings for user %s", qUtf8Printable(email));
    if (email.isEmpty())
        return;
    SettingsWriter::Group const settings(_file, userGroup(email));
    load(*settings, SettingScope::User);
}

void AppSettings::saveUserSettings(QString const& email)
{
    LOG_INFO("Saving settings for user %s", qUtf8Printable(email));
    if (email.isEmpty())
        return;
    SettingsWriter::Group const settings(_file, userGroup(email));
    save(*settings, SettingScope::User);
}

void AppSettings::loadGuestSettings()
{
    SettingsWriter::Group const settings(_file, guestGroup);
    load(*settings, SettingScope::Guest);
}

void AppSettings::saveGuestSettings()
{
    SettingsWriter::Group const settings(_file, guestGroup);
    save(*settings, SettingScope::Guest);
}

QString AppSettings::userGroup(QString const& email)
{
    // Slashes part groups, and both kinds may stand in an address: each account has a group of its own.
    return "user/" + QString(email).replace('%', "%25").replace('/', "%2F").replace('\\', "%5C");
}

void AppSettings::writeEncryptedPassword(QSettings& settings, QString const& key, QString const& secret)
{
    _secrets.write(settings, key, secret);
}

void AppSettings::load(QSettings& settings, SettingScope scope)
{
    SettingsValues const before = _values;
    SettingsStore(settings, _secrets).load(scope, _values);
    QList<void (AppSettings::*)()> changed;
    for (Setting const& setting : settingsTable()) {
        auto const isSame = [this, &before](auto field) { return before.*field == _values.*field; };
        if (!isOf(setting, scope) || std::visit(isSame, setting.field))
            continue;
        mark(setting);
        if (setting.changed && !changed.contains(setting.changed))
            changed.append(setting.changed);
    }
    for (auto const signal : changed)
        emit(this->*signal)();
}

void AppSettings::save(QSettings& settings, SettingScope scope)
{
    SettingsStore(settings, _secrets).save(scope, _values);
}

/// An installation without one, or whose file has lost it, gets one at once: it stays the same in all runs.
void AppSettings::keepMmsClientGuid(QSettings& settings)
{
    if (!QUuid(_values.mmsClientGuid).isNull())
        return;
    _values.mmsClientGuid = QUuid::createUuid().toString();
    settings.setValue("videoWindow/mmsClientGuid", _values.mmsClientGuid);
}

void AppSettings::tell(QString const& problem)
{
    if (problem.isEmpty())
        return;
    LOG_ERROR("%s", qUtf8Printable(problem));
    emit settingsFileFailed(problem);
}

void AppSettings::announce(SettingField const& field)
{
    Setting const* const setting = findSetting(field);
    if (!setting)
        return;
    mark(*setting);
    if (setting->changed)
        emit(this->*setting->changed)();
}

void AppSettings::mark(Setting const& setting) const
{
    if (!setting.action)
        return;
    if (auto const* const flag = std::get_if<bool SettingsValues::*>(&setting.field))
        _actions.check(*setting.action, _values.**flag != setting.actionShowsOff);
    else if (auto const* const number = std::get_if<int SettingsValues::*>(&setting.field))
        _actions.check(static_cast<MenuAction>(static_cast<int>(*setting.action) + _values.**number), true);
}

void AppSettings::createActions()
{
    _actions.create();
    for (Setting const& setting : settingsTable())
        mark(setting);
}

void AppSettings::setRunAtStartup(bool on)
{
    if (_values.runAtStartup != on)
        RunAtStartup::setRunAtStartup(applicationName(), QCoreApplication::applicationFilePath(), {"-startup"}, on);
    set(&SettingsValues::runAtStartup, on);
}

void AppSettings::setVolume(double volume)
{
    if (qIsNaN(volume))
        return;
    volume = std::clamp(volume, 0.0, 1.0);
    if (_values.volume == volume && !_values.muted)
        return;
    _values.volume = volume;
    setMuted(false);
    emit volumeChanged();
}

void AppSettings::setDrawMode(int mode)
{
    SettingBounds const& bounds = *findSetting(&SettingsValues::drawMode)->bounds;
    if (mode >= bounds.minimum && mode <= bounds.maximum)
        set(&SettingsValues::drawMode, mode);
}

bool AppSettings::channelAlerts(QString const& id, bool byDefault)
{
    auto const found = _values.channelAlerts.constFind(id);
    return found != _values.channelAlerts.cend() ? *found : *_values.channelAlerts.insert(id, byDefault);
}

void AppSettings::setChannelAlerts(QString const& id, bool on)
{
    auto alerts = _values.channelAlerts;
    alerts.insert(id, on);
    set(&SettingsValues::channelAlerts, alerts);
}

void AppSettings::setTwitterCredentials(QString const& token, QString const& tokenSecret)
{
    if (_values.twitterToken == token && _values.twitterTokenSecret == tokenSecret)
        return;
    _values.twitterToken = token;
    _values.twitterTokenSecret = tokenSecret;
    emit twitterCredentialsChanged();
}
