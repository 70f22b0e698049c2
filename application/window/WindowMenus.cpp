// The menus of the window and what their entries do.

#include "AppData.h"
#include "BufferWindow.h"
#include "Channel.h"
#include "ChannelManager.h"
#include "GLWidget.h"
#include "PostProcessingEffects.h"
#include "Window.h"
#include "WindowManagerState.h"

#include <QAction>
#include <QActionGroup>
#include <QMenu>
#include <QMenuBar>

namespace
{
constexpr double seekStep = 10.0; // Seconds.
constexpr int zoomPercents[] = {25, 50, 75, 100, 125, 150, 175, 200};
} // namespace

QMenu* Window::addMenu(QString const& title, QStringList const& actions)
{
    QMenu* const menu = _menuBar->addMenu(title);
    for (QString const& text : actions) {
        if (text.isEmpty())
            menu->addSeparator();
        else
            menu->addAction(_appData.settings.action(text));
    }
    _contextMenu->addMenu(menu);
    return menu;
}

void Window::createMenus()
{
    _contextMenu = new QMenu(this);
    AppSettings const& settings = _appData.settings;
    addMenu(tr("&File"), {"&Open Video File", "&Open Video Files", "&Add Video Files", "&Open Video Stream", "",
                          "Record", "", "Close Window", "&Exit"});

    QMenu* const play = addMenu(
        tr("&Playback"), {"Mute", "Increase Volume", "Decrease Volume", "", "Seek Forwards", "Seek backwards", ""});
    QMenu* const speed = play->addMenu(tr("Speed"));
    speed->addActions(settings.speedActions());
    speed->addSeparator();
    for (char const* const text : {"Reset Speed", "Increase Speed", "Decrease Speed"})
        speed->addAction(settings.action(text));

    QMenu* const view = addMenu(tr("&View"), {"Full Screen", "Menu Bar", "Always on Top", ""});
    QMenu* const size = view->addMenu(tr("Draw Mode"));
    size->addActions(settings.drawModeActions());
    QMenu* const zoomMenu = view->addMenu(tr("Zoom"));
    for (int const percent : zoomPercents)
        connect(zoomMenu->addAction(tr("%1 %").arg(percent)), &QAction::triggered, this,
                [this, percent] { zoom(percent / 100.0); });
    createPostProcessingMenu(view->addMenu(tr("Effects")));
    QAction* const screenshot = view->addAction(tr("Take Screenshot"));
    screenshot->setShortcut(QKeySequence("Ctrl+Shift+S"));
    connect(screenshot, &QAction::triggered, _glWidget, &GLWidget::onTakeScreenshot);
    createBufferEntry(view);

    addMenu(tr("&Options"), {"Run at Startup", "", "&About Ombravision"});

    // With the menu bar hidden, the shortcuts still work.
    for (QAction* const action : _menuBar->actions())
        addActions(action->menu()->actions());
    addActions(settings.speedActions());
}

void Window::createPostProcessingMenu(QMenu* menu)
{
    menu->addAction(_appData.settings.action("Video Post Processing"));
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
    for (char const* const text : {"&Show Window", "Mute", "&Exit"})
        menu->addAction(_appData.settings.action(text));
    _trayIcon->setContextMenu(menu);
    _trayIcon->show();
    connect(_trayIcon, &QSystemTrayIcon::activated, this, &Window::onTrayActivated);
}

void Window::connectActions()
{
    auto const on = [this](char const* text, auto&& slot) {
        connect(_appData.settings.action(text), &QAction::triggered, this, slot);
    };
    on("&Open Video File", &Window::onOpenVideoFile);
    on("&Open Video Files", &Window::onOpenVideoFiles);
    on("&Add Video Files", &Window::onAddVideoFiles);
    on("&Open Video Stream", &Window::onOpenVideoStream);
    on("Mute", &Window::onMute);
    on("Increase Volume", &Window::onIncreaseVolume);
    on("Decrease Volume", &Window::onDecreaseVolume);
    on("&Minimize", &QWidget::showMinimized);
    on("&Exit", &Window::onQuit);
    on("&About Ombravision", &Window::onAbout);
    on("&Show Window", &Window::showWindow);
    on("Close Window", &QWidget::close);
    on("Record", [this](bool checked) { _appData.settings.setRecord(checked); });
    on("Full Screen", [this](bool checked) { _appData.settings.setShowFullScreen(checked); });
    on("Menu Bar", [this](bool checked) { _appData.settings.setShowMenuBar(checked); });
    on("Always on Top", [this](bool checked) { _appData.settings.setAlwaysOnTop(checked); });
    on("Run at Startup", [this](bool checked) { _appData.settings.setRunAtStartup(checked); });
    on("Video Post Processing", [this](bool checked) { _appData.settings.setEnableVideoPostProcessing(checked); });
    on("Seek Forwards", [this] { _appData.channelManager()->seekForwards(seekStep); });
    on("Seek backwards", [this] { _appData.channelManager()->seekBackwards(seekStep); });
    on("Increase Speed", [this] { stepSpeed(1); });
    on("Decrease Speed", [this] { stepSpeed(-1); });
    on("Reset Speed", [this] {
        for (QAction* const action : _appData.settings.speedActions())
            if (AppSettings::speedOf(action) == 1.0)
                action->trigger();
    });
    for (QAction* const action : _appData.settings.speedActions())
        connect(action, &QAction::triggered, this, [this, action] { onSpeed(action); });
    for (QAction* const action : _appData.settings.drawModeActions())
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
    ChannelManager const* const channels = _appData.channelManager();
    connect(channels, &ChannelManager::streamOpened, this, &Window::onStreamOpened);
    connect(channels, &ChannelManager::streamOpened, this, &Window::updateSpeedMenu);
    connect(channels, &ChannelManager::channelOpened, this, &Window::updateSpeedMenu);
    connect(channels, &ChannelManager::channelClosed, this, &Window::updateSpeedMenu);
    connect(channels, &ChannelManager::speedChanged, this, &Window::updateSpeedMenu);
    connect(_glWidget, &GLWidget::contextMenuRequested, _contextMenu, [this](QPoint p) { _contextMenu->popup(p); });
    connect(_glWidget, &GLWidget::filesDropped, this, &Window::open);
    connect(_glWidget, &GLWidget::screenshotCompleted, this, &Window::onScreenshotCompleted);
    connect(_glWidget, &GLWidget::initialized, this, [this] {
        _surfaceReady = true;
        open(std::exchange(_pendingNames, {}));
    });
}

void Window::onSpeed(QAction* action)
{
    _appData.channelManager()->setSpeed(AppSettings::speedOf(action));
}

void Window::stepSpeed(int steps)
{
    QList<QAction*> const speeds = _appData.settings.speedActions();
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
    _appData.settings.showSpeed(canChange ? channels.speed() : 1.0, canChange);
}
