#pragma once

#include <QString>

#include <memory>

class AudioDriver;
class Logger;
struct ALCcontext_struct;
struct ALCdevice_struct;

/// An open OpenAL device with one context. Made and destroyed on any thread, both of which may wait for a sound
/// server; AudioDevice makes the context current.
class AudioOutput
{
public:
    /// Opens the named device, or the library's own choice for an empty name. Null when it cannot: without a word
    /// when there is no such device, with a log line when it has no context to give.
    static std::unique_ptr<AudioOutput> open(std::shared_ptr<AudioDriver> driver, QString const& name);

    /// Closes both. The context is not current any more.
    ~AudioOutput();
    AudioOutput(AudioOutput const&) = delete;
    AudioOutput& operator=(AudioOutput const&) = delete;

    ALCcontext_struct* context() const { return _context; }

    /// Whether the device still is there. Does not wait.
    bool isConnected() const;

private:
    AudioOutput(std::shared_ptr<AudioDriver> driver, ALCdevice_struct* device);

    static Logger* log;

    std::shared_ptr<AudioDriver> const _driver;
    ALCdevice_struct* const _device;
    ALCcontext_struct* _context = nullptr;
};
