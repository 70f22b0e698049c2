#include "AudioDriver.h"

#include <AL/alc.h>
#include <AL/alext.h>
#include <cstring>

QStringList AudioDriver::deviceNames()
{
    bool const all = alcIsExtensionPresent(nullptr, "ALC_ENUMERATE_ALL_EXT");
    if (!all && !alcIsExtensionPresent(nullptr, "ALC_ENUMERATION_EXT"))
        return {};
    // Texts that each end with a zero byte, and one more zero byte.
    char const* list = alcGetString(nullptr, all ? ALC_ALL_DEVICES_SPECIFIER : ALC_DEVICE_SPECIFIER);
    QStringList names;
    for (; list && *list; list += std::strlen(list) + 1)
        names.append(QString::fromUtf8(list));
    return names;
}

ALCdevice* AudioDriver::openDevice(QString const& name)
{
    return alcOpenDevice(name.isEmpty() ? nullptr : name.toUtf8().constData());
}

void AudioDriver::closeDevice(ALCdevice* device)
{
    alcCloseDevice(device);
}

ALCcontext* AudioDriver::createContext(ALCdevice* device, int const* attributes)
{
    return alcCreateContext(device, attributes);
}

bool AudioDriver::isConnected(ALCdevice* device)
{
    if (!alcIsExtensionPresent(device, "ALC_EXT_disconnect"))
        return true;
    ALCint connected = ALC_TRUE;
    alcGetIntegerv(device, ALC_CONNECTED, 1, &connected);
    return connected != ALC_FALSE;
}
