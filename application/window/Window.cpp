#include "Window.h"

#include "ActionStates.h"
#include "AppData.h"
#include "Channel.h"
#include "ChannelListWidget.h"
#include "ChannelManager.h"
#include "ChannelPanels.h"
#include "ChannelSearchWidget.h"
#include "FileChannels.h"
#include "GLWidget.h"
#include "HibernationManager.h"
#include "Logger.h"
#include "LoggerManager.h"
#include "Notice.h"
#include "ResourceImage.h"
#include "ScreenSaverManager.h"
#include "SkinPalette.h"
#include "SlowDriverWarning.h"
#include "Splitter.h"
#include "TabWidget.h"
#include "TrayIcon.h"
#include "WindowDialogs.h"
#include "WindowFade.h"
#include "WindowKeys.h"
#include "WindowManagerState.h"
#include "WindowMenus.h"
#include "WindowPlace.h"
#include "WindowZoom.h"

#include <QAccessibleWidget>
#include <QApplication>
#include <QCloseEvent>
#include <QDragEnterEvent>
#include <QLineEdit>
#include <QMenuBar>
#include <QMimeData>
#include <QScopedValueRollback>
#include <QVBoxLayout>

Logger* Window::log = LoggerManager::logger();

namespace
{
/// A widget alone is to assistive technology no window but something that fills a place.
QAccessibleInterface* makeWindowInterface(QString const& className, QObject* object)
{
    auto* const window = className == "Window" ? qobject_cast<QWidget*>(object) : nullptr;
    return window ? new QAccessibleWidget(window, QAccessible::Window) : nullptr;
}

constexpr QSize firstSize(854, 480); // Of the video surface.
constexpr int firstTabsWidth = 340;
constexpr int roomForFrame = 32; // Pixels of height, before the window manager has told its own.
} // namespace

Window::Window(AppData& appData)
    : OmbravisionWidget(appData), _appData(appData), _keys(std::make_unique<WindowKeys>(appData.settings)),
      _fade(std::make_unique<WindowFade>(*this)), _place(std::make_unique<WindowPlace>(*this, appData.settings)),
      _windowManagerState(std::make_unique<WindowManagerState>(*this)),
      _hibernationManager(std::make_unique<HibernationManager>()),
      _screenSaverManager(std::make_unique<ScreenSaverManager>())
{
    QAccessible::installFactory(makeWindowInterface); // First: what is asked for once is kept.
    setObjectName("window");
    // Settings are read before there is anywhere to say what is wrong with them.
    connect(
        &_appData.settings, &AppSettings::settingsFileFailed, this,
        [this](QString const& message) { _notice->tell(message); }, Qt::QueuedConnection);
    _appData.initialize(this);
    createChildControls();
    createMenus();
    createNotifier();
    createTrayIcon();
    connectActions();
    connectSignals();
    setWindowIcon(QPixmap::fromImage(ResourceImage::png(":/Resources/Ombravision.png")));
    setAcceptDrops(true);
    updateTitle();
    applySkin();
    onShowTabsChanged();
    onShowMenuBarChanged();
    if (_place->restore())
        _sizedByHand = true;
    else
        _zoom->resizeWindow((firstSize + QSize(_tabs->isHidden() ? 0 : firstTabsWidth, 0) + sizeAround())
                                .boundedTo(screen()->availableSize() - QSize(0, roomForFrame)));
}

Window::~Window()
{
    disconnectActions();
    disconnectSignals();
    // The streams draw in this window's surface.
    if (_appData.channelManager())
        _appData.channelManager()->stopChecking();
    if (_appData.channelManager())
        _appData.channelManager()->closeAllChannels();
    _place->keep();
    _splitter->keep();
    if (_appData.settings.actions().areCreated())
        _appData.settings.saveGlobalSettings();
    _dialogs.reset();
    delete _glWidget;
}

void Window::createChildControls()
{
    _splitter = new Splitter(_appData.settings, this);
    _glWidget = new GLWidget(_appData, _splitter);
    _tabs = new TabWidget(_appData.settings, _splitter);
    _panels = new ChannelPanels(_appData, _tabs);
    _tabs->addTab(_panels->list(), tr("Channels"));
    _tabs->addTab(_panels->search(), tr("Search"));
    _splitter->addWidget(_glWidget);
    _splitter->addWidget(_tabs);
    _splitter->setStretchFactor(0, 1);
    _splitter->setStretchFactor(1, 0);
    _splitter->setSizes({firstSize.width(), firstTabsWidth});
    _splitter->restore();
    for (QLineEdit* const field : _tabs->findChildren<QLineEdit*>())
        field->installEventFilter(this);
    _notice = new Notice(this, _glWidget);
    _zoom = std::make_unique<WindowZoom>(_appData, *_glWidget, *this);
    _fileChannels = std::make_unique<FileChannels>(_appData, *this);
    _actionStates = std::make_unique<ActionStates>(_appData);
}

bool Window::hasMenusInTitle() const
{
    return isSkinned() && !isRightToLeft(); // Qt's menu bar takes all of a line that runs from right to left.
}

QSize Window::sizeAround() const
{
    QMargins const margins = layout()->contentsMargins();
    int const title = isSkinned() ? frame()->titleBar()->sizeHint().height() : 0;
    int const menus = hasMenusInTitle() ? 0 : _menuBar->sizeHint().height();
    return {margins.left() + margins.right(), margins.top() + margins.bottom() + title + menus};
}

