// How channels are opened and closed: alone after a fade, beside others, again.

#include "AppData.h"
#include "Channel.h"
#include "ChannelManager.h"

#include <QDateTime>

#include <utility>

void ChannelManager::openChannel(Channel* channel, bool useSponsorship, bool nonMultiview, int index)
{
    if (_switch.isPending() && nonMultiview && isChannelOpen(channel))
        stay(channel);
    else if (_switch.isPending() && !nonMultiview)
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

bool ChannelManager::isAboutToOpen(QString const& rootId) const
{
    ChannelSwitch::Pending const& next = _switch.pending();
    return rootId == next.channelId || next.beside.contains(rootId) || rootId == postSponsorshipChannelId() ||
           _sponsorship.beside().contains(rootId);
}

void ChannelManager::previewChannel(ChannelDescription const& description, bool useSponsorship, bool nonMultiview,
                                    int index)
{
    openChannel(addUserChannel(description), useSponsorship, nonMultiview, index);
}

/// The viewer has thought better of leaving what still fades out.
void ChannelManager::stay(Channel* channel)
{
    _switch.take();
    _open.dropUnseen();
    _open.fadeIn(fadeTime);
    setActiveChannel(channel);
}

void ChannelManager::reconnectAndStay(Channel* channel)
{
    if (_switch.isPending() && isChannelOpen(channel))
        stay(channel);
    reconnectChannel(channel);
}

void ChannelManager::openChannelNonMultiview(Channel* channel, bool useSponsorship)
{
    if (useSponsorship && _sponsorship.isPlaying() && !_switch.isPending()) {
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
    // What plays alone is none beside another.
    if (limit != -1 && !_open.isEmpty() && _open.count() >= limit)
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
    Channel* wanted = getChannelByRootId(id);
    if (!wanted && !id.isEmpty())
        wanted = defaultChannel(); // It went while the others faded.
    _open.dropUnseen(wanted);
    if (wanted && action == ChannelSwitch::Action::OpenSponsorship) {
        qint64 const seconds = opened > 0 ? qMax(qint64{0}, QDateTime::currentSecsSinceEpoch() - opened) : 0;
        _sponsorship.request(wanted, beside, previous, static_cast<int>(seconds));
        return;
    }
    if (wanted && wanted != sponsorshipChannel())
        _sponsorship.cancel(); // What was to come is not what the viewer wants now.
    if (wanted)
        openChannelMultiview(wanted, -1);
    openBeside(beside);
}

void ChannelManager::openBeside(QStringList const& ids)
{
    for (QString const& id : ids)
        if (Channel* const channel = getChannelByRootId(id); channel && !isChannelOpen(channel))
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
    if (!cancelSponsorship)
        return;
    _open.dropUnseen();
    _sponsorship.cancel();
}

void ChannelManager::closeForLater()
{
    ChannelSwitch::Pending const pending = _switch.take();
    QString const afterPreRoll = postSponsorshipChannelId();
    QStringList const next = pending.channelId.isEmpty() ? QStringList(afterPreRoll) + _sponsorship.beside()
                                                         : QStringList(pending.channelId) + pending.beside;
    if (!_open.isEmpty()) {
        _activeForLater = activeChannelRootId();
        _openForLater = _open.ids();
    }
    closeAllChannels();
    if (next.constFirst().isEmpty())
        return;
    _activeForLater.clear();
    _openForLater.clear();
    setLastChannelId(next.constFirst());
    setLastChannelIds(next);
}

void ChannelManager::openLastChannels(bool useSponsorship)
{
    QString lastId = lastChannelId(); // Both change while channels are opened.
    QStringList lastIds = lastChannelIds();
    // What is not kept for the next start, such as a preview, is open again all the same.
    QStringList const ids = std::exchange(_openForLater, {});
    if (QString const id = std::exchange(_activeForLater, {}); getChannelByRootId(id)) {
        lastId = id;
        lastIds = ids;
    }
    if (lastIds.size() > 1)
        openBeside(lastIds);
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
