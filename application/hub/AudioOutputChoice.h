#pragma once

#include "AudioDeviceWatch.h"

#include <QObject>
#include <QTimer>

#include <optional>

class AppSettings;
class AudioDevice;
class Logger;
class TimerFactory;

/// Which sound device is opened: the one of the settings, or one that exists in its place; and that it stays so, see
/// AudioDeviceWatch. Main thread only, which waits neither for a device nor for the list of those there are: a sound
/// server may never answer.
class AudioOutputChoice : public QObject
{
    Q_OBJECT

public:
    /// All are borrowed and outlive this.
    AudioOutputChoice(AppSettings& settings, AudioDevice& device, TimerFactory* timers, QObject* parent = nullptr);

    /// Makes the setting one that exists, and has that opened, both on other threads; without one that opens there is
    /// no sound. From then on follows the setting.
    void begin();

    /// Opens what the setting says, if that is another device than before: later, on another thread.
    void follow();

signals:
    /// The setting has been another one for a moment: follow() is to be called.
    void changed();
    /// There is no sound, or not from where the viewer has chosen: in words.
    void failed(QString const& text);

private:
    void watch(QString const& setting, QString const& device);
    void onChosen(AudioDeviceWatch::Outcome outcome);

    static Logger* log;

    AppSettings& _settings;
    AudioDevice& _device;
    TimerFactory* const _timers;
    QTimer _timer;                          ///< Until the chosen device is opened.
    std::optional<AudioDeviceWatch> _watch; ///< Once it is known which devices there are.
    bool _isViewersChoice = false;          ///< The device that is opened, rather than the start's.
};
