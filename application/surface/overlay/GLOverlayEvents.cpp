// What happens to the overlay, and what it says about it.

#include "AppData.h"
#include "Channel.h"
#include "ChannelManager.h"
#include "ChannelTitle.h"
#include "GLControlLayout.h"
#include "GLOverlay.h"
#include "Look.h"
#include "SignIn.h"

#include <QAction>
#include <QMouseEvent>
#include <QWheelEvent>

namespace
{
constexpr double volumeNotch = 120.0; ///< Eighths of a degree.
constexpr double wheelVolume = 0.05;  ///< Of the wheel's notch.
} // namespace

void GLOverlay::connectHub()
{
    AppSettings const* const settings = &_appData.settings;
    ChannelManager const* const channels = _appData.channelManager();
    connect(settings, &AppSettings::perspectiveChanged, this, &GLOverlay::onPerspectiveChanged);
    connect(settings, &AppSettings::carouselModeChanged, this, &GLOverlay::onCarouselModeChanged);
    connect(settings, &AppSettings::showTabsChanged, this, &GLOverlay::onShowTabsChanged);
    connect(settings, &AppSettings::showFullScreenChanged, this, &GLOverlay::onShowFullScreenChanged);
    connect(settings, &AppSettings::volumeChanged, this, &GLOverlay::updateVolume);
    connect(settings, &AppSettings::muteChanged, this, &GLOverlay::updateVolume);
    for (MenuAction const action : {MenuAction::SeekForwards, MenuAction::SeekBackwards})
        if (QAction const* const found = settings->action(action)) // Queued: when the window has done it.
            connect(found, &QAction::triggered, this, &GLOverlay::showPosition, Qt::QueuedConnection);
    connect(&_appData, &AppData::signedInChanged, this, &GLOverlay::onSignedInChanged);
    connect(&_appData, &AppData::signInStarted, this, &GLOverlay::onSignedInChanged);
    if (_appData.signIn())
        connect(_appData.signIn(), &SignIn::signInEnded, this, &GLOverlay::onSignedInChanged);
    connect(&_appData, &AppData::channelChanged, this, &GLOverlay::onChannelChanged);
    connect(&_appData, &AppData::channelOpened, this, &GLOverlay::onChannelsUpdated);
    connect(&_appData, &AppData::channelClosed, this, &GLOverlay::onChannelsUpdated);
    connect(&_appData, &AppData::channelsUpdated, this, &GLOverlay::onChannelsUpdated);
    connect(channels, &ChannelManager::channelError, this, &GLOverlay::onChannelError);
    connect(channels, &ChannelManager::channelStateChanged, this, &GLOverlay::onChannelStateChanged);
    connect(channels, &ChannelManager::streamOpened, this, [this](Channel* channel) {
        if (channel->hasError())
            return;
        onChannelStateChanged(channel, {}); // What was told on the way there is over.
        if (channel == _appData.channelManager()->activeChannel())
            _toldError.clear();
    });
    connect(channels, &ChannelManager::channelLogoUpdated, this, &GLOverlay::onChannelLogoUpdated);
    connect(channels, &ChannelManager::mouseEnteredChannel, this, &GLOverlay::onMouseEnteredChannel);
    connect(channels, &ChannelManager::mouseLeftChannel, this, &GLOverlay::onMouseLeftChannel);
}

