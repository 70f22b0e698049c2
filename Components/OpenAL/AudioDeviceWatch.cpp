#include "AudioDeviceWatch.h"

#include "AudioDevice.h"
#include "AudioDriver.h"
#include "AudioOutput.h"
#include "DetachedThreads.h"
#include "LinuxAudioConfig.h"
#include "Logger.h"
#include "LoggerManager.h"
#include "Timer.h"
#include "TimerFactory.h"

#include <algorithm>
#include <chrono>
#include <mutex>
#include <system_error>
#include <utility>

Logger* AudioDeviceWatch::log = LoggerManager::logger();

/// What the watch and its thread both know.
struct AudioDeviceWatch::Work {
    // Set before the thread starts, and not changed then.
    std::shared_ptr<AudioDriver> driver;
    QString wanted; ///< Empty when there is only something to close.
    bool wantedOnly = false;
    bool isChosen = false;       ///< By the viewer, who is told what became of it.
    unsigned int generation = 0; ///< AudioDevice's when the work began.

    // The thread's, until it has told of its end.
    std::vector<std::unique_ptr<AudioOutput>> gone;
    std::unique_ptr<AudioOutput> output;
    bool isFallback = false; ///< The output is not the wanted device.

    std::mutex mutex;                     ///< Guards what follows; held while the pointer is used.
    AudioDeviceWatch* receiver = nullptr; ///< Null once it is gone.

    void run();
    /// Whether anybody waits for a device still. Any thread.
    bool isAwaited();
};

void AudioDeviceWatch::Work::run()
{
    gone.clear();
    if (wanted.isEmpty())
        return;
    if (isChosen) {
        AudioDevice::Opened opened = AudioDevice::openOutputOrDefault(driver, wanted, [this] { return isAwaited(); });
        output = std::move(opened.output);
        isFallback = opened.isFallback;
        return;
    }
    bool const isGeneric = LinuxAudioConfig::isGeneric(wanted);
    if (!isGeneric && driver->deviceNames().contains(wanted))
        output = AudioDevice::openOutput(driver, wanted);
    if (output || wantedOnly || !isAwaited())
        return;
    output = AudioDevice::openOutput(driver, QStringLiteral("default"));
    isFallback = !isGeneric;
}

bool AudioDeviceWatch::Work::isAwaited()
{
    std::lock_guard const lock(mutex);
    return receiver != nullptr;
}

AudioDeviceWatch::AudioDeviceWatch(AudioDevice& device, TimerFactory* timerFactory, QObject* parent)
    : QObject(parent), _device(device), _timerFactory(timerFactory), _timer(timerFactory->createTimer())
{
    _timer->setSingleShot(true);
    connect(_timer, &Timer::timeout, this, &AudioDeviceWatch::poll);
    connect(this, &AudioDeviceWatch::worked, this, &AudioDeviceWatch::onWorked, Qt::QueuedConnection);
    wait(pollInterval);
}

AudioDeviceWatch::~AudioDeviceWatch()
{
    _timer->disconnect(this);
    _timer->stop();
    _timerFactory->disposeTimer(_timer);
    if (_work) {
        std::lock_guard const lock(_work->mutex);
        _work->receiver = nullptr;
    }
}

void AudioDeviceWatch::wait(int milliseconds)
{
    _timer->start(milliseconds);
}

void AudioDeviceWatch::poll()
{
    if (_device.wantedDevice().isEmpty()) {
        wait(pollInterval); // Closed on purpose.
    } else if (!_device.isOpen()) {
        open(false);
    } else if (!_device.isConnected()) {
        onLost();
    } else {
        if (++_polls >= pollsToLast)
            _retryDelay = 0;
        if (isWantedMissing() && _polls % pollsPerLook == 0)
            open(true);
        else
            wait(pollInterval);
    }
}

bool AudioDeviceWatch::isWantedMissing() const
{
    return _device.isFallback() && !LinuxAudioConfig::isGeneric(_device.wantedDevice());
}

