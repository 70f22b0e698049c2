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
    /// Takes the title from the channel's description. A menu that is open shows it the next time.
    void update();
    /// Takes the logo, for a menu that is about to open: thousands of entries never are in one. Not larger than that.
    void showLogo(QSize const& pixels);

signals:
    void channelClicked(Channel* channel);

public slots:
    void onTriggered();

private:
    Channel* const _channel;
};
