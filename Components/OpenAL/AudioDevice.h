#pragma once

#include <QString>
#include <QStringList>

#include <functional>
#include <memory>
#include <shared_mutex>

class AudioDriver;
class AudioOutput;
class Logger;

/// The sound output of the whole application: one OpenAL device with one context, current for the process.
///
/// Lives on the main thread. Any thread may call OpenAL while there is a device, which is how movies use it; but the
/// device may be replaced at any moment, and all sources and buffers are gone then. So who calls OpenAL holds
/// contextMutex() shared around the calls that belong together, never while waiting, and compares generation() there
/// with that of the names it holds: where they differ the names mean nothing, not even to delete them. A context
/// whose names someone may still use is never destroyed. Without a device everything else works, silently.
class AudioDevice
{
public:
    AudioDevice();
    /// With other calls than OpenAL's own.
    explicit AudioDevice(std::shared_ptr<AudioDriver> driver);
    ~AudioDevice();
    AudioDevice(AudioDevice const&) = delete;
    AudioDevice& operator=(AudioDevice const&) = delete;

    /// Fills in the devices that OpenAL offers and which of them is the default.
    /// Returns false, with nothing changed, when the library cannot tell.
    static bool availableDevices(QStringList& devices, QString& defaultDevice);

    /// Counts the changes of the current context: to another, to none, from none. To be read under contextMutex().
    static unsigned int generation();

    /// Held shared by whoever calls OpenAL, and for a moment alone when the current context changes.
    static std::shared_mutex& contextMutex();

    /// Whether there is a current context whose device still is there. Under contextMutex(), on any thread. A device
    /// that has gone plays what it is given at once, until it is taken away: who finds a source stopped asks here
    /// before starting it again.
    static bool isPresent();

    /// Whether the device that was open has gone, and another is being looked for. Under contextMutex(), on any
    /// thread.
    static bool isAwaited();

    /// Whether there has been none since it was awaited, see noteAbsence(). Under contextMutex(), on any thread.
    static bool isAbsent();

    /// The device that is awaited was looked for, and there is none: sound alone is not to begin until one comes.
    void noteAbsence();

    /// Opens the named device in place of the one that is open, and falls back on the library's own choice when there
    /// is no such device. A name other than "default" is also written to the user's OpenAL configuration.
    /// Returns whether there is sound now. May wait for a sound server.
    bool openDevice(QString const& name);

    /// Takes away the device that is open, since the named one is to take its place, and returns it. Until
    /// replaceOutput() brings that, sound is awaited. Does not wait for the sound system.
    std::unique_ptr<AudioOutput> awaitDevice(QString const& name);

    /// Closes the device, if one is open. All sources and buffers are gone then.
    void closeDevice();

    bool isOpen() const { return _output != nullptr; }

    /// Whether the open device still is there. Does not wait.
    bool isConnected() const;

    /// Whether the open device is the library's own choice in place of wantedDevice().
    bool isFallback() const { return _isFallback; }

    /// The name that openDevice() or awaitDevice() was called with for the device that is open; empty when none is.
    QString deviceName() const { return isOpen() ? _wantedDevice : QString(); }

    /// The name that one of them was called with last; empty after closeDevice().
    QString wantedDevice() const { return _wantedDevice; }

    std::shared_ptr<AudioDriver> driver() const { return _driver; }

    /// Opens a device by its name, "default" for the library's own choice. Null when it cannot. On any thread.
    static std::unique_ptr<AudioOutput> openOutput(std::shared_ptr<AudioDriver> const& driver, QString const& name);

    struct Opened {
        std::unique_ptr<AudioOutput> output; ///< Null for none.
        bool isFallback;                     ///< It is the library's own choice in place of the named one.
    };
    /// What openDevice() opens, and writes to the configuration. On any thread, where it is also asked whether a
    /// device is awaited still before the library's own choice takes another while.
    static Opened openOutputOrDefault(std::shared_ptr<AudioDriver> const& driver, QString const& name,
                                      std::function<bool()> const& isAwaited);

    /// Puts an open device, or null for none, in place of what there is. Does not wait for the sound system. Returns
    /// what is not in use then, which is the new one if its context cannot become current.
    std::unique_ptr<AudioOutput> replaceOutput(std::unique_ptr<AudioOutput> output, bool isFallback);

    /// Reads OpenAL's error state of the calling thread's context. Returns true, with a log line that begins with
    /// `where`, when a call since the last check has failed.
    static bool checkForALError(char const* where);

private:
    static bool makeCurrent(AudioOutput const* output);

    std::shared_ptr<AudioDriver> const _driver;
    std::unique_ptr<AudioOutput> _output;
    QString _wantedDevice;
    bool _isFallback = false;

    static Logger* log;
};