void GLOverlay::connectControls()
{
    for (GLControl* const control : std::initializer_list<GLControl*>{this, &_top, &_bottom, &_pad, &_carousel}) {
        connect(control, &GLControl::mouseEntered, this, &GLOverlay::onMouseEntered);
        connect(control, &GLControl::mouseLeft, this, &GLOverlay::onMouseLeft);
        connect(control, &GLControl::mouseWheeled, this, &GLOverlay::onMouseWheel);
    }
    connect(_layout, &GLControlLayout::hoverChanged, this, &GLOverlay::onHoverChanged);
    connect(&_top, &GLCanvas::visibilityChanged, this, &GLOverlay::onTopCanvasVisibilityChanged);
    connect(&_bottom, &GLCanvas::visibilityChanged, this, &GLOverlay::onBottomCanvasVisibilityChanged);
    connect(&_carousel, &GLCanvas::visibilityChanged, this, &GLOverlay::onTopCanvasVisibilityChanged);
    connect(&_carousel, &GLCarouselBar::buttonPressed, this, &GLOverlay::carouselButtonPressed);
    connect(&_bottom, &GLChannelBar::screenshotPressed, this, &GLOverlay::screenshotPressed);
    connect(&_bottom.progress(), &GLProgressIndicator::previewChanged, this, &GLOverlay::onPreviewChanged);
    GLButtonControl& signIn = _top.signInButton();
    connect(&signIn, &GLButtonControl::clicked, this, &GLOverlay::onSignInPressed);
    connect(&signIn, &GLControl::mouseEntered, this, &GLOverlay::onMouseEnteredSignInButton);
    connect(&signIn, &GLControl::mouseLeft, this, &GLOverlay::onMouseLeftSignInButton);
    connect(&_pad, &GLPadControl::positionChosen, _appData.channelManager(), &ChannelManager::setViewpoint);
}

void GLOverlay::mousePress(QPointF point, QMouseEvent* event)
{
    GLControl::mousePress(point, event);
    onVideoMousePress();
    if (event->button() == Qt::LeftButton)
        emit videoMousePress(point, event->modifiers());
}

void GLOverlay::mouseMove(QPointF point, QMouseEvent* event)
{
    GLControl::mouseMove(point, event);
    emit videoMouseMove(point, event);
}

void GLOverlay::mouseRelease(QPointF point, QMouseEvent* event)
{
    GLControl::mouseRelease(point, event);
    if (event->button() == Qt::LeftButton)
        emit videoMouseRelease(point, event->modifiers());
}

void GLOverlay::keyPress(QKeyEvent* event)
{
    GLControl::keyPress(event);
    emit videoKeyPress(event);
}

void GLOverlay::keyRelease(QKeyEvent* event)
{
    GLControl::keyRelease(event);
    emit videoKeyRelease(event);
}

void GLOverlay::onVideoMousePress()
{
    hideTip(); // It may be where the viewer looks now.
}

void GLOverlay::onMouseWheel(GLControl*, QWheelEvent* event)
{
    AppSettings& settings = _appData.settings;
    settings.setVolume(settings.volume() + wheelVolume * event->angleDelta().y() / volumeNotch);
    updateVolume(); // Also where there is no more to be had.
}

void GLOverlay::updateVolume()
{
    AppSettings const& settings = _appData.settings;
    showMessage(settings.muted() ? tr("Muted") : tr("Volume %1 %").arg(qRound(settings.volume() * 100.0)));
}

/// Who seeks by keys sees where that leads.
void GLOverlay::showPosition()
{
    ensureVisible(true);
    _bottom.updateChannel();
}

void GLOverlay::onSignedInChanged()
{
    _top.updateButtons();
}

void GLOverlay::onShowTabsChanged()
{
    _top.updateButtons();
}

void GLOverlay::onSignInPressed(GLControl*, QPointF, QMouseEvent*)
{
    // Its dialog has an event loop, and this is in the middle of an event.
    if (QAction* const action = _appData.settings.action(MenuAction::SignIn))
        QMetaObject::invokeMethod(action, &QAction::trigger, Qt::QueuedConnection);
}

void GLOverlay::onMouseEnteredSignInButton(GLControl* control)
{
    if (_appData.settings.showVideoTips())
        showTip(tr("Sign in to watch the channels of your account"),
                _top.geometry().topLeft() + QPointF(control->geometry().center().x(), _top.geometry().height()),
                false);
}

void GLOverlay::onMouseLeftSignInButton(GLControl*)
{
    hideTip();
}

void GLOverlay::onChannelError(Channel* channel, QString const& text)
{
    if (channel && channel != _appData.channelManager()->activeChannel())
        return;
    _top.setState(text.section('\n', 0, 0), true);
    // Who tries again and again fails in the same words: the bar is not called up for them each time.
    if (std::exchange(_toldError, text) != text && !text.isEmpty())
        ensureVisible(false);
}

