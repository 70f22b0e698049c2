#pragma once

#include "MenuActions.h"

#include <QStringList>
#include <QSystemTrayIcon>
#include <QTimer>
#include <QWidget>

#include <initializer_list>
#include <memory>
#include <optional>

class AppData;
class BufferWindow;
class Channel;
class GLWidget;
class HibernationManager;
class Logger;
class Notice;
class QAction;
class QMenu;
class QMenuBar;
class ScreenSaverManager;
class WindowManagerState;

/// The one top-level window: a menu bar over the video surface, and the system tray icon.
///
/// Its constructor initialises the hub, so that every component exists when the window does. Closing the window only
/// hides it, which stops playback; the exit action ends the program. Main thread only.
class Window : public QWidget
{
    Q_OBJECT

public:
    explicit Window(AppData& appData);
    ~Window() override;

    /// Plays files and addresses as soon as the video surface can.
    void open(QStringList const& names);

    /// Brings the window to the front, out of the tray or its icon if need be, as large as it was.
    void showWindow();

    /// Resizes the window so that the video shows at the factor, as far as the screen allows.
    void zoom(double factor);

signals:
    void windowVisibilityChanged(bool visible);

protected:
    void closeEvent(QCloseEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private slots:
    void onOpenVideoFile();
    void onOpenVideoFiles();
    void onAddVideoFiles();
    void onOpenVideoStream();
    void onShowFullScreenChanged();
    /// The window manager, too, can fill the screen with a window, or end it.
    void onFullScreenByWindowManager(bool full);
    void onAlwaysOnTopChanged();
    void onMute(bool checked);
    void onIncreaseVolume();
    void onDecreaseVolume();
    void onVolumeChanged();
    void onScreenshotCompleted(QString const& path);
    void onQuit();
    void onAbout();
    void onTrayActivated(QSystemTrayIcon::ActivationReason reason);
    void onSpeed(QAction* action);
    /// What is wrong with the directory; a channel shows its own errors.
    void onChannelError(Channel* channel, QString const& text);
    void onSignIn();
    /// An attempt without a dialog has begun or ended.
    void onSigningInChanged();
    /// A film that plays alone gets a window of its size, until the viewer has chosen one.
    void onStreamOpened();

private:
    void createChildControls();
    void createMenus();
    void createTrayIcon();
    void connectActions();
    void connectSignals();
    using MenuEntry = std::optional<MenuAction>; ///< Without an action a line between others.
    QMenu* addMenu(QString const& title, std::initializer_list<MenuEntry> entries);
    void createChannelsMenu(QMenu* menu);
    void createPostProcessingMenu(QMenu* menu);
    void createBufferEntry(QMenu* menu);
    void stepSpeed(int steps);
    void updateSpeedMenu();
    QStringList chooseFiles(bool several);
    void resizeItself(QSize const& size);
    void updateTitle();

    static Logger* log;

    AppData& _appData;
    QMenuBar* _menuBar = nullptr;
    GLWidget* _glWidget = nullptr;
    Notice* _notice = nullptr;
    QMenu* _contextMenu = nullptr;
    BufferWindow* _bufferWindow = nullptr;
    QSystemTrayIcon* _trayIcon = nullptr;
    std::unique_ptr<WindowManagerState> _windowManagerState;
    bool _followsWindowManager = false; ///< The setting changes because the window manager has said so.
    std::unique_ptr<HibernationManager> _hibernationManager;
    std::unique_ptr<ScreenSaverManager> _screenSaverManager;
    QStringList _pendingNames; ///< What to play once the surface stands.
    bool _surfaceReady = false;
    bool _hasBegun = false; ///< The first sign-in, at the start, is automatic where that is wanted.
    bool _closedByHand = false;
    QSize _ownSize; ///< The size that the window has given itself last.
    bool _sizedByHand = false;
};