void AudioDeviceWatch::onLost()
{
    LOG_WARNING("The sound device has gone");
    // From now on there is none: sources on a device that has gone swallow all they are given at once.
    _gone.push_back(_device.replaceOutput(nullptr, false));
    if (_retryDelay == 0)
        open(false);
    else
        wait(_retryDelay);
}

void AudioDeviceWatch::open(bool wantedOnly)
{
    if (!wantedOnly)
        lengthenRetryDelay();
    auto const work = std::make_shared<Work>();
    work->driver = _device.driver();
    work->wanted = _device.wantedDevice();
    work->wantedOnly = wantedOnly;
    begin(work);
}

void AudioDeviceWatch::lengthenRetryDelay()
{
    _retryDelay = std::clamp(2 * _retryDelay, shortestRetry, longestRetry);
}

void AudioDeviceWatch::choose(QString const& name)
{
    if (std::unique_ptr<AudioOutput> before = _device.awaitDevice(name))
        _gone.push_back(std::move(before));
    _isChoiceNew = true;
    if (!_work)
        openChosen();
}

void AudioDeviceWatch::openChosen()
{
    _timer->stop();
    _isChoiceNew = false;
    _retryDelay = 0;
    lengthenRetryDelay();
    auto const work = std::make_shared<Work>();
    work->driver = _device.driver();
    work->wanted = _device.wantedDevice();
    work->isChosen = true;
    begin(work);
}

void AudioDeviceWatch::begin(std::shared_ptr<Work> const& work)
{
    work->generation = AudioDevice::generation();
    work->gone = std::exchange(_gone, {});
    work->receiver = this;
    auto const run = [work] {
        work->run();
        std::lock_guard const lock(work->mutex);
        if (work->receiver)
            emit work->receiver->worked(); // Queued: it only posts.
    };
    static DetachedThreads& threads = DetachedThreads::make(std::chrono::seconds(2));
    try {
        threads.start(run);
        _work = work;
    } catch (std::system_error const& failure) {
        LOG_ERROR("Could not look for a sound device: %s", failure.what());
        _gone = std::move(work->gone);
        wait(longestRetry);
    }
}

void AudioDeviceWatch::onWorked()
{
    std::shared_ptr<Work> const work = std::exchange(_work, nullptr);
    std::unique_ptr<AudioOutput> output;
    {
        std::lock_guard const lock(work->mutex);
        output = std::move(work->output);
    }
    // Another device may have been chosen in the meantime.
    bool const isTimely = work->generation == AudioDevice::generation() && work->wanted == _device.wantedDevice();
    if (output && isTimely)
        adopt(std::move(output), work->isFallback);
    else if (output)
        _gone.push_back(std::move(output));
    if (_isChoiceNew)
        return openChosen();
    if (work->isChosen && isTimely)
        tellChosen(*work);
    if (_isChoiceNew || _work)
        return; // Who was told has chosen again.
    if (!_gone.empty())
        begin(std::make_shared<Work>());
    else
        wait(_device.isOpen() ? pollInterval : _retryDelay);
}

void AudioDeviceWatch::tellChosen(Work const& work)
{
    if (!_device.isOpen())
        emit chosen(Outcome::NothingOpened);
    else
        emit chosen(work.isFallback ? Outcome::DefaultOpened : Outcome::Opened);
}

void AudioDeviceWatch::adopt(std::unique_ptr<AudioOutput> output, bool isFallback)
{
    AudioOutput const* const adopted = output.get();
    std::unique_ptr<AudioOutput> unused = _device.replaceOutput(std::move(output), isFallback);
    bool const isUnusable = unused.get() == adopted;
    if (unused)
        _gone.push_back(std::move(unused));
    if (isUnusable)
        return;
    _polls = 0;
    if (isFallback)
        LOG_INFO("Sound goes on without %s", qPrintable(_device.wantedDevice()));
    else
        LOG_INFO("Sound goes to %s", qPrintable(_device.wantedDevice()));
}
