#include "SignIn.h"

#include "AppData.h"
#include "Channel.h"
#include "ChannelEvents.h"
#include "ChannelFeed.h"
#include "ChannelManager.h"
#include "EventLoop.h"
#include "FakeTickCounter.h"
#include "FakeTimerFactory.h"
#include "HttpTestServer.h"
#include "LogCapture.h"
#include "LoginManager.h"
#include "Notice.h"
#include "SettingsFile.h"

#include <QAction>
#include <QNetworkAccessManager>
#include <QNetworkCookie>
#include <QNetworkCookieJar>
#include <QSignalSpy>

#include <gtest/gtest.h>

namespace
{

class SignInTest : public testing::Test
{
protected:
    SignInTest()
    {
        settingsFile().clear();
        settingsFile().setValue("application/service/url", "http://127.0.0.1:9"); // Nobody is there.
        _appData.initialize(nullptr);
        _appData.loginManager()->disconnect(_appData.signIn());
    }
    ~SignInTest() override { _appData.uninitialize(); }

    bool isEnabled(MenuAction action) { return _appData.settings.action(action)->isEnabled(); }

    AppData _appData;
    FakeTickCounter _clock;
    FakeTimerFactory _timers{_clock};
};

ChannelDescription described(QString const& id)
{
    ChannelDescription description;
    description.setId(id);
    description.setRootId(id);
    description.setTitle(id);
    description.setChannelType(ChannelDescription::PublicChannel);
    return description;
}

} // namespace

TEST_F(SignInTest, AnAutomaticFailureAsksByDialogOrAtSystemStartUpTriesAgainLater)
{
    SignIn signIn(_appData, &_timers);
    EXPECT_TRUE(_appData.signIn()->lastUser().isEmpty());
    EXPECT_FALSE(isEnabled(MenuAction::SignOut));
    auto const waits = [this] {
        QList<int> all;
        for (FakeTimer const* const timer : _timers.timers())
            if (timer->isActive())
                all.append(timer->interval());
        return all;
    };
    QSignalSpy const ended(&signIn, &SignIn::signInEnded);
    signIn.onLoginStarted();
    EXPECT_TRUE(signIn.isSigningIn());
    signIn.onAutoLoginCompleted(false, "away");
    EXPECT_FALSE(signIn.isSigningIn());
    EXPECT_EQ(ended.size(), 1);
    EXPECT_EQ(waits(), QList<int>{SignIn::dialogDelay});
    for (FakeTimer* const timer : _timers.timers())
        timer->stop();
    _appData.settings.setStartupMode(true);
    signIn.onAutoLoginCompleted(false, "away");
    EXPECT_EQ(waits(), QList<int>{SignIn::autoSignInDelay});
    EXPECT_TRUE(isEnabled(MenuAction::SignIn) && isEnabled(MenuAction::CreateAccount));
}

TEST_F(SignInTest, TheChannelsOfAnAccountAreFoundAgainAndGoWithIt)
{
    ChannelManager& channels = *_appData.channelManager();
    SignIn& signIn = *_appData.signIn();
    QSignalSpy changed(&_appData, &AppData::signedInChanged);
    signIn.onAutoLoginCompleted(true, "ann@example.com");
    EXPECT_TRUE(signIn.isSignedIn() && isEnabled(MenuAction::SignOut));
    for (char const* const id : {"a", "b", "c"})
        channels.addUserChannel(described(id));
    channels.openChannel("b", false, true);
    channels.openChannel("c", false, false);
    QNetworkCookieJar& jar = *_appData.networkAccessManager()->cookieJar();
    QNetworkCookie cookie("session", "ann's");
    cookie.setExpirationDate(QDateTime::currentDateTime().addDays(1));
    for (char const* const url : {"http://127.0.0.1/a", "http://elsewhere.example/"})
        jar.setCookiesFromUrl({cookie}, QUrl(url));
    _appData.signOut(true);
    EXPECT_EQ(settingsFile().value("Cookies").toByteArray().count("ann's"), 1) << "at once, and not at the end only";
    EXPECT_TRUE(jar.cookiesForUrl(QUrl("http://127.0.0.1/a")).isEmpty());
    EXPECT_EQ(jar.cookiesForUrl(QUrl("http://elsewhere.example/")).size(), 1);
    EXPECT_EQ(channels.channelCount(), 0);
    EXPECT_FALSE(isEnabled(MenuAction::SignOut));
    EXPECT_EQ(changed.size(), 2);

    channels.setLastChannelIds({});
    signIn.onAutoLoginCompleted(true, "bob@example.com");
    EXPECT_TRUE(channels.lastChannelIds().isEmpty()) << "those of somebody else";
    _appData.signOut(false);
    EXPECT_EQ(changed.size(), 3) << "not told";
    signIn.onAutoLoginCompleted(true, "ann@example.com");
    EXPECT_EQ(channels.lastChannelIds(), (QStringList{"b", "c"}));
    EXPECT_EQ(channels.lastChannelId(), "b");
}

