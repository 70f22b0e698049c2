#include "AppSettings.h"

#include "EventLoop.h"
#include "LogCapture.h"
#include "SecretKeeper.h"
#include "SettingsFile.h"
#include "SettingsText.h"

#include <QAction>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QMetaMethod>
#include <QSignalSpy>
#include <QTest>

#include <gmock/gmock.h>
#include <sys/stat.h>

namespace
{

class AppSettingsTest : public testing::Test
{
protected:
    AppSettingsTest() { _settings.createActions(); }
    void TearDown() override { settingsFile().clear(); }

    AppSettings _settings;
};

/// Its cipher text begins with the key.
struct FakeKeeper : SecretKeeper {
    explicit FakeKeeper(QByteArray const& k) : key(k) {}
    QByteArray encrypt(QByteArray const& plain) override
    {
        return plain.size() > 20 ? QByteArray() : QByteArray(key + plain.toHex());
    }
    std::optional<QByteArray> decrypt(QByteArray const& enciphered) override
    {
        if (!enciphered.startsWith(key))
            return std::nullopt;
        return QByteArray::fromHex(enciphered.mid(key.size()));
    }
    QByteArray key;
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
    EXPECT_TRUE(_settings.action(MenuAction::Mute)->isChecked());
    EXPECT_TRUE(_settings.action(MenuAction::NormalSize)->isChecked());
    EXPECT_FALSE(_settings.action(MenuAction::TouchInside)->isChecked());
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
        {" ", "65536", ":", "127.0.0.1:22473 http://127.0.0.1/keys"},
        {"chat.example", "many", "http://k/", "chat.example:22473 http://k/"},
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

TEST_F(AppSettingsTest, KeysAndDefaultsOfTheFileHold)
{
    // Before the bar what a line of a fresh file is, behind it another value; the window's group is written apart.
    QStringList const global = {"audio/audioDevice=|Card",
                                "video/useHardwareColourConversion=true|false",
                                "video/enableAntialiasing=false|true",
                                "proxy/proxyType=2|1",
                                "proxy/ProxyHostName=|proxy.example",
                                "proxy/ProxyPort=0|3128",
                                "proxy/ProxyUser=|me, too",
                                "videoWindow/runAtStartup=true|false",
                                "videoWindow/showWindowFrame=false|true",
                                "videoWindow/testModeFailureTimeout=30|5",
                                "videoWindow/testModePlayFailureSound=false|true"};
    QStringList const user = {"chatNick=Viewer|Käthe",
                              "signInAutomatically=false|true",
                              "alerts/showSystemAlerts=true|false",
                              "alerts/showBreakingNewsAlerts=true|false",
                              "alerts/showLivePanel=true|false",
                              "alerts/showAlertsWindow=true|false",
                              "alerts/alertDisplayDuration=30000|1",
                              "alerts/alertDisplayOpacity=85|100",
                              "alerts/alertHistory=|one",
                              "alerts/channelAlerts=|7,true",
                              "chat/showChatMessagesAsAlerts=false|true",
                              "chat/chatFontSize=11|20",
                              "chat/splitterState=|abc",
                              "chat/chatColours/1/name=Room Name|Room Name",
                              "chat/chatColours/10/native=#404040|#123456",
                              "twitter/autoAddOmbravisionTopic=true|false",
                              "videoWindow/volume=1|0.25",
                              "videoWindow/muted=false|true",
                              "videoWindow/alwaysOnTop=false|true",
                              "videoWindow/showTabs=true|false",
                              "videoWindow/splitterState=|def",
                              "videoWindow/showMenuBar=true|false",
                              "videoWindow/showWindowFrame=false|true",
                              "videoWindow/videoFileDirectroy=|/films",
                              "videoWindow/activeChannel=|c1",
                              "videoWindow/openChannels=|c1",
                              "videoWindow/seenTutorial29=false|true",
                              "videoWindow/showVideoTips=true|false",
                              "videoWindow/showChannelBarOnMouseOver=true|false",
                              "videoWindow/videoDrawMode=4|1"};
    for (bool const fresh : {true, false}) {
        QSettings file = settingsFile();
        auto const eachKey = [&](auto&& check) {
            for (QString const& line : global)
                check("application/" + line);
            for (QString const& line : user)
                check("user/me@home/" + QString(line));
        };
        auto const valueOf = [&](QString const& line) { return line.section('=', 1).section('|', !fresh, !fresh); };
        if (!fresh) {
            file.setValue("user/me@home/chat/chatColours/size", 10);
            for (int i = 1; i <= 10; ++i)
                file.setValue(QString("user/me@home/chat/chatColours/%1/skin").arg(i), "#fff");
        }
        eachKey([&](QString const& line) {
            if (!fresh)
                file.setValue(line.section('=', 0, 0), valueOf(line));
        });
        _settings.loadGlobalSettings();
        _settings.loadUserSettings("me@home");
        file.remove("");
        file.setValue("application/unknown", 1);
        _settings.saveGlobalSettings();
        _settings.saveUserSettings("me@home");
        eachKey([&](QString const& line) {
            QString const key = line.section('=', 0, 0).replace("videoWindow", "videowindow");
            EXPECT_TRUE(file.contains(key)) << qPrintable(key);
            EXPECT_EQ(SettingsText::textOf(file.value(key)), valueOf(line)) << qPrintable(key);
        });
        EXPECT_EQ(file.value("application/unknown"), 1);
    }
}

TEST_F(AppSettingsTest, EverySignalBelongsToASetting)
{
    QList<QMetaMethod> missing;
    for (int i = QObject::staticMetaObject.methodCount(); i < AppSettings::staticMetaObject.methodCount(); ++i)
        if (AppSettings::staticMetaObject.method(i).parameterCount() == 0)
            missing.append(AppSettings::staticMetaObject.method(i));
    EXPECT_EQ(missing.size(), 55);
    for (Setting const& setting : settingsTable())
        if (setting.changed)
            missing.removeAll(QMetaMethod::fromSignal(setting.changed));
    for (QMetaMethod const& method : missing)
        ADD_FAILURE() << method.name().constData();
}

TEST_F(AppSettingsTest, LoadingTellsEachChangeOnceAndLeavesTheRest)
{
    QSettings file = settingsFile();
    file.beginGroup("user/a%2Fb@home");
    for (char const* const key :
         {"twitter/token", "twitter/tokenSecret", "alerts/showBuzzAlerts", "videoWindow/muted"})
        file.setValue(key, "true");
    file.setValue("videoWindow/showMenuBar", "perhaps");
    file.setValue("videoWindow/position", "here");
    file.setValue("videoWindow/size", QSize(640, 480));
    _settings.setVolume(0.5);
    QSignalSpy credentials(&_settings, &AppSettings::twitterCredentialsChanged);
    QSignalSpy mute(&_settings, &AppSettings::muteChanged);
    QSignalSpy others[] = {{&_settings, &AppSettings::volumeChanged}, {&_settings, &AppSettings::showMenuBarChanged}};
    LogCapture capture;
    _settings.loadUserSettings("a/b@home");
    EXPECT_EQ(credentials.count(), 1);
    EXPECT_EQ(mute.count(), 1);
    EXPECT_TRUE(_settings.action(MenuAction::Mute)->isChecked());
    for (QSignalSpy const& spy : others)
        EXPECT_EQ(spy.count(), 0);
    EXPECT_EQ(_settings.volume(), 0.5);
    EXPECT_EQ(_settings.size(), QSize(640, 480));
    EXPECT_FALSE(_settings.showBuzzAlerts());
    EXPECT_EQ(capture.count("which makes no sense there"), 2);
}

TEST_F(AppSettingsTest, AGuestFindsTheirChoicesAgainAndNothingOfAnAccount)
{
    _settings.loadGuestSettings();
    _settings.setShowTabs(false);
    _settings.setVolume(0.25);
    _settings.setMuted(true);
    _settings.setDrawMode(3);
    _settings.setVideoFileDirectory("/films");
    _settings.setChatFontSize(20);
    _settings.saveGlobalSettings();
    _settings.saveGuestSettings();
    _settings.loadUserSettings("me@home");
    EXPECT_FALSE(_settings.showTabs()) << "the account has no word about the window";
    EXPECT_TRUE(_settings.muted());
    EXPECT_EQ(_settings.chatFontSize(), 11);
    _settings.setAlertHistory({"mine"});
    _settings.setActiveChannel("mine");
    _settings.setChatFontSize(30);
    _settings.saveUserSettings("me@home");
    _settings.loadGuestSettings();
    EXPECT_EQ(_settings.alertHistory(), QStringList());
    EXPECT_EQ(_settings.chatFontSize(), 20);

    AppSettings second;
    second.loadGlobalSettings();
    second.loadGuestSettings();
    EXPECT_FALSE(second.showTabs());
    EXPECT_EQ(second.volume(), 0.25);
    EXPECT_EQ(second.drawMode(), 3);
    EXPECT_EQ(second.videoFileDirectory(), "/films");
    EXPECT_EQ(second.chatFontSize(), 20);
    EXPECT_EQ(second.activeChannel(), "");
    for (QString const& key : settingsFile().allKeys())
        EXPECT_FALSE(key.startsWith("user/%guest/channels/active") || key.startsWith("user/%guest/twitter/token"))
            << qPrintable(key);
}

TEST_F(AppSettingsTest, SecretsAreStoredEncipheredOnly)
{
    QString const key = "application/proxy/ProxyPassword";
    FakeKeeper keeper("k1");
    FakeKeeper another("k2");
    settingsFile().setValue(key, "pass, word");
    _settings.initEncryption(&keeper);
    _settings.loadGlobalSettings();
    EXPECT_EQ(_settings.proxyPassword(), "pass, word");
    QString const stored = settingsFile().value(key).toString();
    EXPECT_FALSE(stored.contains("pass") || stored.isEmpty());

    AppSettings later;
    for (SecretKeeper* const stranger : {static_cast<SecretKeeper*>(nullptr), static_cast<SecretKeeper*>(&another)}) {
        LogCapture capture;
        later.initEncryption(stranger);
        later.loadGlobalSettings();
        later.saveGlobalSettings();
        EXPECT_EQ(later.proxyPassword(), "");
        EXPECT_EQ(capture.count("cannot be read"), 1);
        EXPECT_EQ(settingsFile().value(key), stored);
        later.setProxyPassword("much too long for this keeper");
        later.saveGlobalSettings();
        EXPECT_EQ(capture.count("could not be enciphered"), 1);
        later.setProxyPassword("");
    }
    later.initEncryption(&keeper);
    later.loadGlobalSettings();
    EXPECT_EQ(later.proxyPassword(), "pass, word");
    later.setProxyPassword("");
    later.saveGlobalSettings();
    EXPECT_FALSE(settingsFile().contains(key));
}

TEST_F(AppSettingsTest, TheFileIsWrittenLaterAndAtTheLatestAtTheEnd)
{
    settingsFile().setValue("other/key", 1);
    QFile file(settingsFile().fileName());
    auto later = std::make_unique<AppSettings>();
    SettingsWriter::Group(later->file(), "one")->setValue("key", "first");
    {
        SettingsWriter::Group const outer(later->file(), "outer");
        SettingsWriter::Group(later->file(), "one/inner")->setValue("key", "second");
        EXPECT_EQ(outer->group(), "outer");
    }
    QCoreApplication::processEvents();
    EXPECT_TRUE(file.open(QFile::ReadOnly));
    EXPECT_FALSE(file.readAll().contains("first")) << "nobody waits for the disk";
    later.reset();
    file.close();
    EXPECT_TRUE(file.open(QFile::ReadOnly));
    EXPECT_TRUE(file.readAll().contains("[one]\ninner\\key=second\nkey=first\n"));
}

TEST_F(AppSettingsTest, AFileThatIsDamagedOrOutOfReachIsToldAndNothingIsLost)
{
    QString const path = settingsFile().fileName();
    QSignalSpy failed(&_settings, &AppSettings::settingsFileFailed);
    QByteArray const damaged =
        QByteArray("[application]\naudio\\audioDevice=Card\n***\nproxy\\ProxyPassword=X\n[other]\nkey=1\n"
                   "user\\a%40b\\password = \"X\\\nX\"\ntwitter\\token=sealed:AbC=\n")
            .replace('*', '\0');
    auto const write = [](QString const& name, QByteArray const& bytes) {
        QFile file(name);
        EXPECT_TRUE(file.open(QFile::WriteOnly));
        file.write(bytes);
    };
    EXPECT_TRUE(QDir().mkpath(QFileInfo(path).path()));
    write(path, damaged);
    _settings.loadGlobalSettings();
    EXPECT_EQ(failed.count(), 1);
    EXPECT_EQ(_settings.audioDevice(), "Card");
    EXPECT_EQ(settingsFile().value("other/key"), "1");
    QFile copy(path + ".damaged");
    EXPECT_TRUE(copy.open(QFile::ReadOnly));
    // All but the secrets that it had in plain text, and for the viewer alone.
    EXPECT_EQ(copy.readAll(), QByteArray(damaged).replace(" \"X\\\nX\"", "\n").replace("X", ""));
    EXPECT_EQ(copy.permissions() & (QFile::ReadGroup | QFile::ReadOther), QFile::Permissions());
    _settings.loadGlobalSettings();
    EXPECT_EQ(failed.count(), 1);

    EXPECT_TRUE(copy.remove() && QFile::remove(path) && QDir().mkdir(path));
    _settings.saveGlobalSettings();
    EXPECT_TRUE(QTest::qWaitFor([&] { return failed.count() == 2; }));
    _settings.loadGlobalSettings();
    EXPECT_GE(failed.count(), 3);
    EXPECT_TRUE(QDir().rmdir(path));
}

TEST_F(AppSettingsTest, TheServiceIsWhereTheFileSaysIfThatCanBe)
{
    QString const otherwise = "http://127.0.0.1:22480";
    for (auto const& [url, expected] : {std::pair<QString, QString>{"https://tv.example/", "https://tv.example"},
                                        {" http://[::1]:80/a ", "http://[::1]:80/a"},
                                        {"tv.example", otherwise},
                                        {"ftp://tv.example", otherwise},
                                        {"https://", otherwise},
                                        {"https://tv.example/?q", otherwise}}) {
        settingsFile().setValue("application/service/url", url);
        _settings.loadGlobalSettings();
        EXPECT_EQ(_settings.channelsDocumentUri().toString(), expected + "/client/desktop/3_2_0/channels.xml");
        EXPECT_EQ(_settings.streamsPath(), expected + "/client/3.2.0/streams/");
    }
}

TEST_F(AppSettingsTest, EveryActionHasItsOwnShortcutAndIsNotRepeatedByAHeldKey)
{
    QStringList seen;
    for (int i = 0; i < menuActionCount; ++i) {
        QAction const* const action = _settings.action(static_cast<MenuAction>(i));
        QString const shortcut = action->shortcut().toString();
        EXPECT_TRUE(shortcut.isEmpty() || !seen.contains(shortcut)) << qPrintable(action->text());
        EXPECT_FALSE(action->autoRepeat());
        seen.append(shortcut);
    }
}
