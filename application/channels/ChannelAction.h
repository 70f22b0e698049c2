#pragma once

#include <QAction>

class Channel;

/// The menu entry of one channel.
class ChannelAction : public QAction
{
    Q_OBJECT

public:
    /// The channel outlives the action.
    explicit ChannelAction(Channel* channel, QObject* parent = nullptr);

    Channel* channel() const { return _channel; }
    /// Takes title and logo from the channel's description. A menu that is open shows them the next time.
    void update();

signals:
    void channelClicked(Channel* channel);

public slots:
    void onTriggered();

private:
    Channel* const _channel;
};
