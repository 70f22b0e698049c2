// What the entries of the window's menus do, and what the window hears of the others.

#include "ActionStates.h"
#include "AppData.h"
#include "Channel.h"
#include "ChannelEvents.h"
#include "ChannelManager.h"
#include "ChannelPanels.h"
#include "FileChannels.h"
#include "GLWidget.h"
#include "Notice.h"
#include "SignIn.h"
#include "SlowDriverWarning.h"
#include "TrayIcon.h"
#include "Window.h"
#include "WindowManagerState.h"
#include "WindowMenus.h"

#include <QAction>
#include <QApplication>
#include <QDesktopServices>
#include <QUrl>

#include <utility>

namespace
{

constexpr double volumeStep = 0.1;
constexpr double seekStep = 10.0; // Seconds.

void openPage(Uri const& address)
{
    QDesktopServices::openUrl(QUrl(address.toString()));
}

} // namespace

void Window::connectActions()
{
    auto const on = [this](MenuAction action, auto&& slot) {
        connect(_appData.settings.action(action), &QAction::triggered, this, slot);
    };
    AppSettings& settings = _appData.settings;
    auto const sets = [this, &settings](MenuAction action, void (AppSettings::*set)(bool)) {
        connect(settings.action(action), &QAction::triggered, this,
                [&settings, set](bool isOn) { (settings.*set)(isOn); });
    };
    sets(MenuAction::FullScreen, &AppSettings::setShowFullScreen);
    sets(MenuAction::MenuBar, &AppSettings::setShowMenuBar);
    sets(MenuAction::Tabs, &AppSettings::setShowTabs);
    sets(MenuAction::AlwaysOnTop, &AppSettings::setAlwaysOnTop);
    sets(MenuAction::RunAtStartup, &AppSettings::setRunAtStartup);
    sets(MenuAction::VideoPostProcessing, &AppSettings::setEnableVideoPostProcessing);
    sets(MenuAction::TestChannels, &AppSettings::setTestMode);
    sets(MenuAction::ChannelCarousel, &AppSettings::setCarouselMode);
    on(MenuAction::SkinMode, [&settings](bool skinned) { settings.setShowWindowFrame(!skinned); });
    on(MenuAction::Record, &Window::onRecord);
    on(MenuAction::Mute, &Window::onMute);
    on(MenuAction::IncreaseVolume, &Window::onIncreaseVolume);
    on(MenuAction::DecreaseVolume, &Window::onDecreaseVolume);
    on(MenuAction::SeekForwards, &Window::onSeekForwards);
    on(MenuAction::SeekBackwards, &Window::onSeekBackwards);
    on(MenuAction::IncreaseSpeed, &Window::onIncreaseSpeed);
    on(MenuAction::DecreaseSpeed, &Window::onDecreaseSpeed);
    on(MenuAction::ResetSpeed, &Window::onResetSpeed);
    for (QAction* const action : settings.actions().speeds())
        connect(action, &QAction::triggered, this, &Window::onSpeed);
    on(MenuAction::SignIn, &Window::onSignIn);
    on(MenuAction::SignOut, &Window::onSignOut);
    on(MenuAction::CreateAccount, &Window::onSignUp);
    on(MenuAction::Support, &Window::onSupport);
    on(MenuAction::Feedback, &Window::onFeedback);
    on(MenuAction::BuyPro, &Window::onBuyPro);
    on(MenuAction::AddRemoveChannels, &Window::onAddRemoveChannels);
    on(MenuAction::Minimize, &QWidget::showMinimized);
    on(MenuAction::ShowWindow, &Window::showWindow);
    on(MenuAction::CloseWindow, &QWidget::close);
    on(MenuAction::Exit, &Window::onQuit);
    FileChannels* const files = _fileChannels.get();
    connect(settings.action(MenuAction::OpenVideoFile), &QAction::triggered, files, &FileChannels::onOpenVideoFile);
    connect(settings.action(MenuAction::OpenVideoFiles), &QAction::triggered, files, &FileChannels::onOpenVideoFiles);
    connect(settings.action(MenuAction::AddVideoFiles), &QAction::triggered, files, &FileChannels::onAddVideoFiles);
}