TEST_F(SignInTest, TheServiceIsAskedAsAtSignInAndTheDirectoryReadOnce)
{
    HttpTestServer server;
    settingsFile().setValue("application/service/url", QString("http://0.0.0.0:%1").arg(server.port()));
    settingsFile().setValue("application/service/allowPlainCredentials", true);
    AppData elsewhere; // By its name, which is not that of this machine.
    elsewhere.initialize(nullptr);
    {
        LogCapture const log;
        ChannelFeed feed(elsewhere, &_timers, {});
        QSignalSpy failed(&feed, &ChannelFeed::failed);
        feed.startChecking();
        QByteArray const xml = "<channels><channel><unique-short-name>a</unique-short-name></channel></channels>";
        server.answer("HTTP/1.1 200 OK\r\nContent-Length: " + QByteArray::number(xml.size()) + "\r\n\r\n" + xml);
        for (int i = 1; i <= 2; ++i) {
            ASSERT_TRUE(server.takeRequest().lines.value(0).startsWith("POST "));
            server.send("HTTP/1.1 500 Oops\r\nContent-Length: 0\r\n\r\n");
            ASSERT_TRUE(processEventsUntil([&] { return failed.size() == i; }));
            _timers.advance(ChannelFeed::retryTime);
        }
        EXPECT_EQ(log.count("Inserted channel description"), 1);
    }
    elsewhere.uninitialize();
}

TEST_F(SignInTest, LastingWordsReturnAfterPassingOnesUntilTheyAreTakenBack)
{
    QWidget window;
    Notice notice(&window, &window);
    window.show();
    notice.keep(Notice::Subject::Directory, "no network");
    notice.tell("saved");
    EXPECT_EQ(notice.text(), "saved");
    notice.onPassed();
    EXPECT_EQ(notice.text(), "no network");
    notice.tell("saved");
    notice.keep(Notice::Subject::Directory, {});
    EXPECT_TRUE(notice.isVisible()) << "the passing ones go on";
    notice.onPassed();
    EXPECT_FALSE(notice.isVisible());
}

TEST_F(SignInTest, TestModeGoesFromChannelToChannelAndEndsWithTheWindow)
{
    ChannelManager& channels = *_appData.channelManager();
    ChannelEvents events(_appData, &_timers);
    QSignalSpy reports(&events, &ChannelEvents::channelTestEvent);
    QObject::connect(_appData.settings.action(MenuAction::TestChannels), &QAction::triggered, &events,
                     [this](bool checked) { _appData.settings.setTestMode(checked); });
    channels.addUserChannel(described("a"));
    channels.addUserChannel(described("b"));
    channels.openChannel("a", false, true);
    _appData.settings.action(MenuAction::TestChannels)->trigger();
    channels.getChannelByRootId("a")->onStreamError(nullptr, "no such stream");
    _timers.advance(qint64{1000} * _appData.settings.testModeFailureTimeout());
    ASSERT_EQ(reports.size(), 1);
    auto const report = reports[0][0].value<TestEvent>();
    EXPECT_EQ(report.rootId, "a");
    EXPECT_FALSE(report.isPlaying);
    EXPECT_EQ(report.error, "no such stream");
    EXPECT_TRUE(channels.isBusy());
    events.onWindowVisibilityChanged(false);
    EXPECT_FALSE(_appData.settings.testMode());
    EXPECT_FALSE(channels.isBusy());
    _timers.advance(1000000);
    EXPECT_EQ(reports.size(), 1);
    EXPECT_EQ(channels.lastChannelId(), "b") << "what was about to open";
}

TEST_F(SignInTest, TheSystemWakesUpWithWhatPlayedAndNothingElse)
{
    ChannelManager& channels = *_appData.channelManager();
    channels.addUserChannel(described("a"));
    for (bool const isHidden : {false, true}) {
        channels.openChannel("a", false, true);
        emit _appData.systemSuspended();
        EXPECT_FALSE(channels.isBusy());
        if (isHidden)
            _appData.onWindowVisibilityChanged(false);
        emit _appData.systemResumed();
        EXPECT_EQ(channels.isBusy(), !isHidden);
        _appData.onWindowVisibilityChanged(true);
        channels.closeAllChannels();
        emit _appData.systemSuspended();
        emit _appData.systemResumed();
        EXPECT_FALSE(channels.isBusy()) << "nothing played";
    }
}
