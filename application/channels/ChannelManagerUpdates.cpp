// How the directory follows its provider.

#include "Channel.h"
#include "ChannelDescriptionProvider.h"
#include "ChannelManager.h"
#include "Logger.h"
#include "LoggerManager.h"

Channel* ChannelManager::defaultChannel() const
{
    Channel* const channel = getChannelByRootId(_feed.defaultChannelId());
    return channel ? channel : firstChannel();
}

Channel* ChannelManager::addChannel(ChannelDescription const& description)
{
    Channel* const channel = _known.add(std::make_unique<Channel>(_appData, description));
    LOG_INFO("Added channel %d %s", _known.count(), qUtf8Printable(description.title()));
    _actions.create(channel);
    connect(channel, &Channel::streamError, this, &ChannelManager::onChannelStreamError);
    connect(channel, &Channel::streamStateChanged, this, &ChannelManager::onChannelStreamStateChanged);
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
    _sponsorship.cancel();
    _switch.take();
    closeAllChannels();
    for (Channel* const channel : channels())
        removeChannel(channel);
    _channelsLoaded = false;
    emit channelsUpdated();
    LOG_INFO("Channels unloaded");
}

void ChannelManager::onChannelsUpdated()
{
    if (!_feed.provider())
        return;
    LOG_INFO("Channel update started");
    KnownChannels::Changes const changes = _known.compare(*_feed.provider());
    _channelsLoaded = true;
    if (changes.isEmpty()) {
        LOG_INFO("Channel update complete. No channels were modified");
        return;
    }
    QStringList const openIds = rootIds(openChannels());
    QString const activeId = activeChannelRootId();
    applyChanges(changes);
    if (openIds != rootIds(openChannels())) {
        LOG_INFO("Some of the open channels were closed. Need to reopen them");
        reopen(openIds, activeId);
    }
    LOG_INFO("Channel update complete. Channels were modified");
    emit channelsUpdated();
}

void ChannelManager::applyChanges(KnownChannels::Changes const& changes)
{
    for (Channel* const channel : changes.gone)
        removeChannel(channel);
    for (ChannelDescription const& description : changes.modified) {
        Channel* const channel = getChannelByRootId(description.rootId());
        // Streams are made anew only where they differ: what plays is not disturbed by a new title.
        bool const rebuild = channel->desc.streamDescriptions() != description.streamDescriptions();
        if (rebuild)
            closeChannel(channel);
        channel->setDesc(description, rebuild);
        _actions.update(channel);
    }
    _known.sort();
    for (ChannelDescription const& description : changes.added)
        addChannel(description);
}

/// In their old places, as far as they still exist.
void ChannelManager::reopen(QStringList const& ids, QString const& activeId)
{
    int index = 0;
    for (QString const& id : ids) {
        Channel* const channel = getChannelByRootId(id);
        if (!channel)
            continue;
        if (!isChannelOpen(channel))
            _open.open(channel, index);
        ++index;
    }
    if (Channel* const active = getChannelByRootId(activeId); active && isChannelOpen(active))
        setActiveChannel(active);
}

QStringList ChannelManager::rootIds(QList<Channel*> const& channels)
{
    QStringList ids;
    for (Channel const* const channel : channels)
        ids.append(channel->desc.rootId());
    return ids;
}

void ChannelManager::onChannelLogoUpdated(ChannelDescription const& description)
{
    Channel* const channel = getChannelByRootId(description.rootId());
    if (!channel)
        return;
    channel->desc.setLogo(description.logo());
    _actions.update(channel);
    emit channelLogoUpdated(description);
}
