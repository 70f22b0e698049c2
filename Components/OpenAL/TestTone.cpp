#include "TestTone.h"

#include "AudioDevice.h"
#include "AudioDriver.h"
#include "AudioOutput.h"
#include "DetachedThreads.h"
#include "LinuxAudioConfig.h"

#include <AL/al.h>
#include <AL/alc.h>
#include <AL/alext.h>
#include <chrono>
#include <cmath>
#include <cstdint>
#include <mutex>
#include <numbers>
#include <thread>
#include <vector>

using namespace std::chrono_literals;

/// What the thread and the object share.
struct TestTone::Work {
    std::mutex mutex;          ///< Guards both.
    TestTone* owner = nullptr; ///< Null once it has gone.
    Outcome outcome = Outcome::Failed;
};

namespace
{

constexpr auto longestTone = std::chrono::milliseconds(TestTone::duration) + 3s;
constexpr double frequency = 440.0; // Hz
constexpr double loudness = 0.25;
constexpr int rampSamples = TestTone::rate / 50; // No click at either end.

std::vector<std::int16_t> samples()
{
    constexpr int count = TestTone::rate * TestTone::duration / 1000;
    std::vector<std::int16_t> tone(count);
    for (int i = 0; i < count; ++i) {
        double const ramp =
            std::min({1.0, static_cast<double>(i) / rampSamples, static_cast<double>(count - 1 - i) / rampSamples});
        double const angle = 2.0 * std::numbers::pi * frequency * i / TestTone::rate;
        tone[static_cast<size_t>(i)] = static_cast<std::int16_t>(32767.0 * loudness * ramp * std::sin(angle));
    }
    return tone;
}

/// Has the OpenAL calls of this thread go to a context, whatever is current for the others
/// (ALC_EXT_thread_local_context).
class ThreadContext
{
public:
    explicit ThreadContext(ALCcontext* context)
        : _set(reinterpret_cast<PFNALCSETTHREADCONTEXTPROC>(alcGetProcAddress(nullptr, "alcSetThreadContext")))
    {
        _isSet = _set && _set(context) == ALC_TRUE;
    }
    ~ThreadContext()
    {
        if (_isSet)
            _set(nullptr);
    }
    ThreadContext(ThreadContext const&) = delete;
    ThreadContext& operator=(ThreadContext const&) = delete;
    bool isSet() const { return _isSet; }

private:
    PFNALCSETTHREADCONTEXTPROC const _set;
    bool _isSet = false;
};

} // namespace

TestTone::TestTone(std::shared_ptr<AudioDriver> driver, QObject* parent) : QObject(parent), _driver(std::move(driver))
{
    connect(
        this, &TestTone::worked, this,
        [this] {
            std::unique_lock lock(_work->mutex);
            Outcome const outcome = _work->outcome;
            lock.unlock();
            _work.reset();
            emit finished(outcome);
        },
        Qt::QueuedConnection);
}

TestTone::~TestTone()
{
    if (!_work)
        return;
    std::lock_guard const lock(_work->mutex);
    _work->owner = nullptr;
}

void TestTone::play(QString const& deviceName)
{
    if (_work)
        return;
    _work = std::make_shared<Work>();
    _work->owner = this;
    static DetachedThreads& threads = DetachedThreads::make(std::chrono::seconds(2));
    threads.start([work = _work, driver = _driver, deviceName] {
        Outcome const outcome = playOn(driver, deviceName);
        std::lock_guard const lock(work->mutex);
        work->outcome = outcome;
        if (work->owner)
            emit work->owner->worked();
    });
}

TestTone::Outcome TestTone::playOn(std::shared_ptr<AudioDriver> const& driver, QString const& deviceName)
{
    Outcome heard = Outcome::Played;
    std::unique_ptr<AudioOutput> output = AudioDevice::openOutput(driver, deviceName);
    if (!output && LinuxAudioConfig::isGeneric(deviceName)) {
        output = AudioOutput::open(driver, {});
        heard = Outcome::PlayedOnDefault;
    }
    if (!output)
        return Outcome::NotOpened;
    return playWith(*output) ? heard : Outcome::Failed;
}

bool TestTone::playWith(AudioOutput const& output)
{
    ThreadContext const context(output.context());
    if (!context.isSet())
        return false;
    std::vector<std::int16_t> const tone = samples();
    ALuint buffer = 0;
    ALuint source = 0;
    alGenBuffers(1, &buffer);
    alGenSources(1, &source);
    alBufferData(buffer, AL_FORMAT_MONO16, tone.data(), static_cast<ALsizei>(tone.size() * sizeof(tone[0])), rate);
    alSourcei(source, AL_BUFFER, static_cast<ALint>(buffer));
    alSourcePlay(source);
    bool const isPlaying = alGetError() == AL_NO_ERROR;
    ALint state = isPlaying ? AL_PLAYING : AL_STOPPED;
    auto const end = std::chrono::steady_clock::now() + longestTone;
    while (state == AL_PLAYING && std::chrono::steady_clock::now() < end && output.isConnected()) {
        std::this_thread::sleep_for(20ms); // OpenAL tells of the end to those who ask.
        alGetSourcei(source, AL_SOURCE_STATE, &state);
    }
    alDeleteSources(1, &source);
    alDeleteBuffers(1, &buffer);
    return isPlaying && state == AL_STOPPED;
}
