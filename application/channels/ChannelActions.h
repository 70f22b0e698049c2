#pragma once

#include <QHash>
#include <QObject>

#include <memory>

class Channel;
class ChannelAction;
class QActionGroup;

/// One menu entry for each channel, that of the active one marked. Main thread only.
class ChannelActions : public QObject
{
    Q_OBJECT

public:
    explicit ChannelActions(QObject* parent = nullptr);
    ~ChannelActions() override;

    void create(Channel* channel);
    void destroy(Channel* channel);
    void clear();
    /// After the channel's description has changed.
    void update(Channel* channel);
    /// Marks its action and no other; null for none.
    void setActive(Channel* channel);
    /// Null if it has none.
    ChannelAction* action(Channel* channel) const { return _actions.value(channel); }

signals:
    void channelClicked(Channel* channel);

private:
    std::unique_ptr<QActionGroup> _group;
    QHash<Channel*, ChannelAction*> _actions; ///< The group is their parent.
};
