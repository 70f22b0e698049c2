#include "AppSettings.h"

#include "LogCapture.h"
#include "SettingsFile.h"

#include <QAction>
#include <QSignalSpy>

#include <gmock/gmock.h>

namespace
{

class AppSettingsTest : public testing::Test
{
protected:
    AppSettingsTest() { _settings.createActions(); }
    void TearDown() override { settingsFile().clear(); }

    AppSettings _settings;
};

} // namespace

TEST_F(AppSettingsTest, VolumeIsBroughtInsideAndEndsMute)
{
    QSignalSpy changed(&_settings, &AppSettings::volumeChanged);
    for (double const volume : {0.5, -1.0, 2.0}) {
        _settings.setMuted(true);
        _settings.setVolume(volume);
        EXPECT_EQ(_settings.volume(), qBound(0.0, volume, 1.0));
        EXPECT_FALSE(_settings.muted());
    }
    EXPECT_EQ(changed.count(), 3);
    _settings.setVolume(1.0);
    EXPECT_EQ(changed.count(), 3);
    _settings.setVolume(0.25);
    EXPECT_EQ(_settings.volume(), 0.25);
    _settings.setMuted(true);
    _settings.setVolume(0.25);
    EXPECT_FALSE(_settings.muted()) << "who turns the knob wants to hear it";
    EXPECT_EQ(changed.count(), 5);
}

TEST_F(AppSettingsTest, ASetterMirrorsItsActionAndStaysSilentWhenNothingChanges)
{
    QSignalSpy mute(&_settings, &AppSettings::muteChanged);
    QSignalSpy mode(&_settings, &AppSettings::drawModeChanged);
    QSignalSpy startup(&_settings, &AppSettings::runAtStartupChanged);
    for (bool const changes : {false, true}) {
        _settings.setMuted(changes);
        _settings.setDrawMode(changes ? 1 : 17);
        EXPECT_EQ(mute.count(), changes);
        EXPECT_EQ(mode.count(), changes);
        _settings.setRunAtStartup(!changes);
        EXPECT_EQ(startup.count(), changes);
    }
    EXPECT_TRUE(_settings.action("Mute")->isChecked());
    EXPECT_TRUE(_settings.drawModeActions().at(1)->isChecked());
    EXPECT_FALSE(_settings.drawModeActions().at(4)->isChecked());
}

TEST_F(AppSettingsTest, TheInstallationKeepsItsIdentifier)
{
    _settings.loadGlobalSettings();
    QString const guid = _settings.mmsClientGuid();
    EXPECT_FALSE(guid.isEmpty());
    AppSettings second;
    second.loadGlobalSettings();
    EXPECT_EQ(second.mmsClientGuid(), guid);
}

TEST_F(AppSettingsTest, ThePathToTheScreenCanBeForced)
{
    using Conversion = AppSettings::ColourConversion;
    std::pair<char const*, Conversion> const cases[] = {{"auto", Conversion::Automatic},
                                                        {"shader", Conversion::Shader},
                                                        {"fragmentProgram", Conversion::FragmentProgram},
                                                        {"software", Conversion::Software},
                                                        {"nonsense", Conversion::Automatic}};
    for (auto const& [text, conversion] : cases) {
        settingsFile().setValue("application/video/colourConversion", text);
        _settings.loadGlobalSettings();
        EXPECT_EQ(_settings.colourConversion(), conversion) << text;
    }
}

TEST_F(AppSettingsTest, AMessagingServerThatMakesNoSenseIsReplaced)
{
    struct Case {
        char const* host;
        char const* port;
        char const* keychainUrl;
        char const* expected;
    };
    Case const cases[] = {
        {"chat.example", "1234", "https://keys.example/k", "chat.example:1234 https://keys.example/k"},
        {"chat.example", "65536", ":", "127.0.0.1:22473 http://127.0.0.1/keys"},
        {"chat.example", "many", "http://k/", "127.0.0.1:22473 http://k/"},
    };
    for (Case const& c : cases) {
        settingsFile().setValue("application/biscotti/host", c.host);
        settingsFile().setValue("application/biscotti/port", c.port);
        settingsFile().setValue("application/biscotti/keychainUrl", c.keychainUrl);
        _settings.loadGlobalSettings();
        EXPECT_EQ(QString("%1:%2 %3")
                      .arg(_settings.biscottiHost())
                      .arg(_settings.biscottiPort())
                      .arg(_settings.keychainUrl().toString()),
                  c.expected);
    }
}

TEST_F(AppSettingsTest, NumbersOutOfBoundsAreBroughtInsideWithALineEach)
{
    struct Case {
        char const* type;
        char const* port;
        char const* expected;
    };
    for (Case const& c : {Case{"1", "65535", "1 65535, 0 lines"}, Case{"-7", "65536", "0 65535, 2 lines"},
                          Case{"99999999999999999999", "nan", "5 0, 2 lines"}}) {
        settingsFile().setValue("application/proxy/proxyType", c.type);
        settingsFile().setValue("application/proxy/ProxyPort", c.port);
        LogCapture capture;
        _settings.loadGlobalSettings();
        EXPECT_EQ(QString("%1 %2, %3 lines")
                      .arg(_settings.proxyType())
                      .arg(_settings.proxyPort())
                      .arg(capture.count("The setting application/proxy/")),
                  c.expected);
    }
}

TEST_F(AppSettingsTest, EveryActionHasItsOwnShortcut)
{
    QStringList seen;
    for (QAction const* const action : _settings.findChildren<QAction*>() + _settings.speedActions()) {
        QString const shortcut = action->shortcut().toString();
        EXPECT_TRUE(shortcut.isEmpty() || !seen.contains(shortcut)) << qPrintable(action->text());
        seen.append(shortcut);
    }
}
