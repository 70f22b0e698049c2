#include "SignIn.h"

#include "AppData.h"
#include "Channel.h"
#include "ChannelEvents.h"
#include "ChannelManager.h"
#include "FakeTickCounter.h"
#include "FakeTimerFactory.h"
#include "LoginManager.h"
#include "SettingsFile.h"

#include <QAction>
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
    EXPECT_TRUE(SignIn::lastUser().isEmpty());
    EXPECT_FALSE(isEnabled(MenuAction::SignOut));
    auto const waits = [this] {
        QList<int> all;
        for (FakeTimer const* const timer : _timers.timers())
            if (timer->isActive())
                all.append(timer->interval());
        return all;
    };
    signIn.onLoginStarted();
    EXPECT_TRUE(signIn.isSigningIn());
    signIn.onAutoLoginCompleted(false, "away");
    EXPECT_FALSE(signIn.isSigningIn());
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
    _appData.signOut(true);
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
    EXPECT_TRUE(report.error.startsWith("no such stream"));
    EXPECT_TRUE(channels.isBusy());
    events.onWindowVisibilityChanged(false);
    EXPECT_FALSE(_appData.settings.testMode());
    EXPECT_FALSE(channels.isBusy());
    _timers.advance(1000000);
    EXPECT_EQ(reports.size(), 1);
    EXPECT_EQ(channels.lastChannelId(), "b") << "what was about to open";
}
