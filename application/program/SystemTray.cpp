#include "SystemTray.h"

#include "X11Selection.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusInterface>
#include <QEventLoop>
#include <QSystemTrayIcon>
#include <QTimer>

namespace
{

constexpr int lookInterval = 250; // ms

/// The two kinds: by the X server's system tray protocol, or by the session bus.
bool hasAppeared()
{
    if (isX11SelectionOwned("_NET_SYSTEM_TRAY_S0"))
        return true;
    QString const watcher = QStringLiteral("org.kde.StatusNotifierWatcher");
    QDBusConnection const session = QDBusConnection::sessionBus();
    return session.isConnected() && session.interface()->isServiceRegistered(watcher) &&
           QDBusInterface(watcher, "/StatusNotifierWatcher", watcher, session)
               .property("IsStatusNotifierHostRegistered")
               .toBool();
}

} // namespace

bool SystemTray::isAvailable()
{
    return QSystemTrayIcon::isSystemTrayAvailable();
}

bool SystemTray::waitFor(int ms)
{
    QEventLoop loop;
    QTimer look;
    QObject::connect(&look, &QTimer::timeout, &loop, [&loop] {
        if (hasAppeared())
            loop.quit();
    });
    QTimer::singleShot(ms, &loop, &QEventLoop::quit);
    look.start(lookInterval);
    if (!hasAppeared())
        loop.exec();
    return isAvailable();
}
