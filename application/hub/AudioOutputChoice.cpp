#include "AudioOutputChoice.h"

#include "AppSettings.h"
#include "AudioDevice.h"
#include "AudioOutput.h"
#include "Background.h"
#include "LinuxAudioConfig.h"
#include "Logger.h"
#include "LoggerManager.h"

Logger* AudioOutputChoice::log = LoggerManager::logger();

namespace
{
/// The device of the setting, or one that exists in its place. May wait for a sound server.
QString existing(QString device)
{
    if (device.isEmpty()) {
        QStringList devices;
        QString defaultName;
        if (!AudioDevice::availableDevices(devices, defaultName))
            device = QStringLiteral("default");
        else if (devices.contains("Generic Software"))
            device = QStringLiteral("Generic Software");
    }
    LinuxAudioConfig const config;
    return config.listDevices().contains(device) ? device : config.defaultDevice();
}
} // namespace

AudioOutputChoice::AudioOutputChoice(AppSettings& settings, AudioDevice& device, TimerFactory* timers,
                                     QObject* parent)
    : QObject(parent), _settings(settings), _device(device), _timers(timers)
{
    // Who goes through the devices by keyboard wants the last one only.
    constexpr int delay = 500; // ms
    _timer.setSingleShot(true);
    _timer.setInterval(delay);
    connect(&_timer, &QTimer::timeout, this, &AudioOutputChoice::changed);
}

void AudioOutputChoice::begin()
{
    QString const setting = _settings.audioDevice();
    _device.awaitDevice(setting); // By what opens meanwhile; there is none yet that would go.
    auto const look = [this, setting] {
        Background::run(
            this, [setting] { return existing(setting); },
            [this, setting](QString const& device) { watch(setting, device); });
    };
    // Once the window is there: no thread can be started while the OpenGL driver is linked.
    QMetaObject::invokeMethod(this, look, Qt::QueuedConnection);
}

void AudioOutputChoice::watch(QString const& setting, QString const& device)
{
    _isViewersChoice = _settings.audioDevice() != setting;
    if (!_isViewersChoice)
        _settings.setAudioDevice(device);
    _watch.emplace(_device, _timers);
    connect(&*_watch, &AudioDeviceWatch::chosen, this, &AudioOutputChoice::onChosen);
    connect(&_settings, &AppSettings::audioDeviceChanged, &_timer, qOverload<>(&QTimer::start));
    _watch->choose(_settings.audioDevice());
}

void AudioOutputChoice::follow()
{
    if (!_watch || _device.wantedDevice() == _settings.audioDevice())
        return;
    _isViewersChoice = true;
    _watch->choose(_settings.audioDevice());
}

void AudioOutputChoice::onChosen(AudioDeviceWatch::Outcome outcome)
{
    if (outcome == AudioDeviceWatch::Outcome::NothingOpened)
        LOG_ERROR("Could not open sound device.");
    if (!_isViewersChoice) {
        if (outcome == AudioDeviceWatch::Outcome::NothingOpened)
            _device.noteAbsence();
        return; // Who has no sound device knows it.
    }
    if (outcome == AudioDeviceWatch::Outcome::NothingOpened) {
        emit failed(tr("The sound device could not be opened: there is no sound for now."));
    } else if (outcome == AudioDeviceWatch::Outcome::DefaultOpened &&
               !LinuxAudioConfig::isGeneric(_device.wantedDevice())) {
        emit failed(tr("%1 could not be opened. Sound goes where the system sends it.").arg(_device.wantedDevice()));
    }
}
