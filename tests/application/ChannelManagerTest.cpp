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

#include <QKeyEvent>
#include <QSignalSpy>
#include <QTcpServer>
#include <QTest>
#include <QTimer>

#include <gmock/gmock.h>

namespace
{

/// Without streams nothing reaches for a network or a card.
ChannelDescription channelOf(QString const& id, QString const& title = {})
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
        EXPECT_TRUE(_silent.listen(QHostAddress::LocalHost));
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
            provided.append(channelOf(id));
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
        response.url = QString("http://127.0.0.1:%1/film").arg(_silent.serverPort());
        emit _sponsorship.sponsorshipRequestCompleted(ok, response);
    }

    FakeTickCounter _clock;
    FakeTimerFactory _timers{_clock};
    FakeSponsorship _sponsorship;
    QTcpServer _silent; ///< Where films are that neither begin nor fail.
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
        ChannelDescription own = channelOf("own");
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

    manager().openChannel("a", false, true);
    manager().openChannel("c", false, true);
    _timers.advance(ChannelManager::fadeTime);
    EXPECT_EQ(opened(), "c* d") << "the viewer has thought better of it";
    manager().openChannel("a", false, true);
    provided.removeFirst();
    manager().refresh();
    _timers.advance(ChannelManager::fadeTime);
    EXPECT_EQ(opened(), "b*") << "gone: the default channel";
    provide({"a", "b", "c", "d"});
    manager().closeAllChannels();
    openBeside({"c"});

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

