// The menus of the window and what their entries do.

#include "AppData.h"
#include "BufferWindow.h"
#include "Channel.h"
#include "ChannelAction.h"
#include "ChannelEvents.h"
#include "ChannelManager.h"
#include "GLWidget.h"
#include "Notice.h"
#include "PostProcessingEffects.h"
#include "SignIn.h"
#include "Window.h"
#include "WindowManagerState.h"

#include <QAction>
#include <QActionGroup>
#include <QMenu>
#include <QMenuBar>

#include <utility>

namespace
{
constexpr double seekStep = 10.0;                  // Seconds.
constexpr std::nullopt_t separator = std::nullopt; // Of a menu.
constexpr int zoomPercents[] = {25, 50, 75, 100, 125, 150, 175, 200};
} // namespace

QMenu* Window::addMenu(QString const& title, std::initializer_list<MenuEntry> entries)
{
    QMenu* const menu = _menuBar->addMenu(title);
    for (MenuEntry const& entry : entries) {
        if (entry)
            menu->addAction(_appData.settings.action(*entry));
        else
            menu->addSeparator();
    }
    _contextMenu->addMenu(menu);
    return menu;
}

void Window::createMenus()
{
    _contextMenu = new QMenu(this);
    AppSettings const& settings = _appData.settings;
    addMenu(tr("&File"),
            {MenuAction::OpenVideoFile, MenuAction::OpenVideoFiles, MenuAction::AddVideoFiles,
             MenuAction::OpenVideoStream, separator, MenuAction::Record, separator, MenuAction::SignIn,
             MenuAction::SignOut, MenuAction::CreateAccount, separator, MenuAction::CloseWindow, MenuAction::Exit});

    createChannelsMenu(addMenu(tr("&Channels"), {}));
    QMenu* const play =
        addMenu(tr("&Playback"), {MenuAction::Mute, MenuAction::IncreaseVolume, MenuAction::DecreaseVolume, separator,
                                  MenuAction::SeekForwards, MenuAction::SeekBackwards, separator});
    QMenu* const speed = play->addMenu(tr("Speed"));
    speed->addActions(settings.actions().speeds());
    speed->addAction(settings.action(MenuAction::SpeedCustom));
    speed->addSeparator();
    for (MenuAction const action : {MenuAction::ResetSpeed, MenuAction::IncreaseSpeed, MenuAction::DecreaseSpeed})
        speed->addAction(settings.action(action));

    QMenu* const view =
        addMenu(tr("&View"), {MenuAction::FullScreen, MenuAction::MenuBar, MenuAction::AlwaysOnTop, separator});
    QMenu* const size = view->addMenu(tr("Draw Mode"));
    size->addActions(settings.actions().drawModes());
    QMenu* const zoomMenu = view->addMenu(tr("Zoom"));
    for (int const percent : zoomPercents)
        connect(zoomMenu->addAction(tr("%1 %").arg(percent)), &QAction::triggered, this,
                [this, percent] { zoom(percent / 100.0); });
    QAction* const perspective = view->addAction(tr("Perspective"));
    perspective->setCheckable(true);
    connect(perspective, &QAction::triggered, &_appData.settings, &AppSettings::setPerspectiveMode);
    createPostProcessingMenu(view->addMenu(tr("Effects")));
    QAction* const screenshot = view->addAction(tr("Take Screenshot"));
    screenshot->setShortcut(QKeySequence("Ctrl+Shift+S"));
    screenshot->setAutoRepeat(false);
    connect(screenshot, &QAction::triggered, _glWidget, &GLWidget::onTakeScreenshot);
    createBufferEntry(view);

    addMenu(tr("&Options"), {MenuAction::TestChannels, MenuAction::RunAtStartup, separator, MenuAction::About});

    // With the menu bar hidden, the shortcuts still work.
    for (QAction* const action : _menuBar->actions())
        addActions(action->menu()->actions());
    addActions(settings.actions().speeds());
}

void Window::createChannelsMenu(QMenu* menu)
{
    // When it is opened: a directory may have thousands of channels, and changes while nobody looks.
    connect(menu, &QMenu::aboutToShow, this, [this, menu] {
        menu->clear();
        ChannelManager& channels = *_appData.channelManager();
        for (Channel* const channel : channels.channels())
            menu->addAction(channels.channelActions().action(channel));
    });
}

