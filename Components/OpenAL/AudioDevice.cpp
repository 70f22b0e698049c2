#include "AudioDevice.h"

#include "AudioDriver.h"
#include "AudioOutput.h"
#include "LinuxAudioConfig.h"
#include "Logger.h"
#include "LoggerManager.h"

#include <AL/al.h>
#include <AL/alc.h>
#include <AL/alext.h>
#include <atomic>

Logger* AudioDevice::log = LoggerManager::logger();

namespace
{

QString const defaultDeviceName = QStringLiteral("default");

/// OpenAL has one current context for the process, and so one of each of these.
struct CurrentContext {
    std::shared_mutex mutex;
    std::atomic<unsigned int> generation{0}; ///< Written under the mutex, and so by one thread at a time.
    AudioOutput const* output = nullptr;     ///< Guarded by the mutex.
    bool awaited = false;                    ///< The one before has gone without being closed. The same.
    bool absent = false;                     ///< It was looked for in vain. The same.
};

CurrentContext& currentContext()
{
    static CurrentContext current;
    return current;
}

} // namespace

AudioDevice::AudioDevice() : AudioDevice(std::make_shared<AudioDriver>()) {}

AudioDevice::AudioDevice(std::shared_ptr<AudioDriver> driver) : _driver(std::move(driver)) {}

AudioDevice::~AudioDevice()
{
    closeDevice();
}

unsigned int AudioDevice::generation()
{
    return currentContext().generation;
}

std::shared_mutex& AudioDevice::contextMutex()
{
    return currentContext().mutex;
}

bool AudioDevice::isPresent()
{
    AudioOutput const* const output = currentContext().output;
    return output && output->isConnected();
}

bool AudioDevice::isAwaited()
{
    CurrentContext const& current = currentContext();
    return current.output ? !current.output->isConnected() : current.awaited;
}

bool AudioDevice::isAbsent()
{
    return currentContext().absent;
}

void AudioDevice::noteAbsence()
{
    CurrentContext& current = currentContext();
    std::lock_guard const lock(current.mutex);
    current.absent = !current.output;
}

bool AudioDevice::availableDevices(QStringList& devices, QString& defaultDevice)
{
    bool const all = alcIsExtensionPresent(nullptr, "ALC_ENUMERATE_ALL_EXT");
    if (!all && !alcIsExtensionPresent(nullptr, "ALC_ENUMERATION_EXT")) {
        LOG_INFO("Audio device enumeration not supported on Linux");
        return false;
    }
    devices = AudioDriver().deviceNames();
    defaultDevice = QString::fromUtf8(
        alcGetString(nullptr, all ? ALC_DEFAULT_ALL_DEVICES_SPECIFIER : ALC_DEFAULT_DEVICE_SPECIFIER));
    LOG_INFO("Default audio device was %s", qPrintable(defaultDevice));
    return true;
}

std::unique_ptr<AudioOutput> AudioDevice::openOutput(std::shared_ptr<AudioDriver> const& driver, QString const& name)
{
    return AudioOutput::open(driver, name == defaultDeviceName ? QString() : name);
}

AudioDevice::Opened AudioDevice::openOutputOrDefault(std::shared_ptr<AudioDriver> const& driver, QString const& name,
                                                     std::function<bool()> const& isAwaited)
{
    bool const isDefault = name == defaultDeviceName;
    if (!isDefault) {
        LinuxAudioConfig(nullptr).setDevice(name);
        if (std::unique_ptr<AudioOutput> output = openOutput(driver, name))
            return {std::move(output), false};
        LOG_WARNING("Could not open audio device %s", qPrintable(name));
        if (!isAwaited())
            return {nullptr, true};
    }
    std::unique_ptr<AudioOutput> output = openOutput(driver, defaultDeviceName);
    if (!output)
        LOG_ERROR("Could not open defaut audio device");
    return {std::move(output), !isDefault};
}

bool AudioDevice::openDevice(QString const& name)
{
    closeDevice();
    _wantedDevice = name;
    Opened opened = openOutputOrDefault(_driver, name, [] { return true; });
    if (!opened.output)
        return false;
    replaceOutput(std::move(opened.output), opened.isFallback);
    return isOpen();
}

std::unique_ptr<AudioOutput> AudioDevice::awaitDevice(QString const& name)
{
    _wantedDevice = name;
    return replaceOutput(nullptr, false);
}

std::unique_ptr<AudioOutput> AudioDevice::replaceOutput(std::unique_ptr<AudioOutput> output, bool isFallback)
{
    if (!makeCurrent(output.get()))
        return output;
    _isFallback = isFallback;
    return std::exchange(_output, std::move(output));
}

bool AudioDevice::makeCurrent(AudioOutput const* output)
{
    CurrentContext& current = currentContext();
    std::lock_guard const lock(current.mutex);
    ALCcontext* const before = alcGetCurrentContext();
    bool const failed = !alcMakeContextCurrent(output ? output->context() : nullptr) ||
                        (output && checkForALError("alcMakeContextCurrent"));
    if (failed) {
        LOG_ERROR("Could not make audio device context current.");
        alcMakeContextCurrent(before);
        return false;
    }
    ++current.generation;
    current.awaited = !output;
    current.absent = false;
    current.output = output;
    return true;
}

void AudioDevice::closeDevice()
{
    if (_output)
        replaceOutput(nullptr, false);
    _wantedDevice.clear();
    CurrentContext& current = currentContext();
    std::lock_guard const lock(current.mutex);
    current.awaited = false;
}

bool AudioDevice::isConnected() const
{
    return _output && _output->isConnected();
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
