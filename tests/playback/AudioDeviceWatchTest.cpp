#include "AudioDeviceWatch.h"

#include "AudioDevice.h"
#include "AudioDriver.h"
#include "AudioOutput.h"
#include "EventLoop.h"
#include "FakeTimerFactory.h"
#include "GLMovieAudioSource.h"

#include <AL/al.h>
#include <AL/alc.h>
#include <AL/alext.h>
#include <atomic>
#include <condition_variable>
#include <future>
#include <gmock/gmock.h>
#include <mutex>
#include <set>

namespace
{

/// OpenAL's null devices, under any name, which come and go as they are told.
class FakeAudioDriver : public AudioDriver
{
public:
    QStringList deviceNames() override
    {
        std::lock_guard const lock(_mutex);
        return _names;
    }

    ALCdevice* openDevice(QString const& name) override
    {
        std::unique_lock lock(_mutex);
        _asked.append(name);
        _changed.wait(lock, [this] { return !_blocked; });
        if (!name.isEmpty() ? !_names.contains(name) : !_hasDefault)
            return nullptr;
        return AudioDriver::openDevice({});
    }

    ALCcontext* createContext(ALCdevice* device, int const* attributes) override
    {
        _limiter = attributes[0] == ALC_OUTPUT_LIMITER_SOFT ? attributes[1] : ALC_TRUE;
        return AudioDriver::createContext(device, attributes);
    }

    void closeDevice(ALCdevice* device) override
    {
        std::lock_guard const lock(_mutex);
        _gone.erase(device);
        AudioDriver::closeDevice(device);
    }

    bool isConnected(ALCdevice* device) override
    {
        std::lock_guard const lock(_mutex);
        return _gone.count(device) == 0;
    }

    /// What there is to be opened from now on.
    void offer(QStringList const& names, bool hasDefault)
    {
        std::lock_guard const lock(_mutex);
        _names = names;
        _hasDefault = hasDefault;
    }

    /// The device that is in use goes away.
    void pull()
    {
        std::lock_guard const lock(_mutex);
        _gone.insert(alcGetContextsDevice(alcGetCurrentContext()));
    }

    void block(bool blocked)
    {
        std::lock_guard const lock(_mutex);
        _blocked = blocked;
        _changed.notify_all();
    }

    /// The devices asked for since the last call.
    QStringList asked()
    {
        std::lock_guard const lock(_mutex);
        return std::exchange(_asked, {});
    }

    std::atomic<int> _limiter{-1}; ///< As the last context was asked for.

private:
    std::mutex _mutex; ///< Guards what follows.
    std::condition_variable _changed;
    bool _blocked = false;
    bool _hasDefault = true;
    QStringList _names;
    QStringList _asked;
    std::set<ALCdevice*> _gone;
};

class AudioDeviceWatchTest : public testing::Test
{
protected:
    AudioDeviceWatchTest() { qputenv("ALSOFT_DRIVERS", "null"); }

    /// Lets time pass until the watch has polled, and waits for what it does then.
    void poll(int times = 1)
    {
        for (int i = 0; i < times; ++i) {
            ASSERT_TRUE(processEventsUntil([this] { return timer().isActive(); }));
            _timers.advance(timer().interval());
        }
        ASSERT_TRUE(processEventsUntil([this] { return timer().isActive(); }));
    }

    FakeTimer& timer() { return *_timers.timers().constFirst(); }

    static bool canPlay()
    {
        ALuint source = 0;
        alGenSources(1, &source);
        return alGetError() == AL_NO_ERROR && alIsSource(source);
    }

    std::shared_ptr<FakeAudioDriver> _driver = std::make_shared<FakeAudioDriver>();
    FakeTickCounter _clock;
    FakeTimerFactory _timers{_clock};
    AudioDevice _device{_driver};
    AudioDeviceWatch _watch{_device, &_timers};
};

} // namespace

TEST_F(AudioDeviceWatchTest, ALostDeviceIsReplacedByTheDefaultAndTakenBackWhenItComesBack)
{
    _driver->offer({"Headset"}, true);
    ASSERT_TRUE(_device.openDevice("Headset"));
    EXPECT_EQ(_driver->_limiter, ALC_FALSE);
    unsigned int const first = AudioDevice::generation();
    poll(2 * AudioDeviceWatch::pollsToLast);
    EXPECT_EQ(_driver->asked(), QStringList{"Headset"});

    _driver->offer({}, true);
    EXPECT_TRUE(AudioDevice::isPresent());
    _driver->pull();
    EXPECT_FALSE(AudioDevice::isPresent());
    _driver->block(true);
    _timers.advance(AudioDeviceWatch::pollInterval); // The thread now waits for the sound system; this one does not.
    EXPECT_FALSE(_device.isOpen());
    EXPECT_EQ(alcGetCurrentContext(), nullptr);
    EXPECT_EQ(AudioDevice::generation(), first + 1);
    _driver->block(false);
    ASSERT_TRUE(processEventsUntil([this] { return _device.isOpen(); }));
    EXPECT_EQ(_driver->asked(), QStringList{""});
    EXPECT_TRUE(_device.isFallback());
    EXPECT_TRUE(canPlay());

    poll(AudioDeviceWatch::pollsPerLook);
    EXPECT_TRUE(_device.isFallback());
    _driver->offer({"Headset"}, true);
    poll(AudioDeviceWatch::pollsPerLook);
    EXPECT_FALSE(_device.isFallback());
    EXPECT_EQ(_driver->asked(), QStringList{"Headset"});
    EXPECT_EQ(_device.deviceName(), "Headset");
    EXPECT_EQ(AudioDevice::generation(), first + 3);
    EXPECT_TRUE(canPlay());
}