void Window::createPostProcessingMenu(QMenu* menu)
{
    menu->addAction(_appData.settings.action(MenuAction::VideoPostProcessing));
    menu->addSeparator();
    auto* const group = new QActionGroup(menu);
    group->setExclusionPolicy(QActionGroup::ExclusionPolicy::None);
    for (QString const& name : PostProcessingEffects::names()) {
        QAction* const action = group->addAction(name);
        action->setCheckable(true);
        menu->addAction(action);
    }
    connect(group, &QActionGroup::triggered, this, [this, group] {
        QStringList chosen;
        for (QAction const* const action : group->actions())
            if (action->isChecked())
                chosen.append(action->text());
        _glWidget->setEffects(chosen);
        _appData.settings.setEnableVideoPostProcessing(!chosen.isEmpty());
    });
}

void Window::createBufferEntry(QMenu* menu)
{
    _bufferWindow = new BufferWindow(_appData, this);
    QAction* const action = menu->addAction(tr("Stream Buffer"));
    action->setCheckable(true);
    connect(action, &QAction::triggered, _bufferWindow, &QWidget::setVisible);
    connect(_bufferWindow, &BufferWindow::visibilityChanged, action, &QAction::setChecked);
}

void Window::createTrayIcon()
{
    _trayIcon = new QSystemTrayIcon(QIcon(":/Resources/Ombravision.png"), this);
    _trayIcon->setToolTip("Ombravision");
    auto* const menu = new QMenu(this);
    for (MenuAction const action : {MenuAction::ShowWindow, MenuAction::Mute, MenuAction::Exit})
        menu->addAction(_appData.settings.action(action));
    _trayIcon->setContextMenu(menu);
    _trayIcon->show();
    connect(_trayIcon, &QSystemTrayIcon::activated, this, &Window::onTrayActivated);
}

void Window::connectActions()
{
    auto const on = [this](MenuAction action, auto&& slot) {
        connect(_appData.settings.action(action), &QAction::triggered, this, slot);
    };
    on(MenuAction::OpenVideoFile, &Window::onOpenVideoFile);
    on(MenuAction::OpenVideoFiles, &Window::onOpenVideoFiles);
    on(MenuAction::AddVideoFiles, &Window::onAddVideoFiles);
    on(MenuAction::OpenVideoStream, &Window::onOpenVideoStream);
    on(MenuAction::Mute, &Window::onMute);
    on(MenuAction::IncreaseVolume, &Window::onIncreaseVolume);
    on(MenuAction::DecreaseVolume, &Window::onDecreaseVolume);
    on(MenuAction::Minimize, &QWidget::showMinimized);
    on(MenuAction::Exit, &Window::onQuit);
    on(MenuAction::About, &Window::onAbout);
    on(MenuAction::ShowWindow, &Window::showWindow);
    on(MenuAction::CloseWindow, &QWidget::close);
    on(MenuAction::Record, [this](bool checked) { _appData.settings.setRecord(checked); });
    on(MenuAction::FullScreen, [this](bool checked) { _appData.settings.setShowFullScreen(checked); });
    on(MenuAction::MenuBar, [this](bool checked) { _appData.settings.setShowMenuBar(checked); });
    on(MenuAction::AlwaysOnTop, [this](bool checked) { _appData.settings.setAlwaysOnTop(checked); });
    on(MenuAction::RunAtStartup, [this](bool checked) { _appData.settings.setRunAtStartup(checked); });
    on(MenuAction::VideoPostProcessing,
       [this](bool checked) { _appData.settings.setEnableVideoPostProcessing(checked); });
    on(MenuAction::SignIn, &Window::onSignIn);
    on(MenuAction::SignOut, [this] { _appData.signOut(true); });
    on(MenuAction::CreateAccount, [this] { _appData.signUp(this); });
    on(MenuAction::TestChannels, [this](bool checked) { _appData.settings.setTestMode(checked); });
    on(MenuAction::SeekForwards, [this] { _appData.channelManager()->seekForwards(seekStep); });
    on(MenuAction::SeekBackwards, [this] { _appData.channelManager()->seekBackwards(seekStep); });
    on(MenuAction::IncreaseSpeed, [this] { stepSpeed(1); });
    on(MenuAction::DecreaseSpeed, [this] { stepSpeed(-1); });
    on(MenuAction::ResetSpeed, [this] { _appData.settings.action(MenuAction::Speed100)->trigger(); });
    for (QAction* const action : _appData.settings.actions().speeds())
        connect(action, &QAction::triggered, this, [this, action] { onSpeed(action); });
    for (QAction* const action : _appData.settings.actions().drawModes())
        connect(action, &QAction::triggered, this,
                [this, action] { _appData.settings.setDrawMode(action->data().toInt()); });
}

