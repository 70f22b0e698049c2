#include "ChannelManager.h"

#include "AppData.h"
#include "Channel.h"
#include "ChannelAction.h"
#include "ChannelDescriptionProvider.h"
#include "FakeTickCounter.h"
#include "FakeTimerFactory.h"
#include "LogCapture.h"
#include "SettingsFile.h"
#include "SponsorshipSource.h"
#include "StreamToken.h"

#include <QSignalSpy>

#include <gmock/gmock.h>

namespace
{

/// Without streams nothing reaches for a network or a card.
ChannelDescription described(QString const& id, QString const& title = {})
{
    ChannelDescription description;
    description.setId(id);
    description.setRootId(id);
    description.setTitle(title.isEmpty() ? id : title);
    description.setChannelType(ChannelDescription::PublicChannel);
    return description;
}

class FakeProvider : public ChannelDescriptionProvider
{
public:
    explicit FakeProvider(QList<ChannelDescription> const& list) : _list(list) {}

    long long numChannels() const override { return _list.size(); }
    ChannelDescription descriptionAt(long long index) const override { return _list.value(index); }
    void start() override { updated(); }
    void stop() override {}
    void refresh() override { updated(); }

private:
    QList<ChannelDescription> const& _list;
};

class FakeSponsorship : public SponsorshipSource
{
public:
    void requestSponsorship(QString const& next, QString const&, int, QString const& previous, bool) override
    {
        calls.append("request " + next + " after " + previous);
    }
    void cancelRequest() override { calls.append("cancel"); }
    void onPlaybackStarted() override { calls.append("started"); }
    void onPlaybackTimeUpdated(double) override {}
    void onPlaybackCompleted() override { calls.append("completed"); }
    void onPlaybackIncomplete() override { calls.append("incomplete"); }
    void onPlaybackError() override { calls.append("error"); }
    void onPlaybackClick() override { calls.append("click"); }
    void onPlaybackMutedChanged(bool) override {}
    void onPlaybackVolumeChanged(double) override {}
    void onPlaybackFullScreenChanged(bool) override {}

    QStringList calls;
};

class ChannelManagerTest : public testing::Test
{
protected:
    ChannelManagerTest()
    {
        settingsFile().clear();
        _appData.initialize(nullptr);
        ChannelManager::Parts parts;
        parts.timers = &_timers;
        parts.sponsorship = &_sponsorship;
        parts.createProvider = [this] { return std::make_unique<FakeProvider>(provided); };
        _manager = std::make_unique<ChannelManager>(_appData, parts);
    }
    ~ChannelManagerTest() override
    {
        _manager.reset();
        _appData.uninitialize();
    }

    ChannelManager& manager() { return *_manager; }
    Channel* channel(QString const& id) { return manager().getChannelByRootId(id); }
    QString opened()
    {
        QStringList ids;
        for (Channel const* const each : manager().openChannels())
            ids.append(each->desc.rootId() + (each == manager().activeChannel() ? "*" : ""));
        return ids.join(' ');
    }
    void provide(QStringList const& ids)
    {
        provided.clear();
        for (QString const& id : ids)
            provided.append(described(id));
        manager().startChecking();
        manager().refresh();
    }
    void openBeside(QStringList const& ids)
    {
        for (QString const& id : ids)
            manager().openChannel(id, false, false);
    }
    void answerSponsorship(bool ok, int type = SponsorshipResponse::DirectMedia)
    {
        SponsorshipResponse response;
        response.id = 7;
        response.type = type;
        response.duration = 1000;
        response.url = "nothing://ad/film"; // Fails to open, without a network.
        emit _sponsorship.sponsorshipRequestCompleted(ok, response);
    }

    FakeTickCounter _clock;
    FakeTimerFactory _timers{_clock};
    FakeSponsorship _sponsorship;
    QList<ChannelDescription> provided;
    AppData _appData;
    std::unique_ptr<ChannelManager> _manager;
};

} // namespace

