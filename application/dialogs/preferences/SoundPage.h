#pragma once

#include "PreferencesPage.h"
#include "TestTone.h"

class QPushButton;

/// The sound device and the volume, with a tone to try them. The list of devices is fetched by another thread, since
/// sound servers take their time.
class SoundPage : public PreferencesPage
{
    Q_OBJECT

public:
    explicit SoundPage(AppData& appData);

protected:
    void showEvent(QShowEvent* event) override;

private:
    void fetchDevices();
    void showDevices(QStringList const& devices);
    void playTone();
    void onTone(TestTone::Outcome outcome);

    TestTone _tone;
    QStringList _devices; ///< Those in the box.
    QComboBox* _device;
    QPushButton* _play;
    QLabel* _result;
};
