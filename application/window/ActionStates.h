#pragma once

#include "MenuActions.h"

#include <QObject>
#include <QTimer>

class AppData;

/// Enables each action of the menus as long as it can do something. Looks at all of them once, whatever has changed
/// in between. Main thread only.
class ActionStates : public QObject
{
    Q_OBJECT

public:
    explicit ActionStates(AppData& appData);

public slots:
    /// Whether the window can be seen: what is about it waits until then.
    void onWindowVisibilityChanged(bool visible);

private:
    void changeLater() { _change.start(); }
    void update();
    void enable(MenuAction action, bool enabled);
    void updateSpeeds();

    AppData& _appData;
    QTimer _change;
    bool _isVisible = true;
};