void Window::createMenus()
{
    _menus = new WindowMenus(_appData, *_zoom, *this);
    _menuBar = _menus->bar();
    contents()->addWidget(_menuBar);
    contents()->addWidget(_splitter, 1);
    _dialogs = std::make_unique<WindowDialogs>(_appData, *_glWidget, *this);
    connect(_dialogs.get(), &WindowDialogs::failed, _notice, &Notice::tell);
    connect(&_appData, &AppData::audioDeviceFailed, _notice, &Notice::tell);
    _dialogs->fillEffectsMenu(_menus->effects());
    for (WindowDialog const which : {WindowDialog::VideoInformation, WindowDialog::StreamBuffer})
        _menus->view()->addAction(_dialogs->action(which));
    _menus->options()->insertAction(_appData.settings.action(MenuAction::RunAtStartup),
                                    _dialogs->action(WindowDialog::TestConsole));
}

void Window::createTrayIcon()
{
    _trayIcon = std::make_unique<TrayIcon>(_appData);
    _trayIcon->show();
}

void Window::createNotifier()
{
    _slowDriverWarning = std::make_unique<SlowDriverWarning>(_appData, *this);
}

void Window::applySkin()
{
    // In the skin the palette is ours, for dialogs and icons, too; otherwise the desktop's, as it may change.
    QApplication::setPalette(isSkinned() ? skinPalette() : QPalette());
    setStyleSheet(AppData::buildStyleSheet(isSkinned()));
    if (hasMenusInTitle()) {
        frame()->titleBar()->leading()->addWidget(_menuBar, 0, Qt::AlignVCenter);
        _menuBar->setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Preferred);
    } else {
        contents()->insertWidget(0, _menuBar);
        _menuBar->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Minimum);
    }
    onShowMenuBarChanged();
}

void Window::open(QStringList const& names)
{
    if (names.isEmpty())
        return;
    if (!_surfaceReady) {
        _pendingNames += names; // The command line's may still wait.
        return;
    }
    _appData.openNames(names);
}

bool Window::event(QEvent* event)
{
    // The keys that act when they are let go are not also shortcuts, which act when they go down.
    if (event->type() == QEvent::ShortcutOverride && _keys->isOurs(*static_cast<QKeyEvent*>(event))) {
        _keys->press(*static_cast<QKeyEvent*>(event)); // A list or a field may keep the press to itself.
        event->accept();
        return true;
    }
    if (event->type() == QEvent::WindowDeactivate)
        _keys->forget();
    return OmbravisionWidget::event(event);
}

/// Of the fields of text in the window, which keep the release of every key to themselves.
bool Window::eventFilter(QObject* watched, QEvent* event)
{
    bool const isOurs = event->type() == QEvent::KeyRelease && _keys->release(*static_cast<QKeyEvent*>(event));
    return isOurs || OmbravisionWidget::eventFilter(watched, event);
}

void Window::closeEvent(QCloseEvent* event)
{
    event->ignore();
    if (!_trayIcon->isVisible()) {
        onQuit(); // Nothing would bring the window back.
        return;
    }
    _appData.settings.setShowFullScreen(false);
    if (!_appData.settings.toldOfTray())
        _appData.settings.setToldOfTray(
            _trayIcon->tell(tr("Ombravision is still there"),
                            tr("Click on its icon to go on watching. Exit in its menu ends the program.")));
    _fade->hideWindow();
    _closedByHand = true;
    emit windowVisibilityChanged(false);
}

void Window::showEvent(QShowEvent* event)
{
    OmbravisionWidget::showEvent(event);
    if (!std::exchange(_closedByHand, false))
        return;
    emit windowVisibilityChanged(true);
}

void Window::keyPressEvent(QKeyEvent* event)
{
    _keys->press(*event);
    if (!_keys->isOurs(*event) && !_appData.channelManager()->videoKeyPress(event))
        OmbravisionWidget::keyPressEvent(event);
}

void Window::keyReleaseEvent(QKeyEvent* event)
{
    if (event->isAutoRepeat())
        return;
    if (event->key() == Qt::Key_F7 && _appData.settings.godMode())
        _fade->toggle();
    else if (!_keys->release(*event) && !_appData.channelManager()->videoKeyRelease(event))
        OmbravisionWidget::keyReleaseEvent(event);
}

void Window::resizeEvent(QResizeEvent* event)
{
    OmbravisionWidget::resizeEvent(event);
    if (event->spontaneous() && !_zoom->isOwnSize(event->size()) && !_appData.settings.showFullScreen())
        _sizedByHand = true;
}

void Window::dragEnterEvent(QDragEnterEvent* event)
{
    if (!FileChannels::namesOf(*event->mimeData()).isEmpty())
        event->acceptProposedAction();
}

void Window::dropEvent(QDropEvent* event)
{
    onFilesDropped(FileChannels::namesOf(*event->mimeData()));
    event->acceptProposedAction();
}

void Window::showWindow()
{
    setWindowState(windowState() & ~Qt::WindowMinimized);
    bool const wasFading = isVisible() && _closedByHand;
    _fade->showWindow();
    show();
    if (wasFading && std::exchange(_closedByHand, false))
        emit windowVisibilityChanged(true);
    raise();
    activateWindow();
    _windowManagerState->activate(); // Whoever calls does it for the viewer.
}

void Window::zoom(double factor)
{
    _zoom->zoom(factor);
}

void Window::onStreamOpened()
{
    if (!_sizedByHand && !isMaximized() && _appData.channelManager()->openChannels().size() == 1)
        zoom(1.0);
}
