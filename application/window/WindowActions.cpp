// What the entries of the window's menus do, and what the window does when others tell of something.

#include "AppData.h"
#include "Channel.h"
#include "ChannelEvents.h"
#include "ChannelManager.h"
#include "ChannelPanels.h"
#include "ChannelTitle.h"
#include "FileChannels.h"
#include "GLWidget.h"
#include "HibernationManager.h"
#include "Notice.h"
#include "ScreenSaverManager.h"
#include "SignIn.h"
#include "SlowDriverWarning.h"
#include "TabWidget.h"
#include "TrayIcon.h"
#include "Window.h"
#include "WindowManagerState.h"
#include "WindowZoom.h"

#include <QAction>
#include <QApplication>
#include <QDesktopServices>
#include <QMenuBar>
#include <QScopedValueRollback>
#include <QUrl>

#include <utility>

namespace
{
constexpr double volumeStep = 0.1;
constexpr double seekStep = 10.0; // Seconds.
} // namespace

void Window::onShowFullScreenChanged()
{
    bool const full = _appData.settings.showFullScreen();
    onShowMenuBarChanged();
    onShowTabsChanged();
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

void Window::onShowMenuBarChanged()
{
    _menuBar->setVisible(_appData.settings.showMenuBar() && !_appData.settings.showFullScreen());
}

void Window::onShowTabsChanged()
{
    _tabs->setVisible(_tabs->count() > 0 && _appData.settings.showTabs() && !_appData.settings.showFullScreen());
}

void Window::onSkinChanged()
{
    QSize const picture = _glWidget->size();
    applySkin();
    layout()->activate();
    if (!(windowState() & (Qt::WindowMaximized | Qt::WindowFullScreen)))
        _zoom->resizeWindow(size() + picture - _glWidget->size()); // Not larger or smaller for another frame.
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
    _notice->keep(Notice::Subject::SigningIn, isTold ? tr("Signing in...") : QString());
}

void Window::openPage(Uri const& address)
{
    constexpr qsizetype longest = 200;
    if (!QDesktopServices::openUrl(QUrl(address.toString())))
        _notice->tell(tr("The page could not be opened: %1").arg(address.toString().left(longest)));
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
    QString title = channel ? QString(ChannelTitle::shown(channel->desc.title()) + " - Ombravision")
                            : QStringLiteral("Ombravision");
    if (_appData.settings.muted())
        title = tr("%1 (muted)").arg(title);
    else if (_appData.settings.volume() < 1.0)
        title = tr("%1 (volume %2 %)").arg(title, QString::number(qRound(_appData.settings.volume() * 100.0)));
    setWindowTitle(title);
}
