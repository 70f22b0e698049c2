// How the directory follows its provider.

#include "Channel.h"
#include "ChannelManager.h"
#include "Logger.h"
#include "LoggerManager.h"

#include <utility>

Channel* ChannelManager::defaultChannel() const
{
    Channel* const channel = getChannelByRootId(_feed.defaultChannelId());
    return channel ? channel : firstChannel();
}

Channel* ChannelManager::addChannel(ChannelDescription const& description)
{
    if (Channel* const known = getChannelByRootId(description.rootId()))
        return known;
    Channel* const channel = _known.add(std::make_unique<Channel>(_appData, description));
    LOG_INFO("Added channel %d %s", _known.count(), qUtf8Printable(description.title()));
    _actions.create(channel);
    connect(channel, &Channel::streamError, this, &ChannelManager::onChannelStreamError);
    connect(channel, &Channel::streamStateChanged, this, &ChannelManager::onChannelStreamStateChanged);
    connect(channel, &Channel::streamClosed, this, &ChannelManager::onChannelStreamClosed);
    connect(channel, &Channel::streamNeedsLoop, this, &ChannelManager::onChannelStreamNeedsLoop);
    connect(channel, &Channel::streamOpened, this, &ChannelManager::streamOpened);
    connect(channel, &Channel::pictureUpdated, this, &ChannelManager::pictureUpdated);
    emit channelAdded(description);
    return channel;
}

void ChannelManager::removeChannel(Channel* channel)
{
    closeChannel(channel);
    _actions.destroy(channel);
    std::unique_ptr<Channel> const removed = _known.remove(channel);
    if (!removed)
        return; // It is none of these.
    LOG_INFO("Removed channel %d %s", _known.count(), qUtf8Printable(removed->desc.title()));
    emit channelRemoved(removed->desc);
}

Channel* ChannelManager::addUserChannel(ChannelDescription const& description)
{
    Channel* channel = getChannelByRootId(description.rootId());
    if (channel) {
        bool const rebuild = channel->desc.streamDescriptions() != description.streamDescriptions();
        if (rebuild)
            closeChannel(channel);
        channel->setDesc(description, rebuild);
        _actions.update(channel);
        _known.sort();
    } else {
        channel = addChannel(description);
    }
    emit channelsUpdated();
    return channel;
}

void ChannelManager::removeUserChannel(Channel* channel)
{
    removeChannel(channel);
    emit channelsUpdated();
}

void ChannelManager::unloadChannels()
{
    _update.cancel();
    _switch.take();
    closeAllChannels();
    std::vector<std::unique_ptr<Channel>> removed = _known.removeAll();
    for (auto const& channel : removed)
        emit channelRemoved(channel->desc);
    _retired.take(std::move(removed));
    _channelsLoaded = false;
    emit channelsUpdated();
    LOG_INFO("Channels unloaded");
}

void ChannelManager::onChannelsUpdated()
{
    if (_feed.provider())
        _update.begin(*_feed.provider());
}

void ChannelManager::onUpdateCompleted(bool hasChanged)
{
    bool const isFirst = !std::exchange(_channelsLoaded, true);
    if (hasChanged || isFirst) // That there is none is news, too.
        emit channelsUpdated();
}

void ChannelManager::onChannelLogoUpdated(ChannelDescription const& description)
{
    _update.noteLogo(description);
    Channel* const channel = getChannelByRootId(description.rootId());
    if (!channel)
        return;
    ChannelDescription changed = channel->desc;
    changed.setLogo(description.packedLogo());
    channel->setDesc(changed, false);
    emit pictureUpdated();
    _actions.update(channel);
    emit channelLogoUpdated(description);
}