void Window::connectSignals()
{
    AppSettings& settings = _appData.settings;
    connect(this, &Window::windowVisibilityChanged, &_appData, &AppData::onWindowVisibilityChanged);
    connect(this, &Window::windowVisibilityChanged, _actionStates.get(), &ActionStates::onWindowVisibilityChanged);
    connect(frame(), &SkinFrame::skinChanged, this, &Window::onSkinChanged);
    connect(&settings, &AppSettings::showFullScreenChanged, this, &Window::onShowFullScreenChanged);
    connect(&settings, &AppSettings::showMenuBarChanged, this, &Window::onShowMenuBarChanged);
    connect(&settings, &AppSettings::showTabsChanged, this, &Window::onShowTabsChanged);
    connect(&settings, &AppSettings::alwaysOnTopChanged, this, &Window::onAlwaysOnTopChanged);
    connect(&settings, &AppSettings::volumeChanged, this, &Window::updateTitle);
    connect(&settings, &AppSettings::muteChanged, this, &Window::updateTitle);
    connect(_windowManagerState.get(), &WindowManagerState::aboveChanged, &settings, &AppSettings::setAlwaysOnTop);
    connect(_windowManagerState.get(), &WindowManagerState::fullScreenChanged, this,
            &Window::onFullScreenByWindowManager);
    connect(&_appData, &AppData::channelChanged, this, &Window::onChannelChanged);
    connect(&_appData, &AppData::channelsUpdated, this, &Window::updateTitle); // It may have been renamed.
    connect(&_appData, &AppData::signInStarted, this, &Window::onSigningInChanged);
    connect(&_appData, &AppData::systemShutdown, this, &Window::onSystemShutdown);
    connect(&_appData, &AppData::systemSuspended, this, &Window::onSystemSuspended);
    connect(&_appData, &AppData::systemResumed, this, &Window::onSystemResumed);
    connect(&_appData, &AppData::dockIconClicked, this, &Window::showWindow);
    connect(_appData.signIn(), &SignIn::signInEnded, this, &Window::onSigningInChanged);
    ChannelManager const* const channels = _appData.channelManager();
    connect(channels, &ChannelManager::streamOpened, this, &Window::onStreamOpened);
    connect(channels, &ChannelManager::channelError, this, &Window::onChannelError);
    connect(channels, &ChannelManager::multiviewLimitExceeded, this, &Window::onMultiviewLimitExceeded);
    connect(_glWidget, &GLWidget::contextMenuRequested, _menus, &WindowMenus::showContextMenu);
    connect(_glWidget, &GLWidget::filesDropped, this, &Window::onFilesDropped);
    connect(_glWidget, &GLWidget::screenshotCompleted, this, &Window::onScreenshotCompleted);
    connect(_glWidget, &GLWidget::initialized, this, &Window::onSurfaceInitialized);
    connect(_menus, &WindowMenus::screenshotWanted, _glWidget, &GLWidget::onTakeScreenshot);
    connect(_trayIcon.get(), &TrayIcon::activated, this, &Window::onTrayActivated);
    connect(_trayIcon.get(), &TrayIcon::channelChosen, this, &Window::onTrayChannelChosen);
}

void Window::disconnectActions()
{
    for (int i = 0; i < menuActionCount; ++i)
        if (QAction* const action = _appData.settings.action(static_cast<MenuAction>(i))) {
            action->disconnect(this);
            action->disconnect(_fileChannels.get());
        }
}

void Window::disconnectSignals()
{
    disconnect(this, nullptr, &_appData, nullptr);
    disconnect(this, nullptr, _actionStates.get(), nullptr);
    frame()->disconnect(this);
    _appData.settings.disconnect(this);
    _windowManagerState->disconnect();
    _appData.disconnect(this);
    if (_appData.signIn())
        _appData.signIn()->disconnect(this);
    if (_appData.channelManager())
        _appData.channelManager()->disconnect(this);
    _glWidget->disconnect(this);
    _glWidget->disconnect(_menus);
    _menus->disconnect(_glWidget);
    _trayIcon->disconnect(this);
}

void Window::onMute(bool checked)
{
    _appData.settings.setMuted(checked);
}

void Window::onIncreaseVolume()
{
    _appData.settings.setVolume(_appData.settings.volume() + volumeStep);
}

void Window::onDecreaseVolume()
{
    _appData.settings.setVolume(_appData.settings.volume() - volumeStep);
}

void Window::onSeekForwards()
{
    _appData.channelManager()->seekForwards(seekStep);
}

void Window::onSeekBackwards()
{
    _appData.channelManager()->seekBackwards(seekStep);
}

