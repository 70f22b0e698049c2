#pragma once

#include <QObject>
#include <QString>

#include <memory>

class AudioDriver;
class AudioOutput;

/// A tone of a second on a device of one's choice, beside whatever plays: with a device and a context of its own, on
/// a thread that ends with the tone. Lives on the GUI thread, which never waits for it.
class TestTone : public QObject
{
    Q_OBJECT

public:
    enum class Outcome {
        Played,
        PlayedOnDefault, ///< The name stands for a way to reach sound, and no single device.
        NotOpened,
        Failed, ///< The device opened and played nothing.
    };
    Q_ENUM(Outcome)

    static constexpr int duration = 1000; ///< ms
    static constexpr int rate = 44100;    ///< Samples per second.

    explicit TestTone(std::shared_ptr<AudioDriver> driver, QObject* parent = nullptr);
    ~TestTone() override;

    /// Nothing while one plays. The name is one of LinuxAudioConfig::listDevices().
    void play(QString const& deviceName);
    bool isPlaying() const { return _work != nullptr; }

signals:
    void finished(TestTone::Outcome outcome);
    /// The thread has done its work. For this object only.
    void worked();

private:
    struct Work;

    static Outcome playOn(std::shared_ptr<AudioDriver> const& driver, QString const& deviceName);
    static bool playWith(AudioOutput const& output);

    std::shared_ptr<AudioDriver> const _driver;
    std::shared_ptr<Work> _work; ///< With the thread that works; null when none does.
};
