#pragma once

#include <QObject>
#include <QString>

#include <memory>
#include <vector>

class AudioDevice;
class AudioOutput;
class Logger;
class Timer;
class TimerFactory;

/// Keeps the sound: opens the device that is chosen, and a device that goes away is replaced by the library's own
/// choice, and the device that was asked for comes back when it does. Without any it tries again, after 2 s at first
/// and 10 s at last.
///
/// Lives on the thread of the AudioDevice and never waits there: devices are opened, and those that have gone are
/// closed, on a thread of its own, one at a time. A thread that still blocks when the watch ends is left behind and
/// ends without effect. What is chosen last stands, and so does an openDevice() or closeDevice() in between.
class AudioDeviceWatch : public QObject
{
    Q_OBJECT

public:
    static constexpr int pollInterval = 1000;  ///< ms between two looks whether the device still is there.
    static constexpr int pollsPerLook = 5;     ///< Every so many polls, look whether the wanted device is back.
    static constexpr int pollsToLast = 10;     ///< A device that was there for so many polls has come to stay.
    static constexpr int shortestRetry = 2000; ///< ms before a second attempt.
    static constexpr int longestRetry = 10000; ///< ms between attempts at last.

    /// Both are borrowed and outlive the watch, which begins at once.
    AudioDeviceWatch(AudioDevice& device, TimerFactory* timerFactory, QObject* parent = nullptr);
    ~AudioDeviceWatch() override;

    /// What became of a choice.
    enum class Outcome { Opened, DefaultOpened, NothingOpened };
    Q_ENUM(Outcome)

    /// Opens the named device in place of the one that is open, as AudioDevice::openDevice() does. There is no sound
    /// until then. Of several choices that are made meanwhile the last counts, and it alone is told of.
    void choose(QString const& name);

signals:
    void chosen(Outcome outcome);
    /// The thread has done its work. For this object only.
    void worked();

private:
    struct Work;

    void poll();
    void onLost();
    void wait(int milliseconds);
    bool isWantedMissing() const;
    void open(bool wantedOnly);
    void openChosen();
    void lengthenRetryDelay();
    void begin(std::shared_ptr<Work> const& work);
    void onWorked();
    void tellChosen(Work const& work);
    void adopt(std::unique_ptr<AudioOutput> output, bool isFallback);

    static Logger* log;

    AudioDevice& _device;
    TimerFactory* const _timerFactory;
    Timer* const _timer;                             ///< Single-shot; rests while a thread works.
    std::shared_ptr<Work> _work;                     ///< With the thread that works; null when none does.
    std::vector<std::unique_ptr<AudioOutput>> _gone; ///< What the next work closes.
    bool _isChoiceNew = false;                       ///< It is opened when the work that is under way has ended.
    int _retryDelay = 0;                             ///< ms before the next attempt; grows until a device lasts.
    int _polls = 0;                                  ///< Since the device that is in use came.
};
