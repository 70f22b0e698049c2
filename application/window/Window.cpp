#include "Window.h"

#include "AppData.h"
#include "Channel.h"
#include "ChannelManager.h"
#include "GLWidget.h"
#include "HibernationManager.h"
#include "Logger.h"
#include "LoggerManager.h"
#include "Notice.h"
#include "OwnChannels.h"
#include "ScreenSaverManager.h"
#include "WindowManagerState.h"

#include <QApplication>
#include <QCloseEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QInputDialog>
#include <QKeyEvent>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QScopedValueRollback>
#include <QScreen>
#include <QVBoxLayout>

Logger* Window::log = LoggerManager::logger();

namespace
{

constexpr double volumeStep = 0.1;
constexpr QSize firstSize(854, 480); // Of the video surface.

} // namespace

Window::Window(AppData& appData)
    : _appData(appData), _windowManagerState(std::make_unique<WindowManagerState>(*this)),
      _hibernationManager(std::make_unique<HibernationManager>()),
      _screenSaverManager(std::make_unique<ScreenSaverManager>())
{
    setObjectName("window");
    // Settings are read before there is anywhere to say what is wrong with them.
    connect(
        &_appData.settings, &AppSettings::settingsFileFailed, this,
        [this](QString const& message) { _notice->tell(message); }, Qt::QueuedConnection);
    _appData.initialize(this);
    createChildControls();
    createMenus();
    createTrayIcon();
    connectActions();
    connectSignals();
    setStyleSheet(AppData::buildStyleSheet(false));
    setWindowIcon(QIcon(":/Resources/Ombravision.png"));
    updateTitle();
    resizeItself(firstSize + QSize(0, _menuBar->sizeHint().height()));
}

Window::~Window()
{
    // The streams draw in this window's surface.
    if (_appData.channelManager())
        _appData.channelManager()->stopChecking();
    if (_appData.channelManager())
        _appData.channelManager()->closeAllChannels();
    _appData.settings.disconnect(this);
    delete _glWidget;
}

void Window::createChildControls()
{
    _menuBar = new QMenuBar(this);
    _glWidget = new GLWidget(_appData, this);
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->setMenuBar(_menuBar);
    layout->addWidget(_glWidget);
    _notice = new Notice(this, _glWidget);
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

void Window::closeEvent(QCloseEvent* event)
{
    if (!_trayIcon->isVisible())
        return;
    _appData.settings.setShowFullScreen(false);
    hide();
    _closedByHand = true;
    event->ignore();
    emit windowVisibilityChanged(false);
}

void Window::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    if (!_closedByHand)
        return;
    _closedByHand = false;
    emit windowVisibilityChanged(true);
}

void Window::keyPressEvent(QKeyEvent* event)
{
    if (!_appData.channelManager()->videoKeyPress(event))
        QWidget::keyPressEvent(event);
}

void Window::keyReleaseEvent(QKeyEvent* event)
{
    if (event->isAutoRepeat())
        return;
    if (event->key() == Qt::Key_Escape && _appData.settings.showFullScreen())
        _appData.settings.action(MenuAction::FullScreen)->trigger();
    else if (!_appData.channelManager()->videoKeyRelease(event))
        QWidget::keyReleaseEvent(event);
}

void Window::showWindow()
{
    setWindowState(windowState() & ~Qt::WindowMinimized);
    show();
    raise();
    activateWindow();
}

void Window::onShowFullScreenChanged()
{
    bool const full = _appData.settings.showFullScreen();
    _menuBar->setVisible(!full && _appData.settings.showMenuBar());
    if (!_followsWindowManager) {
        // Leaves the other states as they are: a window that was maximised is so again afterwards.
        setWindowState(windowState().setFlag(Qt::WindowFullScreen, full));
        _windowManagerState->setFullScreen(full);
    }
    // A film must not be interrupted by the screen saver.
    _hibernationManager->setEnabled(!full);
    _screenSaverManager->setEnabled(!full);
}

void Window::onFullScreenByWindowManager(bool full)
{
    // What it says may precede its answer to a request: asking again would call that back.
    QScopedValueRollback const follows(_followsWindowManager, true);
    _appData.settings.setShowFullScreen(full);
}

