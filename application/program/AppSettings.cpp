#include "AppSettings.h"

#include "BoundedNumber.h"
#include "Deployment.h"
#include "LatteDataSource.h"
#include "Logger.h"
#include "LoggerManager.h"
#include "RunAtStartup.h"
#include "SettingsFile.h"

#include <QAction>
#include <QActionGroup>
#include <QCoreApplication>
#include <QDir>
#include <QNetworkProxy>
#include <QUuid>

#include <algorithm>
#include <limits>
#include <stdexcept>

Logger* AppSettings::log = LoggerManager::logger();

namespace
{

constexpr BoundedNumber proxyTypeNumber = {"proxyType", QNetworkProxy::NoProxy, QNetworkProxy::DefaultProxy,
                                           QNetworkProxy::FtpCachingProxy};
constexpr BoundedNumber startDelayNumber = {"latte/startDelay", LatteDataSource::openDelay, 0, 60000}; // ms
constexpr BoundedNumber proxyPortNumber = {"ProxyPort", 0, 0, BoundedNumber::maximumPort};

AppSettings::ColourConversion colourConversionFromText(QString const& text)
{
    if (text == "shader")
        return AppSettings::ColourConversion::Shader;
    if (text == "fragmentProgram")
        return AppSettings::ColourConversion::FragmentProgram;
    if (text == "software")
        return AppSettings::ColourConversion::Software;
    return AppSettings::ColourConversion::Automatic;
}

AppSettings::Presentation presentationFromText(QString const& text)
{
    if (text == "opengl")
        return AppSettings::Presentation::OpenGl;
    if (text == "shm")
        return AppSettings::Presentation::SharedMemory;
    return AppSettings::Presentation::Automatic;
}

} // namespace

AppSettings::AppSettings(QObject* parent)
    : QObject(parent), _applicationName("Ombravision"), _organisationDomain(Deployment::organisationDomain),
      _dataDirectory(QDir::homePath() + "/.Ombravision")
{
}

AppSettings::~AppSettings()
{
    destroyActions();
}

void AppSettings::loadGlobalSettings()
{
    LOG_INFO("Loading global settings");
    QSettings settings = settingsFile();
    settings.beginGroup("application");

    settings.beginGroup("audio");
    _audioDevice = settings.value("audioDevice", "").toString();
    settings.endGroup();

    settings.beginGroup("video");
    _useHardwareColourConversion = settings.value("useHardwareColourConversion", true).toBool();
    _enableAntialiasing = settings.value("enableAntialiasing", false).toBool();
    _deinterlace = settings.value("deinterlace", true).toBool();
    _colourConversion = colourConversionFromText(settings.value("colourConversion").toString());
    _presentation = presentationFromText(settings.value("presentation").toString());
    settings.endGroup();

    settings.beginGroup("proxy");
    _proxyType = readNumber(settings, proxyTypeNumber);
    _proxyHostName = settings.value("ProxyHostName", "").toString();
    _proxyPort = readNumber(settings, proxyPortNumber);
    _proxyUser = settings.value("ProxyUser", "").toString();
    _proxyPassword = settings.value("ProxyPassword", "").toString();
    settings.endGroup();

    loadBiscotti(settings);

    settings.beginGroup("videoWindow");
    _runAtStartup = settings.value("runAtStartup", true).toBool();
    _mmsClientGuid = settings.value("mmsClientGuid").toString();
    if (_mmsClientGuid.isEmpty()) {
        _mmsClientGuid = QUuid::createUuid().toString();
        settings.setValue("mmsClientGuid", _mmsClientGuid);
    }
    settings.endGroup();
    _latteStartDelay = readNumber(settings, startDelayNumber);
    check("Run at Startup", _runAtStartup);
}

int AppSettings::readNumber(QSettings const& settings, BoundedNumber const& number)
{
    auto const [value, complaint] = number.read(settings);
    if (!complaint.isEmpty())
        LOG_WARNING("%s", qUtf8Printable(complaint));
    return static_cast<int>(value);
}