void GLOverlay::onChannelStateChanged(Channel* channel, QString const& text)
{
    if (channel == _appData.channelManager()->activeChannel())
        _top.setState(text, false);
    _bottom.updateTime();
}

void GLOverlay::onChannelChanged(Channel*, Channel* to)
{
    _top.setState({}, false);
    _toldError.clear();
    onChannelsUpdated();
    // Whoever has just started the program sees in the window's title what plays.
    if (to && std::exchange(_hasShownChannel, true))
        ensureVisible(false);
}

void GLOverlay::onChannelsUpdated()
{
    updateTitle();
    _bottom.updateChannel();
}

void GLOverlay::onChannelLogoUpdated(ChannelDescription const& description)
{
    Channel const* const active = _appData.channelManager()->activeChannel();
    if (active && active->desc.rootId() == description.rootId())
        _bottom.updateChannel();
}

void GLOverlay::updateTitle()
{
    updateHint();
    ChannelManager const& channels = *_appData.channelManager();
    Channel const* const slide =
        _appData.settings.carouselMode() ? channels.getChannelByRootId(_carouselChannel) : nullptr;
    if (slide) {
        _top.setTitle(ChannelTitle::shown(slide->desc.title()));
        return;
    }
    Channel const* const active = channels.activeChannel();
    auto const others = static_cast<int>(channels.openChannels().size()) - 1;
    QString title = active ? ChannelTitle::shown(active->desc.title()) : QString();
    if (active && others > 0)
        title = tr("%1 and %n more", nullptr, others).arg(title);
    _top.setTitle(title);
}

void GLOverlay::setCarouselChannel(QString const& rootId)
{
    _carouselChannel = rootId;
    Channel const* const channel = _appData.channelManager()->getChannelByRootId(rootId);
    _top.setTitle(channel ? ChannelTitle::shown(channel->desc.title()) : QString());
    _top.announceTitle();
}

void GLOverlay::onHoverChanged(GLControl* control)
{
    disconnect(_tipWords);
    auto const* const button = qobject_cast<GLButtonControl*>(control);
    if (button == &_top.signInButton() || control == &_bottom.progress())
        return; // They have tips of their own.
    if (!button || button->label().isEmpty() || !_appData.settings.showVideoTips()) {
        hideTip();
        return;
    }
    showButtonTip(*button);
    _tipWords = connect(button, &GLControl::labelChanged, this, [this, button] {
        if (_tip.isShown())
            showButtonTip(*button);
    });
}

void GLOverlay::showButtonTip(GLButtonControl const& button)
{
    QRectF const place = button.geometry().translated(originOf(&button));
    bool const isAbove = place.center().y() > geometry().height() / 2.0;
    showTip(button.label(), {place.center().x(), isAbove ? place.top() : place.bottom()}, isAbove);
}

void GLOverlay::onPreviewChanged(std::optional<double> seconds, double x)
{
    if (!seconds) {
        hideTip();
        return;
    }
    QRectF const bar = _bottom.progress().geometry().translated(_bottom.geometry().topLeft());
    showTip(GLProgressIndicator::timeText(*seconds), {bar.left() + x, bar.top()}, true);
}

void GLOverlay::onMouseEnteredChannel(QString const& rootId)
{
    ChannelManager const& channels = *_appData.channelManager();
    Channel const* const channel = channels.getChannelByRootId(rootId);
    if (!channel || channels.openChannels().size() < 2 || !_appData.settings.showVideoTips())
        return;
    QRect const place = channels.placeOf(channel);
    if (place.isEmpty())
        return;
    QString const hint = channel == channels.activeChannel() ? tr("%1 (Ctrl and click: close)")
                                                             : tr("%1 (click: sound; Ctrl and click: close)");
    QPointF const middle(place.center().x() / _layout->scale(), place.top() / _layout->scale());
    showTip(hint.arg(ChannelTitle::shown(channel->desc.title())),
            {middle.x(), std::max(middle.y(), _top.geometry().bottom())}, false);
}

void GLOverlay::onMouseLeftChannel(QString const&)
{
    hideTip();
}
