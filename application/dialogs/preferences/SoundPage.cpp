#include "SoundPage.h"

#include "AppData.h"
#include "AudioDevice.h"
#include "Background.h"
#include "LinuxAudioConfig.h"

#include <QCheckBox>
#include <QLabel>
#include <QPushButton>
#include <QShowEvent>
#include <QSlider>

SoundPage::SoundPage(AppData& appData) : PreferencesPage(appData), _tone(appData.audioDevice()->driver())
{
    using V = SettingsValues;
    addSection(tr("Device"));
    _device =
        addChoice<QString>(tr("&Sound goes to:"), &V::audioDevice, {}, [](QString const& name) { return name; });
    _device->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon); // Names are long.
    constexpr int letters = 24;
    _device->setMinimumContentsLength(letters);
    _play = new QPushButton(tr("&Play a test tone"), this);
    _play->setAutoDefault(false);
    _play->setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Fixed);
    addLine(_play);
    _result = addResult();
    connect(_play, &QPushButton::clicked, this, &SoundPage::playTone);
    connect(&_tone, &TestTone::finished, this, &SoundPage::onTone);
    addSection(tr("Volume"));
    auto* const volume = new QSlider(Qt::Horizontal, this);
    volume->setPageStep(10);
    binding().bind(&V::volume, volume);
    addLine(tr("&Volume:"), volume);
    addSwitch(tr("&Mute"), &V::muted);
}

/// Devices come and go while the program runs.
void SoundPage::showEvent(QShowEvent* event)
{
    PreferencesPage::showEvent(event);
    if (!event->spontaneous())
        fetchDevices();
}

void SoundPage::fetchDevices()
{
    Background::run(
        this, [] { return LinuxAudioConfig().listDevices(); },
        [this](QStringList const& devices) { showDevices(devices); });
}

void SoundPage::showDevices(QStringList const& devices)
{
    if (devices == _devices)
        return;
    _devices = devices;
    QString const chosen = appData().settings.audioDevice();
    _device->clear();
    for (QString const& device : devices)
        _device->addItem(LinuxAudioConfig::isGeneric(device) ? tr("%1 (system)").arg(device) : device, device);
    if (_device->findData(chosen) < 0)
        _device->addItem(tr("%1 (not there now)").arg(chosen), chosen);
    _device->setCurrentIndex(_device->findData(chosen));
}

void SoundPage::playTone()
{
    _play->setEnabled(false);
    _result->setText(tr("Playing..."));
    _tone.play(appData().settings.audioDevice());
}

void SoundPage::onTone(TestTone::Outcome outcome)
{
    _play->setEnabled(true);
    switch (outcome) {
    case TestTone::Outcome::Played:
        _result->setText(tr("The tone was played. If you heard nothing, look at the volume of the device itself."));
        break;
    case TestTone::Outcome::PlayedOnDefault:
        _result->setText(tr("The tone was played where the system sends sound."));
        break;
    case TestTone::Outcome::NotOpened:
        _result->setText(tr("The device could not be opened. Another program may be using it alone."));
        break;
    case TestTone::Outcome::Failed:
        _result->setText(tr("The device was opened but played nothing."));
        break;
    }
}
