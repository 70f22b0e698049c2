#include "ChannelManager.h"

#include "AppData.h"
#include "Channel.h"
#include "Logger.h"
#include "LoggerManager.h"
#include "OwnChannels.h"
#include "SponsorshipSource.h"

#include <QDateTime>
#include <QTimer>

Logger* ChannelManager::log = LoggerManager::logger();

ChannelManager::ChannelManager(AppData& appData, QObject* parent) : ChannelManager(appData, Parts(), parent) {}

ChannelManager::ChannelManager(AppData& appData, Parts const& parts, QObject* parent)
    : QObject(parent), _appData(appData),
      _noSponsorship(parts.sponsorship ? nullptr : std::make_unique<NoSponsorship>()),
      _sponsorshipSource(parts.sponsorship ? parts.sponsorship : _noSponsorship.get()),
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
    connect(&_feed, &ChannelFeed::channelsUpdated, this, &Manager::onChannelsUpdated);
    connect(&_update, &ChannelUpdate::completed, this, &Manager::onUpdateCompleted);
    connect(&_feed, &ChannelFeed::channelLogoUpdated, this, &Manager::onChannelLogoUpdated);
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

void ChannelManager::openChannel(Channel* channel, bool useSponsorship, bool nonMultiview, int index)
{
    if (_switch.isPending() && !nonMultiview)
        _switch.addBeside(channel->desc.rootId());
    else if (!nonMultiview && !postSponsorshipChannelId().isEmpty())
        _sponsorship.addBeside(channel->desc.rootId());
    else if (!_switch.isPending() && isChannelOpen(channel))
        setActiveChannel(channel);
    else if (nonMultiview || _open.isEmpty())
        openChannelNonMultiview(channel, useSponsorship);
    else
        openChannelMultiview(channel, index);
}

void ChannelManager::openChannel(QString const& rootId, bool useSponsorship, bool nonMultiview, int index)
{
    if (Channel* const channel = getChannelByRootId(rootId))
        openChannel(channel, useSponsorship, nonMultiview, index);
}

void ChannelManager::previewChannel(ChannelDescription const& description, bool useSponsorship, bool nonMultiview,
                                    int index)
{
    openChannel(addUserChannel(description), useSponsorship, nonMultiview, index);
}

void ChannelManager::openChannelNonMultiview(Channel* channel, bool useSponsorship)
{
    if (useSponsorship && _sponsorship.isPlaying()) {
        _sponsorship.replaceNext(channel);
        return;
    }
    using Action = ChannelSwitch::Action;
    bool const isNew = _switch.begin(useSponsorship ? Action::OpenSponsorship : Action::OpenChannel,
                                     channel->desc.rootId(), fadeTime);
    if (_open.isEmpty())
        onFadeAndCloseAllChannels(); // Nothing fades.
    else if (isNew)
        _open.fadeOut(fadeTime);
}

void ChannelManager::openChannelMultiview(Channel* channel, int index)
{
    int const limit = _appData.settings.multiviewChannelLimit();
    if (limit != -1 && _open.count() >= limit)
        emit multiviewLimitExceeded();
    else
        _open.open(channel, index);
}

void ChannelManager::fadeAndCloseAllChannels(int ms)
{
    _open.fadeOut(ms);
    _switch.begin(ChannelSwitch::Action::None, {}, ms);
}

void ChannelManager::onFadeAndCloseAllChannels()
{
    auto const [action, id, beside] = _switch.take();
    Channel const* const previous = activeChannel();
    qint64 const opened = previous ? previous->openTime() : 0;
    closeAllChannels(false);
    Channel* const wanted = getChannelByRootId(id);
    if (wanted && action == ChannelSwitch::Action::OpenSponsorship) {
        qint64 const seconds = opened > 0 ? QDateTime::currentSecsSinceEpoch() - opened : 0;
        _sponsorship.request(wanted, beside, previous, static_cast<int>(seconds));
        return;
    }
    if (wanted && wanted != sponsorshipChannel())
        _sponsorship.cancel(); // What was to come is not what the viewer wants now.
    for (QString const& each : QStringList(id) + beside)
        if (Channel* const channel = getChannelByRootId(each); channel && !isChannelOpen(channel))
            openChannelMultiview(channel, -1);
}

void ChannelManager::closeChannel(Channel* channel)
{
    _open.close(channel);
}

void ChannelManager::closeChannel(QString const& rootId)
{
    if (Channel* const channel = getChannelByRootId(rootId))
        closeChannel(channel);
}

void ChannelManager::closeAllChannels(bool cancelSponsorship)
{
    _open.closeAll();
    if (cancelSponsorship)
        _sponsorship.cancel();
}

void ChannelManager::closeForLater()
{
    ChannelSwitch::Pending const pending = _switch.take();
    QString const afterPreRoll = postSponsorshipChannelId();
    QStringList const next = pending.channelId.isEmpty() ? QStringList(afterPreRoll) + _sponsorship.beside()
                                                         : QStringList(pending.channelId) + pending.beside;
    closeAllChannels();
    if (next.constFirst().isEmpty())
        return;
    setLastChannelId(next.constFirst());
    setLastChannelIds(next);
}

void ChannelManager::openLastChannels(bool useSponsorship)
{
    QString const lastId = lastChannelId(); // Both change while channels are opened.
    QStringList const lastIds = lastChannelIds();
    if (lastIds.size() > 1)
        for (QString const& id : lastIds)
            if (Channel* const channel = getChannelByRootId(id); channel && !isChannelOpen(channel))
                openChannelMultiview(channel, -1);
    Channel* const last = getChannelByRootId(lastId);
    if (last && isChannelOpen(last))
        setActiveChannel(last);
    else if (_open.isEmpty() && (last || defaultChannel()))
        openChannel(last ? last : defaultChannel(), useSponsorship, true);
}

void ChannelManager::reconnectChannel(Channel* channel)
{
    ChannelDescription const description = channel->desc;
    reconnectChannel(channel, description);
}

void ChannelManager::reconnectChannel(Channel* channel, ChannelDescription const& description)
{
    int const position = static_cast<int>(openChannels().indexOf(channel));
    bool const wasActive = channel == activeChannel();
    closeChannel(channel);
    channel->setDesc(description, channel->desc.streamDescriptions() != description.streamDescriptions());
    _open.open(channel, position);
    if (wasActive)
        setActiveChannel(channel);
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
    // The stream that asks must be out of its own call before it is closed.
    QTimer::singleShot(0, channel, [this, channel] {
        if (isChannelOpen(channel))
            performChannelClickAction(channel->desc.rootId(), ReconnectClickAction);
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