void Window::onSpeed()
{
    if (auto const* const action = qobject_cast<QAction*>(sender()))
        _appData.channelManager()->setSpeed(MenuActions::speedOf(action));
}

void Window::onIncreaseSpeed()
{
    stepSpeed(1);
}

void Window::onDecreaseSpeed()
{
    stepSpeed(-1);
}

void Window::onResetSpeed()
{
    _appData.settings.action(MenuAction::Speed100)->trigger();
}

void Window::stepSpeed(int steps)
{
    QList<QAction*> const speeds = _appData.settings.actions().speeds();
    for (qsizetype i = 0; i < speeds.size(); ++i) {
        if (!speeds.at(i)->isChecked())
            continue;
        speeds.at(qBound<qsizetype>(0, i + steps, speeds.size() - 1))->trigger();
        return;
    }
}

void Window::onRecord(bool checked)
{
    _appData.settings.setRecord(checked);
}

void Window::onScreenshotCompleted(QString const& path)
{
    if (path.isEmpty())
        _notice->tell(tr("The screenshot could not be saved in %1").arg(_appData.settings.screenshotDirectory()));
    else
        _notice->tell(tr("Screenshot saved as %1").arg(path));
}

void Window::onSystemShutdown()
{
    onQuit();
}

void Window::onSystemSuspended()
{
    _appData.channelManager()->closeForLater();
}

void Window::onSystemResumed()
{
    if (isVisible() && !_closedByHand)
        _appData.channelManager()->openLastChannels();
}

void Window::onQuit()
{
    _trayIcon->hide();
    QApplication::exit(0); // quit() would ask this window to close, which only hides it.
}

void Window::onTrayActivated()
{
    showWindow();
}

void Window::onTrayChannelChosen(QString const& rootId)
{
    showWindow();
    _appData.channelManager()->openChannel(rootId, false, true);
}

void Window::onChannelError(Channel* channel, QString const& text)
{
    if (channel)
        return; // It says so itself.
    _notice->keep(Notice::Subject::Directory, text);
}

void Window::onChannelChanged()
{
    updateTitle();
}

void Window::onSignIn()
{
    SignIn const& signIn = *_appData.signIn();
    if (signIn.isSignedIn())
        _notice->tell(tr("You are signed in as %1.").arg(signIn.email()));
    else
        _appData.signIn(this, !std::exchange(_hasBegun, true));
}

void Window::onSignOut()
{
    _appData.signOut(true);
}

void Window::onSignUp()
{
    _appData.signUp(this);
}

void Window::onSigningInChanged()
{
    SignIn const& signIn = *_appData.signIn();
    bool const isTold = signIn.isSigningIn() && !signIn.isAsking();
    _notice->keep(Notice::Subject::SigningIn, isTold ? tr("Signing in ...") : QString());
}

void Window::onSupport()
{
    openPage(_appData.settings.supportUrl());
}

void Window::onFeedback()
{
    openPage(_appData.settings.feedbackUrl());
}

void Window::onBuyPro()
{
    _notice->tell(_appData.settings.buyPremiumMessage());
    openPage(_appData.settings.soapHost());
}

void Window::onAddRemoveChannels()
{
    _panels->onChannelListWidgetManageChannels();
}

void Window::onMultiviewLimitExceeded()
{
    _notice->tell(
        tr("Your account shows %n channel(s) at once.", nullptr, _appData.settings.multiviewChannelLimit()));
}

void Window::onFilesDropped(QStringList const& names)
{
    // Those of the drop itself are not told to whoever hears of it from the surface.
    if (!names.isEmpty())
        _fileChannels->drop(names, QGuiApplication::queryKeyboardModifiers());
}

void Window::onSurfaceInitialized()
{
    _surfaceReady = true;
    _appData.channelEvents()->setSurfaceReady();
    open(std::exchange(_pendingNames, {}));
    _slowDriverWarning->onSurfaceInitialized();
}

void Window::updateTitle()
{
    Channel const* const channel = _appData.channelManager()->activeChannel();
    QString title = channel ? QString(channel->desc.title() + " - Ombravision") : QStringLiteral("Ombravision");
    if (_appData.settings.muted())
        title = tr("%1 (muted)").arg(title);
    else if (_appData.settings.volume() < 1.0)
        title = tr("%1 (volume %2 %)").arg(title).arg(qRound(_appData.settings.volume() * 100.0));
    setWindowTitle(title);
}
