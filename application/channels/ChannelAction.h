#pragma once

#include <QAction>
#include <QSize>

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
    /// Takes the logo, for a menu that is about to open: thousands of entries never are in one. Not larger than that;
    /// nothing to do where it shows that already.
    void showLogo(QSize const& pixels);

signals:
    void channelClicked(Channel* channel);

public slots:
    void onTriggered();

private:
    Channel* const _channel;
    qint64 _logoKey = 0; ///< Of the logo that it shows.
    QSize _logoBox;      ///< In pixels, which that fits into.
};