TEST_F(ChannelManagerTest, TheDirectoryFollowsItsProviderAndDisturbsNothingThatStays)
{
    provide({"b", "A", "c"});
    EXPECT_TRUE(manager().channelsLoaded());
    EXPECT_EQ(manager().firstChannel()->desc.rootId(), "A") << "in order of titles, whatever their case";
    EXPECT_EQ(manager().nextChannel(channel("c")), channel("A"));
    EXPECT_EQ(manager().previousChannel(channel("A")), channel("c"));
    manager().addUserChannel([] {
        ChannelDescription own = described("own");
        own.setChannelType(ChannelDescription::UserStreamChannel);
        return own;
    }());
    openBeside({"b", "c", "own"});
    manager().setActiveChannel(channel("c"));
    EXPECT_EQ(opened(), "b c* own");
    EXPECT_TRUE(manager().channelActions().action(channel("c"))->isChecked());

    QSignalSpy closed(&manager(), &ChannelManager::channelClosed);
    QSignalSpy updated(&manager(), &ChannelManager::channelsUpdated);
    LogCapture capture;
    manager().refresh();
    EXPECT_TRUE(capture.contains("Channel update complete. No channels were modified"));
    EXPECT_TRUE(updated.isEmpty());

    provided[0].setTitle("z");
    manager().refresh();
    EXPECT_EQ(channel("b")->desc.title(), "z");
    EXPECT_TRUE(closed.isEmpty()) << "a title is no reason to stop playing";
    EXPECT_EQ(manager().lastChannel(), channel("b"));

    provided[2].appendStreamDescription(StreamDescription(Uri("nothing://x/y")));
    manager().refresh();
    EXPECT_TRUE(capture.contains("Some of the open channels were closed. Need to reopen them"));
    EXPECT_EQ(opened(), "b c* own") << "in its old place";

    provide({"A"});
    EXPECT_EQ(opened(), "own*");
    EXPECT_FALSE(channel("b"));
    EXPECT_EQ(manager().channelCount(), 2);
    manager().stopChecking();
    manager().unloadChannels();
    EXPECT_EQ(manager().channelCount(), 0);
    EXPECT_FALSE(manager().channelsLoaded());
}

TEST_F(ChannelManagerTest, AServiceThatFailsIsToldAndAskedAgainUntilItAnswers)
{
    ChannelFeed feed(_appData, &_timers, [this] { return std::make_unique<FakeProvider>(provided); });
    QSignalSpy failed(&feed, &ChannelFeed::failed);
    feed.startChecking();
    QSignalSpy updated(&feed, &ChannelFeed::channelsUpdated);
    auto const* const provider = feed.provider();
    feed.onAllowedChannelsError("The service is away");
    EXPECT_EQ(failed.takeFirst(), (QVariantList{"The service is away\nRetrying..."}));
    feed.onAllowedChannelsError("A late one");
    _timers.advance(ChannelFeed::retryTime);
    EXPECT_EQ(updated.size(), 1);
    EXPECT_EQ(feed.provider(), provider) << "with what it has read";
    EXPECT_TRUE(failed.isEmpty()) << "nothing has come yet";
    feed.onChannelParsingError("Error parsing channels\nRetrying...");
    EXPECT_EQ(failed.size(), 1);
    feed.onAllowedChannelsLoaded("1.2.3.4", "nl", "0.9", "two");
    EXPECT_EQ(failed.takeLast(), (QVariantList{""}));
    EXPECT_EQ(feed.defaultChannelId() + feed.countryId(), "twonl");
    feed.onAllowedChannelsError("Again");
    feed.stopChecking();
    EXPECT_EQ(failed.takeLast(), (QVariantList{""}));
    _timers.advance(ChannelFeed::retryTime);
    EXPECT_FALSE(feed.provider()) << "signed out meanwhile";
}

