#include "AudioDevice.h"

#include "LinuxAudioConfig.h"
#include "LogCapture.h"

#include <QFile>

#include <AL/al.h>
#include <AL/alc.h>
#include <cstdlib>
#include <gmock/gmock.h>

using testing::Contains;

namespace
{

/// Sound goes nowhere, at the right pace. OpenAL reads this when it is first called.
class AudioDeviceTest : public testing::Test
{
protected:
    void SetUp() override
    {
        qputenv("ALSOFT_DRIVERS", "null");
        QFile::remove(LinuxAudioConfig().configFilename());
    }

    LogCapture _capture;
    AudioDevice _device;
};

} // namespace

TEST_F(AudioDeviceTest, OpensClosesAndWritesDownWhatItDoesNotKnow)
{
    ASSERT_TRUE(_device.openDevice("default"));
    EXPECT_TRUE(_device.isOpen());
    EXPECT_EQ(_device.deviceName(), "default");
    EXPECT_FALSE(_device.isFallback());
    EXPECT_FALSE(LinuxAudioConfig().configExists());
    ALuint source = 0;
    alGenSources(1, &source);
    EXPECT_TRUE(alIsSource(source));
    ASSERT_TRUE(_device.openDevice("no such device"));
    EXPECT_TRUE(_device.isFallback()) << "and so looked for again";
    EXPECT_TRUE(_capture.contains("Could not open audio device no such device"));
    EXPECT_EQ(_capture.count("Using audio device "), 2);
    EXPECT_EQ(LinuxAudioConfig().device(), "no such device");
    EXPECT_TRUE(_device.isOpen());

    _device.closeDevice();
    EXPECT_FALSE(_device.isOpen());
    EXPECT_EQ(alcGetCurrentContext(), nullptr);
    EXPECT_TRUE(_device.deviceName().isEmpty());
}

TEST_F(AudioDeviceTest, OffersWhatTheLibraryFindsAndWhatItAlwaysHas)
{
    QStringList devices;
    QString defaultDevice;
    ASSERT_TRUE(AudioDevice::availableDevices(devices, defaultDevice));
    EXPECT_TRUE(devices.contains(defaultDevice));
    QStringList const offered = LinuxAudioConfig().listDevices();
    EXPECT_THAT(offered, Contains(QString("default")));
    for (QString const& device : devices) {
        EXPECT_EQ(offered.count(device), 1);
        EXPECT_TRUE(_device.openDevice(device)) << qPrintable(device);
    }
}

TEST(AudioDeviceDeathTest, NoSoundAtAllIsAFailureInWords)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    auto const openNothing = [] {
        qputenv("ALSOFT_DRIVERS", "no-such-driver");
        LogCapture capture;
        AudioDevice device;
        bool const opened = device.openDevice("alsa");
        bool const named = capture.contains("Could not open audio device alsa") &&
                           capture.contains("Could not open defaut audio device");
        std::_Exit(!opened && !device.isOpen() && named ? 0 : 1);
    };
    EXPECT_EXIT(openNothing(), testing::ExitedWithCode(0), "");
}
