#pragma once

#include "MenuActions.h"

#include <QMenu>
#include <QObject>

#include <initializer_list>
#include <optional>

class AppData;
class QMenuBar;
class QWidget;
class WindowZoom;

/// The menu bar of the window and the menu on the picture, which has the same menus in it. Main thread only.
class WindowMenus : public QObject
{
    Q_OBJECT

public:
    /// How many channels the menu of them lists; who has more finds them in their panel.
    static constexpr int mostChannels = 40;

    /// All are borrowed and outlive this; the menus are the window's, and so are the actions in them, so that their
    /// shortcuts work while the menu bar is hidden.
    WindowMenus(AppData& appData, WindowZoom const& zoom, QWidget& window);

    QMenuBar* bar() const { return _bar; }
    /// To add entries to.
    QMenu* playback() const { return _playback; }
    QMenu* view() const { return _view; }
    QMenu* effects() const { return _effects; }
    QMenu* options() const { return _options; }
    QMenu* help() const { return _help; }

public slots:
    /// Shows the menu of the picture.
    void showContextMenu(QPoint globalPosition) { _contextMenu->popup(globalPosition); }

signals:
    void screenshotWanted();

private:
    using Entry = std::optional<MenuAction>; ///< Without an action a line between others.
    void add(QMenu* menu, std::initializer_list<Entry> entries);
    QMenu* addMenu(QString const& title, std::initializer_list<Entry> entries);
    void createPlayback();
    void createView(WindowZoom const& zoom);
    void fillChannels(QMenu* menu);
    void createContextMenu();
    void createKeys();
    void goToMenus();

    AppData& _appData;
    QWidget& _window;
    QMenuBar* _bar;
    QMenu* _contextMenu;
    QMenu* _playback = nullptr;
    QMenu* _view = nullptr;
    QMenu* _effects = nullptr;
    QMenu* _options = nullptr;
    QMenu* _help = nullptr;
    QAction* _screenshot;
};
