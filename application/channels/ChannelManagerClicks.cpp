// What clicks and keys do, on pictures, in menus and lists.

#include "AppData.h"
#include "Channel.h"
#include "ChannelManager.h"

#include <QGuiApplication>
#include <QKeyEvent>
#include <QStyleHints>

#include <utility>

ChannelClickAction ChannelManager::channelClickAction(QString const& rootId, bool isModifierHeld) const
{
    Channel const* const channel = getChannelByRootId(rootId);
    if (!channel)
        return NoClickAction;
    if (channel->hasError() && isChannelOpen(channel))
        return ReconnectClickAction;
    // During a pre-roll another channel is chosen to come after it.
    if (_sponsorship.isPlaying())
        return channel == activeChannel() ? SponsorClickAction : OpenClickAction;
    if (!isChannelOpen(channel))
        return isModifierHeld ? AddClickAction : OpenClickAction;
    if (_switch.isPending() && !isModifierHeld)
        return OpenClickAction; // It stays.
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
        reconnectAndStay(channel);
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

void ChannelManager::setChannelCursor(QString const& rootId, bool isModifierHeld)
{
    emit cursorChanged(cursorForChannelClickAction(channelClickAction(rootId, isModifierHeld)));
}

QString ChannelManager::channelIdAt(QPointF point) const
{
    Channel const* const channel = _grid.channelAt(openChannels(), point);
    return channel ? channel->desc.rootId() : QString();
}

void ChannelManager::videoMouseMove(QPointF point, Qt::KeyboardModifiers modifiers)
{
    QString const now = channelIdAt(point);
    QString const before = std::exchange(_channelUnderMouse, now);
    setChannelCursor(now, isModifierHeld(modifiers));
    if (now == before)
        return;
    if (!before.isEmpty())
        emit mouseLeftChannel(before);
    if (!now.isEmpty())
        emit mouseEnteredChannel(now);
}

void ChannelManager::videoMousePress(QPointF point, Qt::KeyboardModifiers)
{
    _pressedChannel = channelIdAt(point);
}

void ChannelManager::videoMouseRelease(QPointF point, Qt::KeyboardModifiers modifiers)
{
    QString const pressed = std::exchange(_pressedChannel, {});
    if (pressed.isEmpty() || pressed != channelIdAt(point))
        return;
    ChannelClickAction const action = channelClickAction(pressed, isModifierHeld(modifiers));
    if (action == SponsorClickAction) {
        // It leads out of the program: not for somebody who wants full screen.
        _waitingAction = [this, pressed] { performChannelClickAction(pressed, channelClickAction(pressed, false)); };
        _waitingClick.start(QGuiApplication::styleHints()->mouseDoubleClickInterval());
        return;
    }
    performChannelClickAction(pressed, action);
    setChannelCursor(channelIdAt(point), isModifierHeld(modifiers)); // Another click does something else.
}

/// What the viewer has chosen last, even if it does not play yet.
Channel* ChannelManager::chosenChannel() const
{
    for (QString const& id : {_switch.pending().channelId, postSponsorshipChannelId()})
        if (Channel* const channel = getChannelByRootId(id))
            return channel;
    return activeChannel();
}

void ChannelManager::openNeighbour(int step)
{
    Channel const* const from = chosenChannel();
    if (Channel* const channel = step > 0 ? nextChannel(from) : previousChannel(from))
        performChannelClickAction(channel->desc.rootId(), OpenClickAction);
}

bool ChannelManager::videoKeyPress(QKeyEvent const* event)
{
    if (event->key() == Qt::Key_Control)
        setChannelCursor(_channelUnderMouse, true);
    int const digit = event->key() - Qt::Key_1;
    bool const isPlain = (event->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
    if (isPlain && digit >= 0 && digit < 9 && digit < _open.count()) {
        setActiveChannel(openChannels().at(digit));
        return true;
    }
    bool const isNext = event->key() == Qt::Key_PageDown;
    if (!isPlain || (!isNext && event->key() != Qt::Key_PageUp))
        return false;
    openNeighbour(isNext ? 1 : -1);
    return true;
}

bool ChannelManager::videoKeyRelease(QKeyEvent const* event)
{
    if (event->key() != Qt::Key_Control)
        return false;
    setChannelCursor(_channelUnderMouse, false);
    return true;
}

QString ChannelManager::sponsorshipChannelId() const
{
    return sponsorshipChannel() ? sponsorshipChannel()->desc.rootId() : QString();
}
