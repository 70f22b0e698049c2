#pragma once

#include <QString>
#include <QStringList>

class Logger;
struct ALCcontext_struct;
struct ALCdevice_struct;

/// The sound output of the whole application: one OpenAL device with one context, current for the process.
///
/// Opened and closed on the main thread, while nothing plays. While it is open any thread may call OpenAL, which is
/// how movies use it. Without a device everything else works, silently.
class AudioDevice
{
public:
    AudioDevice() = default;
    ~AudioDevice();
    AudioDevice(AudioDevice const&) = delete;
    AudioDevice& operator=(AudioDevice const&) = delete;

    /// Fills in the devices that OpenAL offers and which of them is the default.
    /// Returns false, with nothing changed, when the library cannot tell.
    static bool availableDevices(QStringList& devices, QString& defaultDevice);

    /// Opens the named device in place of the one that is open, and falls back on the library's own choice when there
    /// is no such device. A name other than "default" is also written to the user's OpenAL configuration.
    /// Returns whether there is sound now.
    bool openDevice(QString const& name);

    /// Closes the device, if one is open. All sources and buffers are gone then.
    void closeDevice();

    bool isOpen() const { return _context != nullptr; }

    /// The name that openDevice() was called with for the device that is open; empty when none is.
    QString deviceName() const { return _deviceName; }

    /// Reads OpenAL's error state of the calling thread's context. Returns true, with a log line that begins with
    /// `where`, when a call since the last check has failed.
    static bool checkForALError(char const* where);

private:
    bool createContext();

    ALCdevice_struct* _device = nullptr;
    ALCcontext_struct* _context = nullptr;
    QString _deviceName;

    static Logger* log;
};