TEST_F(ChannelManagerTest, OneChoiceDuringTheFadeReplacesTheOtherAndTheFadeEndsInTime)
{
    provide({"a", "b", "c", "d"});
    manager().openChannel("a", false, true);
    EXPECT_EQ(opened(), "a*") << "nothing has to fade";
    manager().openChannel("b", false, true);
    _timers.advance(ChannelManager::fadeTime - 1);
    EXPECT_EQ(opened(), "a*");
    manager().openChannel("c", false, true);
    manager().openChannel("d", false, false);
    manager().openChannel("d", false, false);
    _timers.advance(1);
    EXPECT_EQ(opened(), "c* d");

    manager().openChannel("b", false, true);
    manager().closeForLater();
    _timers.advance(ChannelManager::fadeTime);
    EXPECT_EQ(opened(), "") << "a hidden window never plays";
    manager().openLastChannels();
    EXPECT_EQ(opened(), "b*");
    manager().closeAllChannels();
    manager().setLastChannelIds({"gone", "d", "a"});
    manager().setLastChannelId("a");
    manager().openLastChannels();
    EXPECT_EQ(opened(), "d a*");
    EXPECT_EQ(manager().lastChannelIds(), (QStringList{"d", "a"}));
    manager().closeAllChannels();
    manager().setLastChannelIds({"gone"});
    manager().setLastChannelId("gone");
    manager().openLastChannels();
    EXPECT_EQ(opened(), "a*") << "the default channel";
}

TEST_F(ChannelManagerTest, AClickDoesWhatItsPointerSays)
{
    provide({"a", "b", "c"});
    auto const plain = [this](char const* id) { return manager().channelClickAction(id, false); };
    auto const held = [this](char const* id) { return manager().channelClickAction(id, true); };
    EXPECT_EQ(plain("nobody"), NoClickAction);
    EXPECT_EQ(plain("a"), OpenClickAction);
    EXPECT_EQ(held("a"), AddClickAction);
    openBeside({"a"});
    EXPECT_EQ(plain("a"), NoClickAction);
    EXPECT_EQ(held("a"), NoClickAction) << "the last one stays";
    openBeside({"b"});
    EXPECT_EQ(plain("a"), NoClickAction);
    EXPECT_EQ(held("a"), CloseClickAction);
    EXPECT_EQ(plain("b"), OpenClickAction);
    manager().performChannelClickAction("b", OpenClickAction);
    EXPECT_EQ(opened(), "a b*");
    manager().performChannelClickAction("b", CloseClickAction);
    EXPECT_EQ(opened(), "a*");
    channel("a")->onStreamError(nullptr, "lost");
    EXPECT_EQ(plain("a"), ReconnectClickAction);
    openBeside({"c"});
    manager().performChannelClickAction("a", ReconnectClickAction);
    EXPECT_EQ(opened(), "a* c");
    EXPECT_FALSE(channel("a")->hasError());

    QSignalSpy exceeded(&manager(), &ChannelManager::multiviewLimitExceeded);
    _appData.settings.setMultiviewChannelLimit(2);
    manager().performChannelClickAction("b", AddClickAction);
    EXPECT_EQ(exceeded.size(), 1);
    EXPECT_EQ(opened(), "a* c");
    _appData.settings.setMultiviewChannelLimit(-1);
    manager().performChannelClickAction("b", AddClickAction);
    EXPECT_EQ(exceeded.size(), 1);
    EXPECT_EQ(opened(), "a* c b");
}