TEST_F(AudioDeviceWatchTest, WithoutAnyDeviceItTriesAgainAndWaitsLongerEachTime)
{
    ASSERT_TRUE(_device.openDevice("default"));
    _driver->offer({}, false);
    _driver->pull();
    for (int const expected : {2000, 4000, 8000, 10000, 10000}) {
        poll();
        EXPECT_FALSE(_device.isOpen());
        EXPECT_EQ(timer().interval(), expected);
    }
    _driver->offer({}, true);
    poll();
    EXPECT_TRUE(_device.isOpen());
    EXPECT_FALSE(_device.isFallback());

    // One that goes at once is no reason to begin anew; one that has lasted is.
    _driver->pull();
    poll();
    EXPECT_EQ(timer().interval(), AudioDeviceWatch::longestRetry);
    poll(1 + AudioDeviceWatch::pollsToLast);
    EXPECT_TRUE(_device.isOpen());
    _driver->pull();
    poll();
    EXPECT_TRUE(_device.isOpen());
}

TEST_F(AudioDeviceWatchTest, SoundAloneIsRefusedOnlyWhileThereHasBeenNoDevice)
{
    _driver->offer({}, false);
    _device.awaitDevice("default");
    EXPECT_TRUE(GLMovieAudioSource::isDeviceExpected(true));
    _device.noteAbsence();
    poll();
    EXPECT_FALSE(GLMovieAudioSource::isDeviceExpected(true));
    EXPECT_TRUE(GLMovieAudioSource::isDeviceExpected(false));
    _driver->offer({}, true);
    poll();
    EXPECT_TRUE(GLMovieAudioSource::isDeviceExpected(true));
    _driver->pull(); // One that was there may be back.
    EXPECT_TRUE(GLMovieAudioSource::isDeviceExpected(true));
}

TEST_F(AudioDeviceWatchTest, OfQuickChoicesTheLastIsOpenedAndToldOfWithoutWaiting)
{
    using Outcome = AudioDeviceWatch::Outcome;
    _driver->offer({"Headset", "Speakers"}, true);
    ASSERT_TRUE(_device.openDevice("default"));
    _driver->asked();
    QList<Outcome> told;
    QObject::connect(&_watch, &AudioDeviceWatch::chosen, [&told](Outcome outcome) { told.append(outcome); });
    auto const isTold = [&told] { return !told.isEmpty(); };

    _driver->block(true);
    for (char const* const name : {"Headset", "Nothing", "Speakers"})
        _watch.choose(name);
    EXPECT_FALSE(_device.isOpen());
    EXPECT_TRUE(AudioDevice::isAwaited());
    EXPECT_EQ(_device.wantedDevice(), "Speakers");
    _driver->block(false);
    ASSERT_TRUE(processEventsUntil(isTold));
    EXPECT_EQ(_driver->asked(), QStringList({"Headset", "Speakers"}));
    EXPECT_EQ(_device.deviceName(), "Speakers");
    EXPECT_TRUE(canPlay());

    _watch.choose("Nothing");
    ASSERT_TRUE(processEventsUntil([&told] { return told.size() == 2; }));
    EXPECT_TRUE(_device.isFallback());
    _driver->offer({}, false);
    _watch.choose("Headset");
    ASSERT_TRUE(processEventsUntil([&told] { return told.size() == 3; }));
    EXPECT_EQ(told, QList<Outcome>({Outcome::Opened, Outcome::DefaultOpened, Outcome::NothingOpened}));
    _driver->offer({"Headset"}, true);
    poll();
    EXPECT_EQ(_device.deviceName(), "Headset") << "it is looked for as one that has gone";
}

TEST_F(AudioDeviceWatchTest, WhatIsChosenWhileItLooksStands)
{
    ASSERT_TRUE(_device.openDevice("default"));
    _driver->pull();
    _driver->block(true);
    _timers.advance(AudioDeviceWatch::pollInterval);
    ASSERT_TRUE(processEventsUntil([this] { return _driver->asked().size() > 0; }));
    EXPECT_FALSE(_device.isOpen());
    _driver->block(false);
    _driver->offer({"Speakers"}, true);
    ASSERT_TRUE(_device.openDevice("Speakers"));
    ALCcontext* const chosen = alcGetCurrentContext();
    poll();
    EXPECT_EQ(alcGetCurrentContext(), chosen);
    _device.closeDevice();
    poll(3);
    EXPECT_FALSE(_device.isOpen()) << "What is closed on purpose stays closed";
}

TEST_F(AudioDeviceWatchTest, AThreadThatNobodyWaitsForOpensNothingMore)
{
    auto const asked = std::make_shared<std::promise<QStringList>>();
    std::shared_ptr<FakeAudioDriver> driver(new FakeAudioDriver, [asked](FakeAudioDriver* ended) {
        asked->set_value(ended->asked());
        delete ended;
    });
    auto device = std::make_unique<AudioDevice>(driver);
    auto watch = std::make_unique<AudioDeviceWatch>(*device, &_timers);
    driver->block(true);
    watch->choose("Nothing");
    watch.reset();
    device.reset();
    driver->block(false);
    driver.reset(); // The thread has the last.
    EXPECT_EQ(asked->get_future().get(), QStringList{"Nothing"}) << "not even the library's own choice";
}
