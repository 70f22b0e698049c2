#include "ChannelManager.h"

#include "AppData.h"
#include "Channel.h"
#include "Logger.h"
#include "LoggerManager.h"
#include "OwnChannels.h"
#include "SponsorshipSource.h"

#include <QTimer>

Logger* ChannelManager::log = LoggerManager::logger();

ChannelManager::ChannelManager(AppData& appData, QObject* parent) : ChannelManager(appData, Parts(), parent) {}

ChannelManager::ChannelManager(AppData& appData, Parts const& parts, QObject* parent)
    : QObject(parent), _appData(appData),
      _noSponsorship(parts.sponsorship ? nullptr : std::make_unique<NoSponsorship>()),
      _sponsorshipSource(parts.sponsorship ? parts.sponsorship : _noSponsorship.get()),
      _retired(_actions, parts.timers ? parts.timers : &appData.timerFactory),
      _switch(parts.timers ? parts.timers : &appData.timerFactory),
      _feed(appData, parts.timers ? parts.timers : &appData.timerFactory, parts.createProvider),
      _update(*this, _known, parts.timers ? parts.timers : &appData.timerFactory),
      _sponsorship(appData, *this, parts.timers ? parts.timers : &appData.timerFactory, _sponsorshipSource)
{
    connectParts();
}

void ChannelManager::connectParts()
{
    using Sponsorship = SponsorshipSequence;
    using Manager = ChannelManager;
    connect(&_open, &OpenChannels::opened, this, &Manager::channelOpened);
    connect(&_open, &OpenChannels::closed, this, &Manager::channelClosed);
    connect(&_open, &OpenChannels::changing, this, &Manager::channelChanging);
    connect(&_open, &OpenChannels::changed, this, &Manager::channelChanged);
    connect(&_open, &OpenChannels::pictureUpdated, this, &Manager::pictureUpdated);
    connect(&_open, &OpenChannels::changed, &_actions, [this](Channel*, Channel* to) { _actions.setActive(to); });
    connect(&_actions, &ChannelActions::channelClicked, this, &Manager::onChannelClicked);
    connect(&_switch, &ChannelSwitch::fadedOut, this, &Manager::onFadeAndCloseAllChannels);
    _waitingClick.setSingleShot(true);
    connect(&_waitingClick, &QTimer::timeout, this, [this] { _waitingAction(); });
    connect(&_feed, &ChannelFeed::channelsUpdated, this, &Manager::onChannelsUpdated);
    connect(&_update, &ChannelUpdate::completed, this, &Manager::onUpdateCompleted);
    connect(&_feed, &ChannelFeed::channelLogoUpdated, this, &Manager::onChannelLogoUpdated);
    connect(&_feed, &ChannelFeed::refreshed, this, &ChannelManager::directoryRefreshed);
    connect(&_feed, &ChannelFeed::failed, this, [this](QString const& text) { emit channelError(nullptr, text); });
    connect(&_sponsorship, &Sponsorship::postSponsorshipChannelChanged, this,
            &Manager::postSponsorshipChannelChanged);
    connect(&_sponsorship, &Sponsorship::sponsorshipLoadCompanionAds, this, &Manager::sponsorshipLoadCompanionAds);
    connect(&_sponsorship, &Sponsorship::sponsorshipDisplayCompanionAds, this,
            &Manager::sponsorshipDisplayCompanionAds);
    connect(&_sponsorship, &Sponsorship::sponsorshipCloseCompanionAds, this, &Manager::sponsorshipCloseCompanionAds);
}

ChannelManager::~ChannelManager()
{
    stopChecking();
    closeAllChannels();
}

void ChannelManager::openUserStream(QString const& url, QString const& title, bool nonMultiview)
{
    LOG_INFO("Open Latte Stream %s", qPrintable(url));
    openOwnChannel(OwnChannels::describeStream(url, title), nonMultiview);
}

void ChannelManager::openFile(QString const& path, bool nonMultiview)
{
    openOwnChannel(OwnChannels::describeFile(path), nonMultiview);
}

