#include "OpenChannels.h"

#include "Channel.h"
#include "Logger.h"
#include "LoggerManager.h"

#include <algorithm>
#include <utility>

Logger* OpenChannels::log = LoggerManager::logger();

namespace
{

/// Whether a channel is there again at the next start.
bool isKept(Channel const* channel)
{
    using Description = ChannelDescription;
    return (channel->desc.channelType() & (Description::UserChannel | Description::SponsorshipChannel)) == 0;
}

} // namespace

bool OpenChannels::contains(Channel const* channel) const
{
    return std::ranges::find(_channels, channel) != _channels.end();
}

QStringList OpenChannels::ids() const
{
    QStringList ids;
    for (Channel const* const channel : _channels)
        ids.append(channel->desc.rootId());
    return ids;
}

void OpenChannels::prepare(Channel* channel, bool muted)
{
    channel->setWatched(_watched);
    channel->setSpeed(_speed);
    if (channel->hasError())
        channel->close();
    if (!channel->isOpen() && !channel->isBuffering()) {
        channel->setVolume(0.0);
        channel->setOpacity(0.0);
        channel->open();
    }
    channel->setMuted(muted);
}

void OpenChannels::prepareUnseen(Channel* channel)
{
    dropUnseen(channel);
    _unseen = channel;
    prepare(channel, true);
    channel->setUnseen(true);
}

void OpenChannels::dropUnseen(Channel const* wanted)
{
    if (_unseen && _unseen != wanted)
        std::exchange(_unseen, nullptr)->close();
}

void OpenChannels::open(Channel* channel, int index)
{
    if (channel == _unseen)
        _unseen = nullptr;
    bool const isFirst = _channels.isEmpty();
    _channels.insert(index < 0 ? _channels.size() : std::min<qsizetype>(index, _channels.size()), channel);
    prepare(channel, !isFirst || _muted);
    channel->setUnseen(false);
    channel->fadeIn(fadeTime, _volume, true, true);
    if (isFirst)
        setActive(channel);
    saveLast();
    emit opened(channel);
}

void OpenChannels::close(Channel* channel)
{
    if (channel == _unseen)
        dropUnseen();
    if (!_channels.removeOne(channel))
        return;
    if (channel == _active)
        setActive(_channels.isEmpty() ? nullptr : _channels.constFirst());
    saveLast();
    channel->close();
    emit closed(channel);
    emit pictureUpdated();
}

void OpenChannels::closeAll()
{
    if (_channels.isEmpty())
        return;
    QList<Channel*> const closing = std::exchange(_channels, {});
    setActive(nullptr);
    for (Channel* const channel : closing) {
        channel->close();
        emit closed(channel);
    }
    emit pictureUpdated();
}

void OpenChannels::setActive(Channel* channel)
{
    if (channel == _active)
        return;
    Channel* const before = _active;
    QByteArray const beforeTitle = Channel::logTitle(before);
    QByteArray const title = Channel::logTitle(channel);
    LOG_INFO("Channel changing from %s to %s", beforeTitle.constData(), title.constData());
    emit changing(before, channel);
    _active = channel;
    saveLast();
    for (Channel* const other : std::as_const(_channels))
        if (other != channel)
            other->setMuted(true);
    if (channel) {
        channel->setVolume(_volume);
        channel->setMuted(_muted);
        if (!channel->isFading())
            channel->fadeIn(fadeTime, _volume, false, true);
    }
    LOG_INFO("Channel changed from %s to %s", beforeTitle.constData(), title.constData());
    emit changed(before, channel);
}

void OpenChannels::swap(Channel* one, Channel* other)
{
    qsizetype const first = _channels.indexOf(one);
    qsizetype const second = _channels.indexOf(other);
    if (first < 0 || second < 0 || first == second)
        return;
    _channels.swapItemsAt(first, second);
    saveLast();
    emit pictureUpdated();
}

/// When all are closed, what was open before is what is found again.
void OpenChannels::saveLast()
{
    if (!_active)
        return;
    if (isKept(_active))
        _lastChannelId = _active->desc.rootId();
    QStringList ids;
    for (Channel const* const channel : std::as_const(_channels))
        if (isKept(channel))
            ids.append(channel->desc.rootId());
    if (!ids.isEmpty())
        _lastChannelIds = ids;
}

void OpenChannels::fadeOut(int ms)
{
    for (Channel* const channel : std::as_const(_channels))
        channel->fadeOut(ms, true, true);
}

void OpenChannels::fadeIn(int ms)
{
    for (Channel* const channel : std::as_const(_channels))
        channel->fadeIn(ms, _volume, true, true);
}

void OpenChannels::setVolume(double volume)
{
    _volume = volume;
    for (Channel* const channel : std::as_const(_channels))
        channel->setVolume(volume);
}

void OpenChannels::setMuted(bool muted)
{
    _muted = muted;
    if (_active)
        _active->setMuted(muted);
}

void OpenChannels::setWatched(bool watched)
{
    if (std::exchange(_watched, watched) == watched)
        return;
    for (Channel* const channel : std::as_const(_channels))
        channel->setWatched(watched);
}

void OpenChannels::setSpeed(double speed)
{
    _speed = speed;
    for (Channel* const channel : std::as_const(_channels))
        channel->setSpeed(speed);
}

bool OpenChannels::canChangeSpeed() const
{
    return _channels.isEmpty() || std::ranges::any_of(_channels, [](Channel const* channel) {
               return channel->isSeekable() || channel->isBuffering();
           });
}
