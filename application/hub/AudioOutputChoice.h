#pragma once

class AppSettings;
class AudioDevice;
class Logger;

/// Which sound device is opened: the one of the settings, or one that exists in its place. Main thread only.
class AudioOutputChoice
{
public:
    /// Both are borrowed.
    AudioOutputChoice(AppSettings& settings, AudioDevice& device) : _settings(settings), _device(device) {}

    /// Makes the setting one that exists.
    void choose();
    /// Opens what the setting says; without one that opens there is no sound.
    void open();

private:
    static Logger* log;

    AppSettings& _settings;
    AudioDevice& _device;
};
