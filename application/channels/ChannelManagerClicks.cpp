// What clicks and keys do, on pictures, in menus and lists.

#include "AppData.h"
#include "Channel.h"
#include "ChannelManager.h"

#include <QGuiApplication>
#include <QKeyEvent>

#include <utility>

ChannelClickAction ChannelManager::channelClickAction(QString const& rootId, bool isModifierHeld) const
{
    Channel const* const channel = getChannelByRootId(rootId);
    if (!channel)
        return NoClickAction;
    if (channel->hasError())
        return ReconnectClickAction;
    // During a pre-roll another channel is chosen to come after it.
    if (_sponsorship.isPlaying())
        return channel == activeChannel() ? SponsorClickAction : OpenClickAction;
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
        openChannel(channel, _appData.settings.sponsorshipEnabled(), true);
    else if (action == AddClickAction)
        openChannel(channel, false, false);
    else if (action == CloseClickAction)
        closeChannel(channel);
    else if (action == ReconnectClickAction)
        reconnectChannel(channel);
    else if (action == SponsorClickAction)
        _sponsorship.click();
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
    QString const rootId = channel->desc.rootId();
    performChannelClickAction(rootId,
                              channelClickAction(rootId, isModifierHeld(QGuiApplication::keyboardModifiers())));
    _actions.setActive(activeChannel()); // The click has moved the mark.
}

bool ChannelManager::isModifierHeld(Qt::KeyboardModifiers modifiers)
{
    return modifiers.testFlag(Qt::ControlModifier);
}

QCursor ChannelManager::cursorAt(QPointF point, Qt::KeyboardModifiers modifiers) const
{
    Channel const* const channel = _grid.channelAt(openChannels(), point);
    if (!channel)
        return Qt::ArrowCursor;
    return cursorForChannelClickAction(channelClickAction(channel->desc.rootId(), isModifierHeld(modifiers)));
}

void ChannelManager::videoMouseMove(QPointF point)
{
    Channel const* const channel = _grid.channelAt(openChannels(), point);
    QString const now = channel ? channel->desc.rootId() : QString();
    QString const before = std::exchange(_channelUnderMouse, now);
    if (now == before)
        return;
    if (!before.isEmpty())
        emit mouseLeftChannel(before);
    if (!now.isEmpty())
        emit mouseEnteredChannel(now);
}

void ChannelManager::videoMousePress(QPointF point, Qt::KeyboardModifiers modifiers)
{
    Channel const* const channel = _grid.channelAt(openChannels(), point);
    if (!channel)
        return;
    QString const rootId = channel->desc.rootId();
    performChannelClickAction(rootId, channelClickAction(rootId, isModifierHeld(modifiers)));
}

bool ChannelManager::videoKeyPress(QKeyEvent const* event)
{
    int const digit = event->key() - Qt::Key_1;
    bool const isPlain = (event->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
    if (isPlain && digit >= 0 && digit < 9 && digit < _open.count()) {
        setActiveChannel(openChannels().at(digit));
        return true;
    }
    bool const isNext = event->key() == Qt::Key_PageDown;
    if (!isPlain || (!isNext && event->key() != Qt::Key_PageUp))
        return false;
    if (Channel* const channel = isNext ? nextChannel(activeChannel()) : previousChannel(activeChannel()))
        performChannelClickAction(channel->desc.rootId(), OpenClickAction);
    return true;
}

QString ChannelManager::sponsorshipChannelId() const
{
    return sponsorshipChannel() ? sponsorshipChannel()->desc.rootId() : QString();
}