void Window::onAlwaysOnTopChanged()
{
    _windowManagerState->setAbove(_appData.settings.alwaysOnTop());
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

void Window::onVolumeChanged()
{
    updateTitle();
}

void Window::onScreenshotCompleted(QString const& path)
{
    if (path.isEmpty())
        _notice->tell(tr("The screenshot could not be saved in %1").arg(_appData.settings.screenshotDirectory()));
    else
        _notice->tell(tr("Screenshot saved as %1").arg(path));
}

void Window::onQuit()
{
    _trayIcon->hide();
    QApplication::exit(0); // quit() would ask this window to close, which only hides it.
}

void Window::onAbout()
{
    QMessageBox::about(
        this, tr("About Ombravision"),
        tr("<b>Ombravision %1</b><br>Live internet television on your desktop.").arg(_appData.settings.version()));
}

void Window::onTrayActivated(QSystemTrayIcon::ActivationReason reason)
{
    if (reason == QSystemTrayIcon::Trigger)
        showWindow();
}

QStringList Window::chooseFiles(bool several)
{
    QString const filter =
        tr("Media files (*.mp4 *.m4v *.mov *.mkv *.webm *.avi *.wmv *.wma *.asf *.mpg *.mpeg *.ts *.flv *.ogg *.ogv "
           "*.mp3 *.m4a *.aac *.flac *.wav);;All files (*)");
    QString const directory = _appData.settings.videoFileDirectory();
    QStringList names;
    if (several)
        names = QFileDialog::getOpenFileNames(this, tr("Open Video Files"), directory, filter);
    else
        names = QStringList(QFileDialog::getOpenFileName(this, tr("Open Video File"), directory, filter));
    names.removeAll(QString());
    if (!names.isEmpty())
        _appData.settings.setVideoFileDirectory(QFileInfo(names.constFirst()).absolutePath());
    return names;
}

void Window::onOpenVideoFile()
{
    open(chooseFiles(false));
}

void Window::onOpenVideoFiles()
{
    open(chooseFiles(true));
}

void Window::onAddVideoFiles()
{
    for (QString const& name : chooseFiles(true))
        _appData.channelManager()->openFile(name, false);
}

void Window::onOpenVideoStream()
{
    bool ok = false;
    QString const address =
        QInputDialog::getText(this, tr("Open Video Stream"), tr("Address:"), QLineEdit::Normal, {}, &ok).trimmed();
    if (!ok || address.isEmpty())
        return;
    if (!OwnChannels::isAddress(address)) {
        QMessageBox::warning(this, tr("Open Video Stream"),
                             tr("\"%1\" is not an address: it should begin with a scheme such as http:// or rtsp://.")
                                 .arg(address.toHtmlEscaped()));
        return;
    }
    open({address});
}

void Window::zoom(double factor)
{
    Channel const* const channel = _appData.channelManager()->activeChannel();
    if (!channel || channel->movieSize().isEmpty() || _appData.settings.showFullScreen())
        return;
    QSize const frame = frameGeometry().size() - _glWidget->size();
    QSize const room = screen()->availableSize() - frame;
    QSize video = channel->movieSize() * factor / devicePixelRatio();
    if (video.width() > room.width() || video.height() > room.height())
        video.scale(room, Qt::KeepAspectRatio);
    resizeItself(video + size() - _glWidget->size());
}

void Window::resizeItself(QSize const& size)
{
    _ownSize = size;
    QSize const grown = frameGeometry().size() + size - this->size();
    resize(size);
    // A window that has grown stays on the screen.
    QRect const room = screen()->availableGeometry();
    QPoint const lastCorner = room.bottomRight() - QPoint(grown.width() - 1, grown.height() - 1);
    QPoint const corner(qMax(room.left(), qMin(x(), lastCorner.x())), qMax(room.top(), qMin(y(), lastCorner.y())));
    if (isVisible() && corner != pos())
        move(corner);
}

void Window::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    if (event->spontaneous() && event->size() != _ownSize && !_appData.settings.showFullScreen())
        _sizedByHand = true;
}

void Window::onStreamOpened()
{
    if (!_sizedByHand && !isMaximized() && _appData.channelManager()->openChannels().size() == 1)
        zoom(1.0);
}

void Window::updateTitle()
{
    Channel const* const channel = _appData.channelManager()->activeChannel();
    QString title = channel ? QString(channel->desc.title() + " - Ombravision") : QStringLiteral("Ombravision");
    if (_appData.settings.muted())
        title += tr(" (muted)");
    else if (_appData.settings.volume() < 1.0)
        title += tr(" (volume %1 %)").arg(qRound(_appData.settings.volume() * 100.0));
    setWindowTitle(title);
}
