#include "KnownChannels.h"

#include "Channel.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace
{

/// Channels that do not come from a provider, and so do not go with it: a viewer's channel does once it is added.
constexpr int ownTypes = ChannelDescription::UserChannel | ChannelDescription::SponsorshipChannel |
                         ChannelDescription::FileChannel | ChannelDescription::UserStreamChannel;

bool isBefore(std::unique_ptr<Channel> const& first, std::unique_ptr<Channel> const& second)
{
    return KnownChannels::channelCmp(first.get(), second.get());
}

} // namespace

KnownChannels::KnownChannels() = default;

KnownChannels::~KnownChannels() = default;

bool KnownChannels::channelCmp(Channel const* first, Channel const* second)
{
    int const order = first->desc.title().compare(second->desc.title(), Qt::CaseInsensitive);
    return order != 0 ? order < 0 : first->desc.rootId() < second->desc.rootId();
}

Channel* KnownChannels::add(std::unique_ptr<Channel> channel)
{
    Channel* const added = channel.get();
    _byRootId.insert(added->desc.rootId(), added);
    _channels.insert(std::ranges::upper_bound(_channels, channel, isBefore), std::move(channel));
    return added;
}

std::unique_ptr<Channel> KnownChannels::remove(Channel* channel)
{
    // From the end, where all are removed.
    auto const found = std::find_if(_channels.rbegin(), _channels.rend(),
                                    [channel](auto const& owned) { return owned.get() == channel; });
    if (found == _channels.rend())
        return nullptr;
    std::unique_ptr<Channel> removed = std::move(*found);
    _channels.erase(std::prev(found.base()));
    if (_byRootId.value(removed->desc.rootId()) == channel)
        _byRootId.remove(removed->desc.rootId());
    return removed;
}

std::vector<std::unique_ptr<Channel>> KnownChannels::removeAll()
{
    _byRootId.clear();
    return std::exchange(_channels, {});
}

void KnownChannels::sort()
{
    std::ranges::stable_sort(_channels, isBefore);
}

QStringList KnownChannels::idsBut(QSet<QString> const& ids) const
{
    QStringList others;
    for (auto const& channel : _channels)
        if (!ids.contains(channel->desc.rootId()) &&
            ((channel->desc.channelType() & ownTypes) == 0 || channel->desc.isViewerAdded()))
            others.append(channel->desc.rootId());
    return others;
}

Channel* KnownChannels::at(int index) const
{
    return index >= 0 && index < count() ? _channels[static_cast<size_t>(index)].get() : nullptr;
}

QList<Channel*> KnownChannels::channels(int typeMask) const
{
    QList<Channel*> found;
    for (auto const& channel : _channels)
        if ((channel->desc.channelType() & typeMask) != 0)
            found.append(channel.get());
    return found;
}

QList<Channel*> KnownChannels::channelsForAlertTopic(QString const& topic) const
{
    QList<Channel*> found;
    for (auto const& channel : _channels)
        if (channel->desc.alertsTopic() == topic)
            found.append(channel.get());
    return found;
}

Channel* KnownChannels::neighbour(Channel const* channel, int step) const
{
    if (_channels.empty())
        return nullptr;
    auto const found = std::ranges::find_if(_channels, [&](auto const& owned) { return owned.get() == channel; });
    if (found == _channels.end())
        return at(step > 0 ? 0 : count() - 1);
    int const index = static_cast<int>(found - _channels.begin());
    return at((index + step + count()) % count());
}
