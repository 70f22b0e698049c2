#pragma once

#include <QString>
#include <QStringList>

struct ALCcontext_struct;
struct ALCdevice_struct;

/// OpenAL's calls that reach for the sound system, where tests step in. Any thread; all but isConnected() may wait
/// for a sound server.
class AudioDriver
{
public:
    AudioDriver() = default;
    virtual ~AudioDriver() = default;
    AudioDriver(AudioDriver const&) = delete;
    AudioDriver& operator=(AudioDriver const&) = delete;

    /// The devices that are there now; empty when the library cannot tell.
    virtual QStringList deviceNames();

    /// Opens a device, or the library's own choice for an empty name; null when it cannot. Closed with closeDevice().
    virtual ALCdevice_struct* openDevice(QString const& name);
    virtual void closeDevice(ALCdevice_struct* device);

    /// Makes a context on a device, with a list of attributes that ends with 0; null when it cannot.
    virtual ALCcontext_struct* createContext(ALCdevice_struct* device, int const* attributes);

    /// Whether an open device still is there. What cannot be asked (ALC_EXT_disconnect) is.
    virtual bool isConnected(ALCdevice_struct* device);
};
