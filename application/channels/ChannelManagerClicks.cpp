// What clicks on channels do, in menus and lists.

#include "AppData.h"
#include "Channel.h"
#include "ChannelManager.h"

#include <QGuiApplication>

ChannelClickAction ChannelManager::channelClickAction(QString const& rootId, bool isModifierHeld) const
{
    Channel const* const channel = getChannelByRootId(rootId);
    if (!channel)
        return NoClickAction;
    if (channel->hasError())
        return ReconnectClickAction;
    if (!isChannelOpen(channel))
        return isModifierHeld ? AddClickAction : OpenClickAction;
    if (_open.count() < 2)
        return NoClickAction;
    if (isModifierHeld)
        return CloseClickAction;
    return channel == activeChannel() ? NoClickAction : OpenClickAction;
}

void ChannelManager::performChannelClickAction(QString const& rootId, ChannelClickAction action)
{
    Channel* const channel = getChannelByRootId(rootId);
    if (!channel)
        return;
    if (action == OpenClickAction)
        openChannel(channel, true);
    else if (action == AddClickAction)
        openChannel(channel, false);
    else if (action == CloseClickAction)
        closeChannel(channel);
    else if (action == ReconnectClickAction)
        reconnectChannel(channel);
}

QCursor ChannelManager::cursorForChannelClickAction(ChannelClickAction action) const
{
    switch (action) {
    case OpenClickAction:
    case ReconnectClickAction:
        return *_appData.playCursor();
    case AddClickAction:
        return *_appData.openCursor();
    case CloseClickAction:
        return *_appData.closeCursor();
    default:
        return Qt::ArrowCursor;
    }
}

void ChannelManager::onChannelClicked(Channel* channel)
{
    bool const isModifierHeld = QGuiApplication::keyboardModifiers().testFlag(Qt::ControlModifier);
    QString const rootId = channel->desc.rootId();
    performChannelClickAction(rootId, channelClickAction(rootId, isModifierHeld));
    _actions.setActive(activeChannel()); // The click has moved the mark.
}