TEST_F(ChannelManagerTest, APreRollPlaysBeforeTheChannelThatWasChosenLast)
{
    provide({"a", "b", "c"});
    QSignalSpy next(&manager(), &ChannelManager::postSponsorshipChannelChanged);
    manager().openChannel("a", true, true);
    EXPECT_EQ(_sponsorship.calls, (QStringList{"request a after "}));
    answerSponsorship(false);
    EXPECT_EQ(opened(), "a*") << "there is none";
    EXPECT_EQ(next.size(), 2);

    manager().openChannel("b", true, true);
    _timers.advance(ChannelManager::fadeTime);
    EXPECT_EQ(_sponsorship.calls.last(), "request b after a");
    answerSponsorship(true, SponsorshipResponse::StaticImage);
    QString const preRoll = "file_sponsorship_7";
    EXPECT_EQ(opened(), preRoll + "*");
    EXPECT_EQ(manager().channelClickAction(preRoll, false), SponsorClickAction);
    manager().performChannelClickAction(preRoll, SponsorClickAction);
    EXPECT_EQ(_sponsorship.calls.last(), "click");
    manager().openChannel("c", true, true);
    EXPECT_EQ(opened(), preRoll + "*") << "it goes on";
    EXPECT_EQ(manager().postSponsorshipChannelId(), "c");
    EXPECT_EQ(manager().lastChannelId(), "a") << "nobody chose it";

    Channel* const played = manager().sponsorshipChannel();
    emit played->streamOpened(played, nullptr);
    emit played->streamCompleted(played, nullptr);
    EXPECT_EQ(_sponsorship.calls.last(), "started") << "a still image stays for its time";
    _timers.advance(1000 * 1000 + SponsorshipSequence::afterPlayback + ChannelManager::fadeTime);
    EXPECT_EQ(_sponsorship.calls.last(), "completed");
    EXPECT_EQ(opened(), "c*");
    QCoreApplication::processEvents();
    EXPECT_FALSE(manager().sponsorshipChannel());
    EXPECT_FALSE(channel(preRoll));

    manager().openChannel("a", true, true);
    _timers.advance(ChannelManager::fadeTime);
    manager().closeAllChannels(true);
    EXPECT_EQ(_sponsorship.calls.last(), "cancel");
    answerSponsorship(true);
    EXPECT_EQ(opened(), "") << "an answer that nobody waits for";
}

TEST_F(ChannelManagerTest, AChannelTellsItsErrorAndKeepsStreamsThatStay)
{
    provide({"a"});
    QSignalSpy errors(&manager(), &ChannelManager::channelError);
    channel("a")->open();
    channel("a")->onStreamError(nullptr, "Lost");
    channel("a")->onStreamError(nullptr, "");
    EXPECT_EQ(errors[0][1], "Lost\nClick here to reconnect");
    EXPECT_EQ(errors[1][1], "");

    Channel owner(_appData, described("x"));
    QSignalSpy closed(&owner, &Channel::streamClosing);
    owner.addStream(StreamDescription(Uri("nothing://a/1")));
    owner.addStream(StreamDescription(Uri("nothing://a/2")));
    owner.open();
    owner.open();
    owner.desc.clearStreamDescriptions();
    owner.desc.appendStreamDescription(StreamDescription(Uri("nothing://a/2")));
    owner.desc.appendStreamDescription(StreamDescription(Uri("nothing://a/3")));
    owner.resetStreams();
    EXPECT_EQ(closed.size(), 1) << "only the first is gone";
    owner.close();
    EXPECT_EQ(closed.size(), 3);
}

TEST_F(ChannelManagerTest, ASecureStreamOpensWithATokenOfItsNetworkAndAnotherAsItIs)
{
    StreamDescription stream(Uri("mms://host:1/a%20b?x=1"));
    stream.setKey("secret");
    EXPECT_EQ(_appData.streamAddress.addressOf(stream), stream.uri());
    stream.setSecure(true);
    qint64 const now = QDateTime::currentSecsSinceEpoch();
    for (char const* const provider : {"", "levelthree"}) {
        stream.setProvider(provider);
        QString const address = _appData.streamAddress.addressOf(stream).toString();
        ASSERT_TRUE(address.startsWith("mms://host:1/a%20b?x=1&token=")) << address.toStdString();
        QByteArray const token = address.section("token=", 1).toLatin1();
        EXPECT_TRUE(StreamToken::isValid("secret", "/a b", token, now + 80000)) << "lasts for an evening";
        EXPECT_FALSE(StreamToken::isValid("secret", "/a b", token, now + 200000));
        EXPECT_FALSE(StreamToken::isValid("other", "/a b", token, now));
    }
}
