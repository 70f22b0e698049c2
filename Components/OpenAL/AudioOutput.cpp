#include "AudioOutput.h"

#include "AudioDriver.h"
#include "Logger.h"
#include "LoggerManager.h"

#include <AL/alc.h>
#include <AL/alext.h>
#include <array>

Logger* AudioOutput::log = LoggerManager::logger();

std::unique_ptr<AudioOutput> AudioOutput::open(std::shared_ptr<AudioDriver> driver, QString const& name)
{
    ALCdevice* const device = driver->openDevice(name);
    if (!device)
        return nullptr;
    LOG_INFO("Using audio device %s", alcGetString(device, ALC_DEVICE_SPECIFIER));
    std::unique_ptr<AudioOutput> output(new AudioOutput(std::move(driver), device));
    if (output->_context)
        return output;
    LOG_ERROR("Could not create audio device context");
    return nullptr;
}

AudioOutput::AudioOutput(std::shared_ptr<AudioDriver> driver, ALCdevice* device)
    : _driver(std::move(driver)), _device(device)
{
    // What a film plays needs no limiter, which costs as much as the rest of the mixer.
    std::array<ALCint, 3> attributes{ALC_OUTPUT_LIMITER_SOFT, ALC_FALSE, 0};
    if (!alcIsExtensionPresent(_device, "ALC_SOFT_output_limiter"))
        attributes[0] = 0;
    _context = _driver->createContext(_device, attributes.data());
}

AudioOutput::~AudioOutput()
{
    if (_context)
        alcDestroyContext(_context);
    _driver->closeDevice(_device);
}

bool AudioOutput::isConnected() const
{
    return _driver->isConnected(_device);
}
