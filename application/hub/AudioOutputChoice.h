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
/// AudioDeviceWatch. Main thread only, which does not wait for a device; only where no setting names one yet, for the
/// list of those there are.
class AudioOutputChoice : public QObject
{
    Q_OBJECT

public:
    /// All are borrowed and outlive this.
    AudioOutputChoice(AppSettings& settings, AudioDevice& device, TimerFactory* timers, QObject* parent = nullptr);

    /// Makes the setting one that exists, and has that opened on another thread; without one that opens there is no
    /// sound. From then on follows the setting.
    void begin();

    /// Opens what the setting says, if that is another device than before: later, on another thread.
    void follow();

signals:
    /// The setting has been another one for a moment: follow() is to be called.
    void changed();
    /// There is no sound, or not from where the viewer has chosen: in words.
    void failed(QString const& text);

private:
    void choose();
    void onChosen(AudioDeviceWatch::Outcome outcome);

    static Logger* log;

    AppSettings& _settings;
    AudioDevice& _device;
    TimerFactory* const _timers;
    QTimer _timer; ///< Until the chosen device is opened.
    std::optional<AudioDeviceWatch> _watch;
    bool _isViewersChoice = false; ///< The device that is opened, rather than the start's.
};
