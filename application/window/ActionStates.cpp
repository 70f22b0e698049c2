#include "ActionStates.h"

#include "AppData.h"
#include "Channel.h"
#include "ChannelManager.h"
#include "SignIn.h"

#include <QAction>

#include <algorithm>

ActionStates::ActionStates(AppData& appData) : _appData(appData)
{
    _change.setSingleShot(true);
    _change.setInterval(0);
    connect(&_change, &QTimer::timeout, this, &ActionStates::update);
    ChannelManager const* const channels = _appData.channelManager();
    for (auto const signal : {&ChannelManager::channelOpened, &ChannelManager::channelClosed})
        connect(channels, signal, this, &ActionStates::changeLater);
    for (auto const signal : {&ChannelManager::channelsUpdated, &ChannelManager::speedChanged})
        connect(channels, signal, this, &ActionStates::changeLater);
    for (auto const signal : {&ChannelManager::channelAdded, &ChannelManager::channelRemoved})
        connect(channels, signal, this, &ActionStates::changeLater);
    connect(channels, &ChannelManager::channelChanged, this, &ActionStates::changeLater);
    connect(channels, &ChannelManager::streamOpened, this, &ActionStates::changeLater);
    connect(channels, &ChannelManager::channelStateChanged, this, &ActionStates::changeLater);
    connect(&_appData, &AppData::signedInChanged, this, &ActionStates::changeLater);
    for (auto const signal :
         {&AppSettings::volumeChanged, &AppSettings::muteChanged, &AppSettings::showFullScreenChanged,
          &AppSettings::recordChanged, &AppSettings::testModeChanged})
        connect(&_appData.settings, signal, this, &ActionStates::changeLater);
    changeLater();
}

void ActionStates::onWindowVisibilityChanged(bool visible)
{
    _isVisible = visible;
    update();
}

void ActionStates::enable(MenuAction action, bool enabled)
{
    _appData.settings.action(action)->setEnabled(enabled);
}

void ActionStates::updateSpeeds()
{
    ChannelManager const& channels = *_appData.channelManager();
    bool const canChange = channels.canChangeSpeed();
    double const speed = canChange ? channels.speed() : 1.0;
    _appData.settings.actions().showSpeed(speed, canChange);
    QList<QAction*> const speeds = _appData.settings.actions().speeds();
    enable(MenuAction::ResetSpeed, canChange && speed != 1.0);
    enable(MenuAction::DecreaseSpeed, canChange && speed > MenuActions::speedOf(speeds.first()));
    enable(MenuAction::IncreaseSpeed, canChange && speed < MenuActions::speedOf(speeds.last()));
}

void ActionStates::update()
{
    AppSettings const& settings = _appData.settings;
    if (!settings.actions().areCreated())
        return;
    ChannelManager const& channels = *_appData.channelManager();
    QList<Channel*> const open = channels.openChannels();
    bool const canSeek = std::ranges::any_of(open, [](Channel const* channel) { return channel->isSeekable(); });
    bool const hasChannels = channels.channelCount() > 0;
    enable(MenuAction::SeekForwards, _isVisible && canSeek);
    enable(MenuAction::SeekBackwards, _isVisible && canSeek);
    enable(MenuAction::Record, _isVisible && (!open.isEmpty() || settings.record()));
    enable(MenuAction::IncreaseVolume, _isVisible && (settings.volume() < 1.0 || settings.muted()));
    enable(MenuAction::DecreaseVolume, _isVisible && settings.volume() > 0.0);
    enable(MenuAction::ChannelCarousel, _isVisible && hasChannels);
    enable(MenuAction::TestChannels, _isVisible && (hasChannels || settings.testMode()));
    enable(MenuAction::Tabs, _isVisible && !settings.showFullScreen());
    enable(MenuAction::MenuBar, !settings.showFullScreen());
    enable(MenuAction::SkinMode, !settings.showFullScreen());
    enable(MenuAction::ShowChat, false); // There is nothing to chat by.
    enable(MenuAction::AddRemoveChannels, _appData.signIn()->isSignedIn());
    enable(MenuAction::BuyPro, !settings.buyPremiumMessage().isEmpty());
    updateSpeeds();
}
