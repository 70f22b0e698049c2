#include "ChannelEvents.h"

#include "AppData.h"
#include "Channel.h"
#include "ChannelManager.h"
#include "Logger.h"
#include "LoggerManager.h"
#include "SignIn.h"
#include "Timer.h"
#include "TimerFactory.h"

#include <QAction>
#include <QApplication>

#include <utility>

Logger* ChannelEvents::log = LoggerManager::logger();

ChannelEvents::ChannelEvents(AppData& appData, TimerFactory* timers, QObject* parent)
    : QObject(parent), _appData(appData), _timers(timers), _testModeTimer(timers->createTimer())
{
    connect(_testModeTimer, &Timer::timeout, this, &ChannelEvents::onTestModeTimer);
    ChannelManager const* const channels = appData.channelManager();
    connect(channels, &ChannelManager::channelsUpdated, this, &ChannelEvents::onChannelsUpdated);
    connect(channels, &ChannelManager::channelChanged, this, &ChannelEvents::onChannelChanged);
    connect(&appData.settings, &AppSettings::testModeChanged, this, &ChannelEvents::onTestModeChanged);
    connect(&appData, &AppData::systemSuspended, this, &ChannelEvents::onSystemSuspended);
    connect(&appData, &AppData::systemResumed, this, &ChannelEvents::onSystemResumed);
}

ChannelEvents::~ChannelEvents()
{
    _timers->disposeTimer(_testModeTimer);
}

void ChannelEvents::setSurfaceReady()
{
    _isSurfaceReady = true;
    if (std::exchange(_opensAgain, false) && _isVisible)
        _appData.channelManager()->openLastChannels();
    else
        openFirst();
}

void ChannelEvents::closeForNewSurface()
{
    _opensAgain = _opensAgain || _appData.channelManager()->isBusy();
    _isSurfaceReady = false;
    _appData.channelManager()->closeForLater();
}

void ChannelEvents::closeAround(std::function<void()> const& work)
{
    bool const opensAgain = _appData.channelManager()->isBusy() && _isVisible;
    _appData.channelManager()->closeForLater();
    work();
    if (opensAgain)
        _appData.channelManager()->openLastChannels();
}

void ChannelEvents::onChannelsUpdated()
{
    openFirst();
}

/// Once there is a directory, what was open last is so again, unless the viewer has chosen something meanwhile. The
/// same when all that was open has gone from it. Whoever wants nothing to begin with gets nothing later either.
void ChannelEvents::openFirst()
{
    ChannelManager& channels = *_appData.channelManager();
    if (!_isSurfaceReady || !_isVisible || !channels.channelsLoaded() || !channels.firstChannel())
        return;
    bool const isFirst = !std::exchange(_hasOpenedFirst, true);
    using StartPage = SettingsValues::StartPage;
    StartPage const startPage = _appData.settings.startPage();
    if (startPage == StartPage::Nothing || channels.isBusy())
        return;
    if (isFirst && startPage == StartPage::DefaultChannel && channels.defaultChannel())
        channels.openChannel(channels.defaultChannel(), _appData.settings.sponsorshipEnabled(), true);
    else
        channels.openLastChannels(isFirst && _appData.settings.sponsorshipEnabled());
}

void ChannelEvents::onSignedInChanged()
{
    if (!_appData.signIn()->isSignedIn())
        _hasOpenedFirst = false;
}

void ChannelEvents::onSystemSuspended()
{
    _wakesPlaying = _appData.channelManager()->isBusy();
    _appData.channelManager()->closeForLater();
}

void ChannelEvents::onSystemResumed()
{
    if (std::exchange(_wakesPlaying, false) && _isVisible)
        _appData.channelManager()->openLastChannels();
}

void ChannelEvents::onChannelChanged(Channel*, Channel*)
{
    if (_appData.settings.testMode())
        startTestModeTimer();
}

void ChannelEvents::onWindowVisibilityChanged(bool visible)
{
    _isVisible = visible;
    AppSettings const& settings = _appData.settings;
    if (!visible) {
        if (settings.testMode())
            settings.action(MenuAction::TestChannels)->trigger();
        _appData.channelManager()->closeForLater();
    } else if (_appData.channelManager()->isUpdating() && !_appData.channelManager()->channelsLoaded()) {
        LOG_DEBUG("Channels open when the directory is there");
    } else if (_hasOpenedFirst || !_appData.channelManager()->channelsLoaded()) {
        _appData.channelManager()->openLastChannels();
    } else {
        openFirst();
    }
    settings.action(MenuAction::ShowWindow)->setEnabled(!visible);
    for (MenuAction const action :
         {MenuAction::CloseWindow, MenuAction::IncreaseVolume, MenuAction::DecreaseVolume, MenuAction::SeekForwards,
          MenuAction::SeekBackwards, MenuAction::Mute, MenuAction::FullScreen, MenuAction::Record,
          MenuAction::ChannelCarousel, MenuAction::Tabs, MenuAction::TestChannels})
        settings.action(action)->setEnabled(visible);
    for (QAction* const action : settings.actions().drawModes())
        action->setEnabled(visible);
}

void ChannelEvents::onTestModeChanged()
{
    if (_appData.settings.testMode())
        startTestModeTimer();
    else
        _testModeTimer->stop();
}

void ChannelEvents::startTestModeTimer()
{
    _testModeTimer->start(_appData.settings.testModeFailureTimeout() * 1000);
}

void ChannelEvents::onTestModeTimer()
{
    ChannelManager& channels = *_appData.channelManager();
    Channel const* const active = channels.activeChannel();
    if (active)
        report(*active);
    if (Channel* const next = channels.nextChannel(active); next && next != active)
        channels.openChannel(next, false, true);
}

void ChannelEvents::report(Channel const& channel)
{
    TestEvent event = {channel.desc.rootId(), channel.desc.title(), channel.isPlaying() && !channel.hasError(), {}};
    if (!event.isPlaying)
        event.error = channel.hasError() ? channel.errorText() : tr("The channel did not play in time.");
    if (event.isPlaying)
        LOG_INFO("Test of channel %s: it plays", qUtf8Printable(event.title));
    else
        LOG_WARNING("Test of channel %s: %s", qUtf8Printable(event.title), qUtf8Printable(event.error));
    if (!event.isPlaying && _appData.settings.testModePlayFailureSound())
        QApplication::beep();
    emit channelTestEvent(event);
}
