#include "AudioOutputChoice.h"

#include "AppSettings.h"
#include "AudioDevice.h"
#include "LinuxAudioConfig.h"
#include "Logger.h"
#include "LoggerManager.h"

Logger* AudioOutputChoice::log = LoggerManager::logger();

void AudioOutputChoice::choose()
{
    if (_settings.audioDevice().isEmpty()) {
        QStringList devices;
        QString defaultName;
        if (!AudioDevice::availableDevices(devices, defaultName))
            _settings.setAudioDevice("default");
        else if (devices.contains("Generic Software"))
            _settings.setAudioDevice("Generic Software");
    }
    LinuxAudioConfig const config;
    if (!config.listDevices().contains(_settings.audioDevice()))
        _settings.setAudioDevice(config.defaultDevice());
}

void AudioOutputChoice::open()
{
    if (!_device.openDevice(_settings.audioDevice()))
        LOG_ERROR("Could not open sound device.");
}
