#include "AudioDevice.h"

#include "LinuxAudioConfig.h"
#include "Logger.h"
#include "LoggerManager.h"

#include <AL/al.h>
#include <AL/alc.h>
#include <AL/alext.h>
#include <cstring>

Logger* AudioDevice::log = LoggerManager::logger();

namespace
{

QString const defaultDeviceName = QStringLiteral("default");

/// A list in OpenAL's form: texts that each end with a zero byte, and one more zero byte.
QStringList textsOf(char const* list)
{
    QStringList texts;
    for (; list && *list; list += std::strlen(list) + 1)
        texts.append(QString::fromUtf8(list));
    return texts;
}

} // namespace

AudioDevice::~AudioDevice()
{
    closeDevice();
}

bool AudioDevice::availableDevices(QStringList& devices, QString& defaultDevice)
{
    bool const all = alcIsExtensionPresent(nullptr, "ALC_ENUMERATE_ALL_EXT");
    if (!all && !alcIsExtensionPresent(nullptr, "ALC_ENUMERATION_EXT")) {
        LOG_INFO("Audio device enumeration not supported on Linux");
        return false;
    }
    devices = textsOf(alcGetString(nullptr, all ? ALC_ALL_DEVICES_SPECIFIER : ALC_DEVICE_SPECIFIER));
    defaultDevice = QString::fromUtf8(
        alcGetString(nullptr, all ? ALC_DEFAULT_ALL_DEVICES_SPECIFIER : ALC_DEFAULT_DEVICE_SPECIFIER));
    LOG_INFO("Default audio device was %s", qPrintable(defaultDevice));
    return true;
}

bool AudioDevice::openDevice(QString const& name)
{
    closeDevice();
    if (name != defaultDeviceName) {
        LinuxAudioConfig(nullptr).setDevice(name);
        _device = alcOpenDevice(name.toUtf8().constData());
        if (!_device)
            LOG_WARNING("Could not open audio device %s", qPrintable(name));
    }
    if (!_device)
        _device = alcOpenDevice(nullptr);
    if (!_device) {
        LOG_ERROR("Could not open defaut audio device");
        return false;
    }
    LOG_INFO("Using audio device %s", alcGetString(_device, ALC_DEVICE_SPECIFIER));
    if (!createContext())
        return false;
    _deviceName = name;
    return true;
}

bool AudioDevice::createContext()
{
    _context = alcCreateContext(_device, nullptr);
    if (!_context) {
        LOG_ERROR("Could not create audio device context");
        closeDevice();
        return false;
    }
    if (!alcMakeContextCurrent(_context) || checkForALError("alcMakeContextCurrent")) {
        LOG_ERROR("Could not make audio device context current.");
        closeDevice();
        return false;
    }
    return true;
}

void AudioDevice::closeDevice()
{
    if (_context) {
        alcMakeContextCurrent(nullptr);
        alcDestroyContext(_context);
        _context = nullptr;
    }
    if (_device) {
        alcCloseDevice(_device);
        _device = nullptr;
    }
    _deviceName.clear();
}

bool AudioDevice::checkForALError(char const* where)
{
    switch (alGetError()) {
    case AL_INVALID_NAME:
        LOG_ERROR("%s AL_INVALID_NAME", where);
        return true;
    case AL_INVALID_ENUM:
        LOG_ERROR("%s AL_INVALID_ENUM", where);
        return true;
    case AL_INVALID_VALUE:
        LOG_ERROR("%s AL_INVALID_VALUE", where);
        return true;
    case AL_INVALID_OPERATION:
        LOG_ERROR("%s AL_INVALID_OPERATION", where);
        return true;
    case AL_OUT_OF_MEMORY:
        LOG_ERROR("%s AL_OUT_OF_MEMORY", where);
        return true;
    default:
        return false;
    }
}
