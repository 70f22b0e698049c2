#include "ChannelAction.h"

#include "Channel.h"
#include "ChannelTitle.h"

#include <QIcon>
#include <QPixmap>
#include <QSignalBlocker>

ChannelAction::ChannelAction(Channel* channel, QObject* parent) : QAction(parent), _channel(channel)
{
    setCheckable(true);
    update();
    connect(this, &QAction::triggered, this, &ChannelAction::onTriggered);
}

void ChannelAction::update()
{
    // Whoever shows it looks when it is shown; its group would look through thousands at each change.
    QSignalBlocker const blocker(this);
    QString title = ChannelTitle::shown(_channel->desc.title(), ChannelTitle::longestInMenu);
    setText(title.replace('&', "&&")); // As it stands: no letter of it is a shortcut.
}

void ChannelAction::showLogo(QSize const& pixels)
{
    ChannelLogo const& logo = _channel->desc.packedLogo();
    if (logo.key() == _logoKey && pixels == _logoBox)
        return;
    _logoKey = logo.key();
    _logoBox = pixels;
    QSignalBlocker const blocker(this);
    setIcon(logo.isNull() ? QIcon() : QIcon(QPixmap::fromImage(logo.image(pixels))));
}

void ChannelAction::onTriggered()
{
    emit channelClicked(_channel);
}