TEST_F(ChannelManagerTest, WhatFadesOutBeginsAnewOnlyIfItIsToStay)
{
    provide({"a", "b"});
    openBeside({"a"});
    QSignalSpy opens(&manager(), &ChannelManager::channelOpened);
    auto const loopTimersAreOver = [] {
        bool isOver = false;
        QTimer::singleShot(ChannelManager::pauseBeforeLoop, qApp, [&] { isOver = true; });
        return QTest::qWaitFor([&] { return isOver; });
    };
    for (int streams = 0; streams < 2; ++streams)
        emit channel("a")->streamNeedsLoop(channel("a"), nullptr);
    EXPECT_TRUE(loopTimersAreOver());
    EXPECT_EQ(opens.size(), 1) << "one opening for both of its streams";

    manager().openChannel("b", false, true);
    emit channel("a")->streamNeedsLoop(channel("a"), nullptr);
    EXPECT_TRUE(loopTimersAreOver());
    EXPECT_EQ(opens.size(), 1) << "not at full sound into the fade";
    channel("a")->onStreamError(nullptr, "lost");
    EXPECT_EQ(manager().channelClickAction("a", false), ReconnectClickAction);
    manager().performChannelClickAction("a", ReconnectClickAction);
    EXPECT_EQ(opens.size(), 2);
    _timers.advance(ChannelManager::fadeTime);
    EXPECT_EQ(opened(), "a*");
    EXPECT_FALSE(channel("a")->hasError());

    ChannelDescription preview = channelOf("preview");
    preview.setChannelType(ChannelDescription::UserChannel);
    manager().previewChannel(preview, false, false);
    manager().setActiveChannel(channel("preview"));
    manager().closeForLater();
    manager().closeForLater();
    manager().openLastChannels();
    EXPECT_EQ(opened(), "a preview*") << "a window that is shown again shows what it did";
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
    _appData.settings.setMultiviewChannelLimit(0);
    manager().closeAllChannels();
    openBeside({"a", "c"});
    EXPECT_EQ(opened(), "a*") << "one channel always plays";
    exceeded.clear();
    _appData.settings.setMultiviewChannelLimit(2);
    openBeside({"c"});
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
    manager().openChannel("a", false, false);
    answerSponsorship(true, SponsorshipResponse::StaticImage);
    QString const preRoll = "file_sponsorship_7";
    ASSERT_TRUE(QTest::qWaitFor([this] { return manager().sponsorshipChannel(); })) << "its media come by a memo";
    EXPECT_EQ(opened(), preRoll + "*");
    EXPECT_EQ(manager().channelClickAction(preRoll, false), SponsorClickAction);
    manager().performChannelClickAction(preRoll, SponsorClickAction);
    EXPECT_EQ(_sponsorship.calls.last(), "click");
    manager().openChannel("c", true, true);
    manager().openChannel("b", false, false);
    EXPECT_EQ(opened(), preRoll + "*") << "it goes on";
    EXPECT_EQ(manager().postSponsorshipChannelId(), "c");
    EXPECT_EQ(manager().lastChannelId(), "a") << "nobody chose it";

    Channel* const played = manager().sponsorshipChannel();
    emit played->streamOpened(played, nullptr);
    emit played->streamCompleted(played, nullptr);
    EXPECT_EQ(_sponsorship.calls.last(), "started") << "a still image stays for its time";
    _timers.advance(1000 * 1000 + SponsorshipSequence::afterPlayback + ChannelManager::fadeTime);
    EXPECT_EQ(_sponsorship.calls.last(), "completed");
    EXPECT_EQ(opened(), "c* b") << "what was added meanwhile plays beside it";
    QCoreApplication::processEvents();
    EXPECT_FALSE(manager().sponsorshipChannel());
    EXPECT_FALSE(channel(preRoll));

    manager().openChannel("a", true, true);
    _timers.advance(ChannelManager::fadeTime);
    manager().closeAllChannels(true);
    EXPECT_EQ(_sponsorship.calls.last(), "cancel");
    answerSponsorship(true);
    EXPECT_EQ(opened(), "") << "an answer that nobody waits for";

    manager().openChannel("a", true, true);
    manager().openChannel("b", false, true);
    EXPECT_EQ(_sponsorship.calls.last(), "cancel") << "another choice, without one";
    EXPECT_EQ(opened(), "b*");
    manager().openChannel("c", true, true);
    _timers.advance(ChannelManager::fadeTime);
    answerSponsorship(true, SponsorshipResponse::StaticImage);
    ASSERT_TRUE(QTest::qWaitFor([this] { return manager().sponsorshipChannel(); }));
    emit manager().sponsorshipChannel()->streamOpened(manager().sponsorshipChannel(), nullptr);
    emit manager().sponsorshipChannel()->streamCompleted(manager().sponsorshipChannel(), nullptr);
    manager().closeChannel(preRoll);
    EXPECT_EQ(_sponsorship.calls.last(), "incomplete");
    QCoreApplication::processEvents();
    EXPECT_EQ(opened(), "c*") << "closed before its end";

    manager().openChannel("a", true, true);
    _timers.advance(ChannelManager::fadeTime);
    _timers.advance(SponsorshipSequence::startTime);
    EXPECT_EQ(_sponsorship.calls.last(), "cancel");
    EXPECT_EQ(opened(), "a*") << "nobody answers";
    manager().openChannel("b", true, true);
    _timers.advance(ChannelManager::fadeTime);
    answerSponsorship(true, SponsorshipResponse::StaticImage);
    ASSERT_TRUE(QTest::qWaitFor([this] { return manager().sponsorshipChannel(); }));
    emit manager().sponsorshipChannel()->streamOpened(manager().sponsorshipChannel(), nullptr);
    emit manager().sponsorshipChannel()->streamCompleted(manager().sponsorshipChannel(), nullptr);
    manager().openChannel("c", false, true);
    _timers.advance(1000 * 1000 + ChannelManager::fadeTime);
    EXPECT_EQ(opened(), "c*") << "something else was chosen";
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

    Channel several(_appData, [] {
        ChannelDescription description = channelOf("several");
        for (int i = 0; i < 3; ++i)
            description.appendStreamDescription(StreamDescription(Uri(QString("nothing://a/%1").arg(i))));
        return description;
    }());
    QList<ChannelStream*> streams;
    QObject::connect(&several, &Channel::streamVolumeChanged, &several,
                     [&](Channel*, ChannelStream* stream, double volume) {
                         EXPECT_EQ(volume, streams.isEmpty() ? 0.5 : 0.0) << "one sound for all";
                         streams.append(stream);
                     });
    several.setVolume(0.5);
    ASSERT_EQ(streams.size(), 3);
    several.open();
    several.onStreamError(streams[0], "first");
    several.onStreamError(streams[1], "second");
    several.onStreamError(streams[1], "");
    several.onStreamOpened(streams[1]);
    EXPECT_EQ(several.errorText(), "first") << "which is still dead";

    Channel owner(_appData, channelOf("x"));
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

TEST_F(ChannelManagerTest, AnUpdateOfThousandsIsTakenInSlicesAndAnotherReplacesItsRest)
{
    QStringList ids;
    for (int i = 0; i < 3000; ++i)
        ids.append(QString::number(i));
    provide(ids);
    provided.append(channelOf("late"));
    provided.removeFirst();
    manager().refresh();
    ChannelDescription drawn = channelOf("late");
    drawn.setLogo(QImage(2, 2, QImage::Format_RGB32));
    manager().onChannelLogoUpdated(drawn);
    while (manager().isUpdating())
        _timers.advance(1);
    EXPECT_EQ(manager().channelCount(), 3000);
    ASSERT_TRUE(channel("late"));
    EXPECT_EQ(channel("late")->desc.logo().width(), 2) << "it came between two slices";
    EXPECT_FALSE(channel("0"));

    ChannelAction& entry = *manager().channelActions().action(channel("late"));
    entry.showLogo({16, 16});
    qint64 const shown = entry.icon().cacheKey();
    entry.showLogo({16, 16});
    EXPECT_EQ(entry.icon().cacheKey(), shown) << "a menu that opens again unpacks nothing";
    drawn.setLogo(QImage(3, 3, QImage::Format_RGB32));
    manager().onChannelLogoUpdated(drawn);
    entry.showLogo({16, 16});
    EXPECT_NE(entry.icon().cacheKey(), shown);
    manager().unloadChannels();
    EXPECT_EQ(manager().channelCount(), 0);
}

TEST_F(ChannelManagerTest, AChannelBehindAPreRollGoesWithItIfItIsNotShown)
{
    provide({"a", "b", "c", "d"});
    provided[0].appendStreamDescription(StreamDescription(Uri("nothing://a/film")));
    manager().refresh();
    manager().openChannel("a", true, true);
    answerSponsorship(true, SponsorshipResponse::StaticImage);
    ASSERT_TRUE(QTest::qWaitFor([this] { return manager().sponsorshipChannel(); }));
    EXPECT_TRUE(channel("a")->isBuffering());
    emit manager().sponsorshipChannel()->streamOpened(manager().sponsorshipChannel(), nullptr);
    emit manager().sponsorshipChannel()->streamLooped(manager().sponsorshipChannel(), nullptr);
    _timers.advance(1000 * 1000);
    _timers.advance(SponsorshipSequence::afterPlayback);
    manager().openChannel("b", false, true); // While the pre-roll fades to the other.
    EXPECT_EQ(manager().channelClickAction("a", false), OpenClickAction);
    _timers.advance(ChannelManager::fadeTime);
    EXPECT_EQ(opened(), "b*");
    EXPECT_FALSE(channel("a")->isBuffering());

    QKeyEvent const next(QEvent::KeyPress, Qt::Key_PageDown, Qt::NoModifier);
    _appData.settings.setSponsorshipEnabled(false);
    manager().videoKeyPress(&next);
    manager().videoKeyPress(&next);
    _timers.advance(ChannelManager::fadeTime);
    EXPECT_EQ(opened(), "d*") << "each press goes on by one";
}

TEST_F(ChannelManagerTest, OnlyLocalFilesLoopAndAnAdvertisementNeverDoes)
{
    auto const ends = [this](char const* rootId) {
        ChannelDescription description = channelOf(rootId);
        description.appendStreamDescription(StreamDescription(Uri("nothing://a/film")));
        Channel channel(_appData, description);
        QSignalSpy completed(&channel, &Channel::streamCompleted);
        QSignalSpy needsLoop(&channel, &Channel::streamNeedsLoop);
        ChannelStream* stream = nullptr;
        QObject::connect(&channel, &Channel::streamMutedChanged, &channel,
                         [&](Channel*, ChannelStream* each) { stream = each; });
        channel.setMuted(true);
        channel.open();
        stream->onCompleted(nullptr);
        return QString("%1 %2").arg(completed.size()).arg(needsLoop.size());
    };
    EXPECT_EQ(ends("file_1"), "0 1");
    EXPECT_EQ(ends("file_sponsorship_1"), "1 0");
    EXPECT_EQ(ends("latte_1"), "1 0");
}

TEST_F(ChannelManagerTest, AClickIsAPressAndAReleaseOnOneChannelOfTheWall)
{
    constexpr QSize surface(1600, 900);
    ChannelGrid::Face const left = ChannelGrid::face(surface, 4, 0);
    ChannelGrid::Face const right = ChannelGrid::face(surface, 4, 3);
    EXPECT_DOUBLE_EQ(left.x, -right.x);
    EXPECT_DOUBLE_EQ(left.degrees, -right.degrees);
    EXPECT_LT(left.z, 0.0) << "into the screen";
    EXPECT_EQ(ChannelGrid::face(surface, 1, 0).degrees, 0.0) << "one alone is flat";

    provide({"a", "b"});
    openBeside({"a", "b"});
    manager().plainPictures(QRect(0, 0, 200, 100), GLMovieRenderer::TouchInside);
    QPointF const onA(50, 50);
    QPointF const onB(150, 50);
    manager().videoMousePress(onA, {});
    manager().videoMouseRelease(onB, {});
    EXPECT_EQ(opened(), "a* b");
    manager().videoMousePress(onB, {});
    manager().videoMouseRelease(onB, {});
    EXPECT_EQ(opened(), "a b*");
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

TEST_F(ChannelManagerTest, AViewersChannelGoesWithTheDirectoryOnceItIsAdded)
{
    ChannelDescription own = channelOf("own");
    own.setChannelType(ChannelDescription::UserChannel);
    manager().addUserChannel(own);
    provide({"a"});
    EXPECT_TRUE(channel("own")) << "the directory does not know it";
    own.setViewerAdded(true);
    provided.append(own);
    manager().refresh();
    EXPECT_TRUE(channel("own")->desc.isViewerAdded());
    provide({"a"});
    EXPECT_FALSE(channel("own"));
}