/// What the file has wrong is replaced: the program starts without a messaging server too.
void AppSettings::loadBiscotti(QSettings const& settings)
{
    _biscottiHost = settings.value("biscotti/host", Deployment::biscottiHost).toString().trimmed();
    bool isNumber = false;
    int const port = settings.value("biscotti/port", Deployment::biscottiPort).toInt(&isNumber);
    bool const isPort = isNumber && port > 0 && port <= std::numeric_limits<quint16>::max();
    if (_biscottiHost.isEmpty() || !isPort) {
        LOG_WARNING("The settings name no messaging server; taking %s:%d.", Deployment::biscottiHost,
                    Deployment::biscottiPort);
        _biscottiHost = Deployment::biscottiHost;
    }
    _biscottiPort = isPort ? static_cast<quint16>(port) : Deployment::biscottiPort;

    QString const keychainUrl = settings.value("biscotti/keychainUrl", Deployment::keychainUrl).toString();
    try {
        _keychainUrl = Uri(keychainUrl);
    } catch (std::invalid_argument const&) {
        LOG_WARNING("The settings name no address of a keychain: %s", qUtf8Printable(keychainUrl));
        _keychainUrl = Uri(Deployment::keychainUrl);
    }
}

void AppSettings::saveGlobalSettings()
{
    LOG_INFO("Saving global settings");
    QSettings settings = settingsFile();
    settings.beginGroup("application");
    settings.setValue("audio/audioDevice", _audioDevice);
    settings.setValue("video/useHardwareColourConversion", _useHardwareColourConversion);
    settings.setValue("video/enableAntialiasing", _enableAntialiasing);
    settings.setValue("proxy/proxyType", _proxyType);
    settings.setValue("proxy/ProxyHostName", _proxyHostName);
    settings.setValue("proxy/ProxyPort", _proxyPort);
    settings.setValue("proxy/ProxyUser", _proxyUser);
    settings.setValue("proxy/ProxyPassword", _proxyPassword);
    // Read back from another group: the defaults apply at the next start, as they always have.
    settings.setValue("videowindow/runAtStartup", _runAtStartup);
}

void AppSettings::setAudioDevice(QString const& device)
{
    if (_audioDevice == device)
        return;
    _audioDevice = device;
    emit audioDeviceChanged();
}

void AppSettings::setUseHardwareColourConversion(bool on)
{
    if (_useHardwareColourConversion == on)
        return;
    _useHardwareColourConversion = on;
    emit useHardwareColourConversionChanged();
}

void AppSettings::setEnableAntialiasing(bool on)
{
    if (_enableAntialiasing == on)
        return;
    _enableAntialiasing = on;
    emit enableAntialiasingChanged();
}

void AppSettings::setRunAtStartup(bool on)
{
    if (_runAtStartup == on)
        return;
    _runAtStartup = on;
    check("Run at Startup", on);
    RunAtStartup::setRunAtStartup(_applicationName, QCoreApplication::applicationFilePath(), {"-startup"}, on);
    emit runAtStartupChanged();
}

void AppSettings::setVolume(double volume)
{
    volume = std::clamp(volume, 0.0, 1.0);
    if (_volume == volume && !_muted)
        return;
    _volume = volume;
    setMuted(false);
    emit volumeChanged();
}

void AppSettings::setMuted(bool muted)
{
    if (_muted == muted)
        return;
    _muted = muted;
    check("Mute", muted);
    emit muteChanged();
}

void AppSettings::setShowFullScreen(bool on)
{
    if (_showFullScreen == on)
        return;
    _showFullScreen = on;
    check("Full Screen", on);
    emit showFullScreenChanged();
}

void AppSettings::setShowMenuBar(bool on)
{
    if (_showMenuBar == on)
        return;
    _showMenuBar = on;
    check("Menu Bar", on);
    emit showMenuBarChanged();
}

void AppSettings::setAlwaysOnTop(bool on)
{
    if (_alwaysOnTop == on)
        return;
    _alwaysOnTop = on;
    check("Always on Top", on);
    emit alwaysOnTopChanged();
}

void AppSettings::setRecord(bool on)
{
    if (_record == on)
        return;
    _record = on;
    check("Record", on);
    emit recordChanged();
}

void AppSettings::setEnableVideoPostProcessing(bool on)
{
    if (_enableVideoPostProcessing == on)
        return;
    _enableVideoPostProcessing = on;
    check("Video Post Processing", on);
    emit enableVideoPostProcessingChanged();
}

void AppSettings::setDrawMode(int mode)
{
    if (_drawMode == mode || mode < 0 || mode > 5)
        return;
    _drawMode = mode;
    if (QList<QAction*> const modes = drawModeActions(); mode < modes.size())
        modes.at(mode)->setChecked(true);
    emit drawModeChanged();
}
