// What the window hears: of the entries of its menus, and of the others.

#include "ActionStates.h"
#include "AppData.h"
#include "Channel.h"
#include "ChannelManager.h"
#include "ChannelStream.h"
#include "FileChannels.h"
#include "GLWidget.h"
#include "SignIn.h"
#include "TrayIcon.h"
#include "Window.h"
#include "WindowDialogs.h"
#include "WindowManagerState.h"
#include "WindowMenus.h"

#include <QAction>

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
    connect(this, &Window::windowVisibilityChanged, _dialogs.get(), &WindowDialogs::onWindowVisibilityChanged);
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
    disconnect(this, nullptr, _dialogs.get(), nullptr);
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
