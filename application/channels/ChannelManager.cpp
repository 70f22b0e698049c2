#include "ChannelManager.h"

#include "AppData.h"
#include "Channel.h"
#include "Logger.h"
#include "LoggerManager.h"
#include "OwnChannels.h"

#include <QTimer>

Logger* ChannelManager::log = LoggerManager::logger();

ChannelManager::ChannelManager(AppData& appData, QObject* parent, TimerFactory* timers,
                               ChannelFeed::ProviderFactory const& providerFactory)
    : QObject(parent), _appData(appData), _switch(timers ? timers : &appData.timerFactory),
      _feed(appData, timers ? timers : &appData.timerFactory, providerFactory)
{
    connect(&_open, &OpenChannels::opened, this, &ChannelManager::channelOpened);
    connect(&_open, &OpenChannels::closed, this, &ChannelManager::channelClosed);
    connect(&_open, &OpenChannels::changing, this, &ChannelManager::channelChanging);
    connect(&_open, &OpenChannels::changed, this, &ChannelManager::channelChanged);
    connect(&_open, &OpenChannels::pictureUpdated, this, &ChannelManager::pictureUpdated);
    connect(&_open, &OpenChannels::changed, &_actions, [this](Channel*, Channel* to) { _actions.setActive(to); });
    connect(&_actions, &ChannelActions::channelClicked, this, &ChannelManager::onChannelClicked);
    connect(&_switch, &ChannelSwitch::fadedOut, this, &ChannelManager::onFadeAndCloseAllChannels);
    connect(&_feed, &ChannelFeed::channelsUpdated, this, &ChannelManager::onChannelsUpdated);
    connect(&_feed, &ChannelFeed::channelLogoUpdated, this, &ChannelManager::onChannelLogoUpdated);
    connect(&_feed, &ChannelFeed::failed, this, [this](QString const& text) { emit channelError(nullptr, text); });
}

ChannelManager::~ChannelManager()
{
    stopChecking();
    closeAllChannels();
}

void ChannelManager::openChannel(Channel* channel, bool nonMultiview, int index)
{
    if (_switch.isPending() && !nonMultiview)
        _switch.addBeside(channel->desc.rootId());
    else if (!_switch.isPending() && isChannelOpen(channel))
        setActiveChannel(channel);
    else if (nonMultiview || _open.isEmpty())
        openChannelNonMultiview(channel);
    else
        openChannelMultiview(channel, index);
}

void ChannelManager::openChannel(QString const& rootId, bool nonMultiview, int index)
{
    if (Channel* const channel = getChannelByRootId(rootId))
        openChannel(channel, nonMultiview, index);
}

void ChannelManager::openChannelNonMultiview(Channel* channel)
{
    bool const isNew = _switch.begin(ChannelSwitch::Action::OpenChannel, channel->desc.rootId(), fadeTime);
    if (_open.isEmpty())
        onFadeAndCloseAllChannels(); // Nothing fades.
    else if (isNew)
        _open.fadeOut(fadeTime);
}

bool ChannelManager::openChannelMultiview(Channel* channel, int index)
{
    int const limit = _appData.settings.multiviewChannelLimit();
    if (limit != -1 && _open.count() >= limit) {
        emit multiviewLimitExceeded();
        return false;
    }
    _open.open(channel, index);
    return true;
}

void ChannelManager::fadeAndCloseAllChannels(int ms)
{
    _open.fadeOut(ms);
    _switch.begin(ChannelSwitch::Action::None, {}, ms);
}

void ChannelManager::onFadeAndCloseAllChannels()
{
    auto const [action, id, beside] = _switch.take();
    closeAllChannels();
    for (QString const& each : QStringList(id) + beside)
        if (Channel* const channel = getChannelByRootId(each); channel && !isChannelOpen(channel))
            _open.open(channel, -1);
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

void ChannelManager::closeAllChannels()
{
    _open.closeAll();
}

void ChannelManager::closeForLater()
{
    auto const [action, id, beside] = _switch.take();
    closeAllChannels();
    if (id.isEmpty())
        return;
    setLastChannelId(id);
    setLastChannelIds(QStringList(id) + beside);
}

void ChannelManager::openLastChannels()
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
        openChannel(last ? last : defaultChannel(), true);
}

void ChannelManager::reconnectChannel(Channel* channel)
{
    int const position = static_cast<int>(openChannels().indexOf(channel));
    bool const wasActive = channel == activeChannel();
    closeChannel(channel);
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
        openChannelNonMultiview(channel);
    else
        openChannel(channel, false);
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

QCursor ChannelManager::cursorAt(QPointF point) const
{
    Channel const* const channel = _grid.channelAt(openChannels(), point);
    bool const clickPlays = channel && (channel->hasError() || channel != activeChannel());
    return clickPlays ? *_appData.playCursor() : QCursor(Qt::ArrowCursor);
}

void ChannelManager::videoMousePress(QPointF point)
{
    Channel* const channel = _grid.channelAt(openChannels(), point);
    if (!channel)
        return;
    if (channel->hasError())
        reconnectChannel(channel);
    else
        setActiveChannel(channel);
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
}

void ChannelManager::onVolumeChanged()
{
    setVolume(_appData.settings.volume());
}