void Window::connectSignals()
{
    AppSettings& settings = _appData.settings;
    connect(this, &Window::windowVisibilityChanged, &_appData, &AppData::onWindowVisibilityChanged);
    connect(&settings, &AppSettings::showFullScreenChanged, this, &Window::onShowFullScreenChanged);
    connect(&settings, &AppSettings::alwaysOnTopChanged, this, &Window::onAlwaysOnTopChanged);
    connect(&settings, &AppSettings::volumeChanged, this, &Window::onVolumeChanged);
    connect(_windowManagerState.get(), &WindowManagerState::aboveChanged, &settings, &AppSettings::setAlwaysOnTop);
    connect(_windowManagerState.get(), &WindowManagerState::fullScreenChanged, this,
            &Window::onFullScreenByWindowManager);
    connect(&settings, &AppSettings::muteChanged, this, &Window::updateTitle);
    connect(&settings, &AppSettings::showMenuBarChanged, this,
            [this] { _menuBar->setVisible(_appData.settings.showMenuBar() && !_appData.settings.showFullScreen()); });
    connect(&_appData, &AppData::channelChanged, this, &Window::updateTitle);
    connect(&_appData, &AppData::channelsUpdated, this, &Window::updateTitle); // It may have been renamed.
    connect(&_appData, &AppData::signInStarted, this, &Window::onSigningInChanged);
    connect(_appData.signIn(), &SignIn::signInEnded, this, &Window::onSigningInChanged);
    ChannelManager const* const channels = _appData.channelManager();
    connect(channels, &ChannelManager::streamOpened, this, &Window::onStreamOpened);
    connect(channels, &ChannelManager::streamOpened, this, &Window::updateSpeedMenu);
    connect(channels, &ChannelManager::channelOpened, this, &Window::updateSpeedMenu);
    connect(channels, &ChannelManager::channelClosed, this, &Window::updateSpeedMenu);
    connect(channels, &ChannelManager::speedChanged, this, &Window::updateSpeedMenu);
    connect(channels, &ChannelManager::channelError, this, &Window::onChannelError);
    connect(channels, &ChannelManager::multiviewLimitExceeded, this, [this] {
        _notice->tell(
            tr("Your account shows %n channel(s) at once.", nullptr, _appData.settings.multiviewChannelLimit()));
    });
    connect(_glWidget, &GLWidget::contextMenuRequested, _contextMenu, [this](QPoint p) { _contextMenu->popup(p); });
    connect(_glWidget, &GLWidget::filesDropped, this, &Window::open);
    connect(_glWidget, &GLWidget::screenshotCompleted, this, &Window::onScreenshotCompleted);
    connect(_glWidget, &GLWidget::initialized, this, [this] {
        _surfaceReady = true;
        _appData.channelEvents()->setSurfaceReady();
        open(std::exchange(_pendingNames, {}));
    });
}

void Window::onChannelError(Channel* channel, QString const& text)
{
    if (channel)
        return; // It says so itself.
    _notice->keep(Notice::Subject::Directory, text);
}

void Window::onSignIn()
{
    SignIn const& signIn = *_appData.signIn();
    if (signIn.isSignedIn())
        _notice->tell(tr("You are signed in as %1.").arg(signIn.email()));
    else
        _appData.signIn(this, !std::exchange(_hasBegun, true));
}

void Window::onSigningInChanged()
{
    SignIn const& signIn = *_appData.signIn();
    bool const isTold = signIn.isSigningIn() && !signIn.isAsking();
    _notice->keep(Notice::Subject::SigningIn, isTold ? tr("Signing in ...") : QString());
}

void Window::onSpeed(QAction* action)
{
    _appData.channelManager()->setSpeed(MenuActions::speedOf(action));
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

void Window::updateSpeedMenu()
{
    ChannelManager const& channels = *_appData.channelManager();
    bool const canChange = channels.canChangeSpeed();
    _appData.settings.actions().showSpeed(canChange ? channels.speed() : 1.0, canChange);
}
