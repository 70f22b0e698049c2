#pragma once

#include <QMenu>
#include <QStringList>
#include <QSystemTrayIcon>

#include <memory>

class AppData;
class Channel;

/// The program's icon in the system tray, and its menu: the channels that were open last, sound, account, window,
/// end. A click shows the window. Main thread only.
class TrayIcon : public QObject
{
    Q_OBJECT

public:
    static constexpr int mostRecent = 8;

    explicit TrayIcon(AppData& appData);

    void show() { _icon.show(); }
    void hide() { _icon.hide(); }

    /// Whether it can be seen, so that a window that was hidden can be brought back.
    bool isVisible() const;

    /// Words of the desktop's own beside the icon, for when the window is not there to say them. False where the
    /// desktop has no place for them.
    bool tell(QString const& title, QString const& text);

    /// Root ids, the last that was opened first, at the start those that were open at the end of the last run;
    /// channels that are not known any more are left out in the menu.
    QStringList recentChannels() const { return _recent; }

signals:
    void activated();
    void channelChosen(QString const& rootId);

private slots:
    void onChannelOpened(Channel* channel);
    void onChannelsUpdated();
    void onActivated(QSystemTrayIcon::ActivationReason reason);

private:
    void fillMenu();
    void updateToolTip();

    AppData& _appData;
    QMenu _menu;
    QSystemTrayIcon _icon;
    QStringList _recent;
    bool _hasFormer = false; ///< Those of the last run are among them.
};
