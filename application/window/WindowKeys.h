#pragma once

#include <QKeyEvent>

class AppSettings;
class QAction;

/// The keys of the window that act when they are let go, so that a held one acts once: Escape out of full screen, and
/// with the control key tabs, mute, full screen, closing, volume and speeds. What they trigger is the menu's action,
/// if that is enabled. Main thread only.
class WindowKeys
{
public:
    explicit WindowKeys(AppSettings const& settings) : _settings(settings) {}

    /// Whether a key is one of them; the menu's shortcut for it is then not to act as well.
    bool isOurs(QKeyEvent const& event) const;
    /// A key has gone down that nothing else has taken.
    void press(QKeyEvent const& event);
    /// A key has been let go; whether it has acted. The control key may have been let go before it.
    bool release(QKeyEvent const& event);
    /// Keys that are down now will be let go elsewhere.
    void forget();

private:
    QAction* actionFor(int key) const;

    AppSettings const& _settings;
    int _heldKey = 0;           ///< That has gone down with the control key.
    bool _isEscapeDown = false; ///< Here: what ends with its press, such as a menu, does not see its release.
};
