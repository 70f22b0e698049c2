#pragma once

#include "ChannelDescription.h"

#include <QHash>
#include <QList>
#include <QSet>
#include <QString>
#include <QStringList>

#include <memory>
#include <vector>

class Channel;

/// All channels that the program knows, in order of their titles, found by root id. Owns them. Main thread only.
class KnownChannels
{
public:
    static constexpr int anyType = ~0;

    KnownChannels();
    ~KnownChannels();

    /// Whether the first channel stands before the second one.
    static bool channelCmp(Channel const* first, Channel const* second);

    Channel* add(std::unique_ptr<Channel> channel);
    /// Gives the channel away; null if it is none of these.
    std::unique_ptr<Channel> remove(Channel* channel);
    /// Gives all away.
    std::vector<std::unique_ptr<Channel>> removeAll();
    /// After titles have changed.
    void sort();

    /// The root ids of what is none of these, and nothing that the viewer has brought in.
    QStringList idsBut(QSet<QString> const& ids) const;

    int count() const { return static_cast<int>(_channels.size()); }
    /// Null outside of the list.
    Channel* at(int index) const;
    Channel* find(QString const& rootId) const { return _byRootId.value(rootId); }
    /// Those of the types, a set of ChannelDescription::ChannelType bits.
    QList<Channel*> channels(int typeMask = anyType) const;
    QList<Channel*> channelsForAlertTopic(QString const& topic) const;
    /// The one after it, or before it with a step of -1, the list taken as a ring; of one that is unknown or null the
    /// first or last. Null in an empty list.
    Channel* neighbour(Channel const* channel, int step) const;

private:
    std::vector<std::unique_ptr<Channel>> _channels;
    QHash<QString, Channel*> _byRootId;
};
