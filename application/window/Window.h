#pragma once

#include "OmbravisionWidget.h"

#include <QStringList>

#include <memory>

class ActionStates;
class Channel;
class ChannelPanels;
class FileChannels;
class GLWidget;
class HibernationManager;
class Logger;
class Notice;
class QMenuBar;
class ScreenSaverManager;
class SlowDriverWarning;
class Splitter;
class TabWidget;
class TrayIcon;
class Uri;
class WindowDialogs;
class WindowFade;
class WindowKeys;
class WindowManagerState;
class WindowMenus;
class WindowPlace;
class WindowZoom;

/// The one top-level window: the menu bar over the video surface and the tabs beside it, and the system tray icon.
///
/// Its constructor initialises the hub, so that every component exists when the window does. Closing the window only
/// hides it, which stops playback, as long as there is a tray icon to bring it back by; the exit action ends the
/// program. What the menus do is in WindowActions.cpp; what is about place, size, keys, menus, tray or files has a
/// class of its own. Main thread only.
class Window : public OmbravisionWidget
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
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private slots:
    void onShowFullScreenChanged();
    /// The window manager, too, can fill the screen with a window, or end it.
    void onFullScreenByWindowManager(bool full);
    void onAlwaysOnTopChanged();
    void onShowMenuBarChanged();
    void onShowTabsChanged();
    void onSkinChanged();
    void onMute(bool checked);
    void onIncreaseVolume();
    void onDecreaseVolume();
    void onSeekForwards();
    void onSeekBackwards();
    void onIncreaseSpeed();
    void onDecreaseSpeed();
    void onResetSpeed();
    void onSpeed();
    void onRecord(bool checked);
    void onScreenshotCompleted(QString const& path);
    void onSystemShutdown();
    void onQuit();
    void onTrayActivated();
    void onTrayChannelChosen(QString const& rootId);
    /// What is wrong with the directory; a channel shows its own errors.
    void onChannelError(Channel* channel, QString const& text);
    void onChannelChanged();
    void onSignIn();
    void onSignOut();
    void onSignUp();
    /// An attempt without a dialog has begun or ended.
    void onSigningInChanged();
    void onSupport();
    void onFeedback();
    void onBuyPro();
    void onAddRemoveChannels();
    /// A film that plays alone gets a window of its size, until the viewer has chosen one.
    void onStreamOpened();
    void onMultiviewLimitExceeded();
    void onFilesDropped(QStringList const& names);
    void onSurfaceInitialized();

private:
    void createChildControls();
    bool hasMenusInTitle() const;
    QSize sizeAround() const; ///< What the frame in the skin, menu bar and margins need.
    void createMenus();
    void createTrayIcon();
    void createNotifier();
    void applySkin();
    void connectActions();
    void connectSignals();
    void disconnectActions();
    void disconnectSignals();
    void stepSpeed(int steps);
    void openPage(Uri const& address);
    void updateTitle();

    static Logger* log;

    AppData& _appData;
    QMenuBar* _menuBar = nullptr;
    Splitter* _splitter = nullptr;
    GLWidget* _glWidget = nullptr;
    TabWidget* _tabs = nullptr;
    ChannelPanels* _panels = nullptr;
    Notice* _notice = nullptr;
    std::unique_ptr<WindowKeys> _keys;
    std::unique_ptr<WindowFade> _fade;
    std::unique_ptr<WindowPlace> _place;
    std::unique_ptr<WindowZoom> _zoom;
    WindowMenus* _menus = nullptr;
    std::unique_ptr<WindowDialogs> _dialogs;
    std::unique_ptr<ActionStates> _actionStates;
    std::unique_ptr<FileChannels> _fileChannels;
    std::unique_ptr<TrayIcon> _trayIcon;
    std::unique_ptr<SlowDriverWarning> _slowDriverWarning;
    std::unique_ptr<WindowManagerState> _windowManagerState;
    bool _followsWindowManager = false; ///< The setting changes because the window manager has said so.
    std::unique_ptr<HibernationManager> _hibernationManager;
    std::unique_ptr<ScreenSaverManager> _screenSaverManager;
    QStringList _pendingNames; ///< What to play once the surface stands.
    bool _surfaceReady = false;
    bool _hasBegun = false; ///< The first sign-in, at the start, is automatic where that is wanted.
    bool _closedByHand = false;
    bool _sizedByHand = false;
};