/// What the viewer names anew begins anew, alone if so wanted, even if it is open.
void ChannelManager::openOwnChannel(ChannelDescription const& description, bool nonMultiview)
{
    Channel* const channel = addUserChannel(description);
    if (nonMultiview)
        openChannelNonMultiview(channel, false);
    else
        openChannel(channel, false, false);
}

QString ChannelManager::activeChannelId() const
{
    return activeChannel() ? activeChannel()->desc.id() : QString();
}

QString ChannelManager::activeChannelRootId() const
{
    return activeChannel() ? activeChannel()->desc.rootId() : QString();
}

bool ChannelManager::isChannelOpenByRootId(QString const& rootId) const
{
    return isChannelOpen(getChannelByRootId(rootId));
}

void ChannelManager::setSpeed(double speed)
{
    _open.setSpeed(speed);
    emit speedChanged();
}

void ChannelManager::seekForwards(double seconds)
{
    if (Channel* const channel = activeChannel())
        channel->seekForwards(seconds);
}

void ChannelManager::seekBackwards(double seconds)
{
    if (Channel* const channel = activeChannel())
        channel->seekBackwards(seconds);
}

void ChannelManager::setMovieTime(double seconds)
{
    if (Channel* const channel = activeChannel())
        channel->setMovieTime(seconds);
}

void ChannelManager::setPaused(bool paused)
{
    for (Channel* const channel : openChannels())
        channel->setPaused(paused);
    emit pausedChanged();
}

bool ChannelManager::isPaused() const
{
    return activeChannel() && activeChannel()->isPaused();
}

void ChannelManager::swapChannels(QString const& oneRootId, QString const& otherRootId)
{
    _open.swap(getChannelByRootId(oneRootId), getChannelByRootId(otherRootId));
}

void ChannelManager::setViewpoint(QPointF viewpoint)
{
    _grid.setViewpoint(viewpoint);
    emit pictureUpdated();
}

void ChannelManager::onChannelStreamError(Channel* channel, ChannelStream*, QString const& text)
{
    if (!text.isEmpty())
        LOG_ERROR("Error for channel %s %s", Channel::logTitle(channel).constData(), qUtf8Printable(text));
    emit channelError(channel, text);
}

void ChannelManager::onChannelStreamStateChanged(Channel* channel, ChannelStream*, QString const& text)
{
    LOG_INFO("StateChanged for channel %s %s", Channel::logTitle(channel).constData(), qUtf8Printable(text));
    emit channelStateChanged(channel, text);
}

void ChannelManager::onChannelStreamClosed(Channel* channel, ChannelStream*)
{
    LOG_DEBUG("A stream of channel %s was closed", Channel::logTitle(channel).constData());
    emit pictureUpdated(); // Its last one has to go.
}

void ChannelManager::onChannelStreamNeedsLoop(Channel* channel, ChannelStream*)
{
    loopLater(channel);
}

/// Not at once: the stream that asks must be out of its own call, and one that ends as soon as it begins must not
/// keep the program busy. What failed waits for a click, and what fades out for what the viewer does. Of several
/// streams that have ended the first has the channel opened again.
void ChannelManager::loopLater(Channel* channel)
{
    QTimer::singleShot(pauseBeforeLoop, channel, [this, channel, opening = channel->openings()] {
        if (!isChannelOpen(channel) || channel->hasError() || opening != channel->openings())
            return;
        if (_switch.isPending())
            loopLater(channel);
        else
            reconnectChannel(channel);
    });
}

void ChannelManager::onMuteChanged()
{
    setMuted(_appData.settings.muted());
    if (_sponsorship.isPlaying())
        _sponsorshipSource->onPlaybackMutedChanged(muted());
}

void ChannelManager::onVolumeChanged()
{
    setVolume(_appData.settings.volume());
    if (_sponsorship.isPlaying())
        _sponsorshipSource->onPlaybackVolumeChanged(volume());
}

void ChannelManager::onFullScreenChanged()
{
    if (_sponsorship.isPlaying())
        _sponsorshipSource->onPlaybackFullScreenChanged(_appData.settings.showFullScreen());
}
