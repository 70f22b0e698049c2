#include "DesktopAnnouncements.h"

#include "AppData.h"

#include <QDBusConnection>

DesktopAnnouncements::DesktopAnnouncements(AppData& appData, QObject* parent) : QObject(parent), _appData(appData)
{
    // From whoever announces it there: by its name the manager would first be looked for, which takes its time.
    QDBusConnection bus = QDBusConnection::systemBus();
    QString const path = QStringLiteral("/org/freedesktop/login1");
    QString const manager = QStringLiteral("org.freedesktop.login1.Manager");
    bus.connect({}, path, manager, "PrepareForSleep", this, SLOT(onPrepareForSleep(bool)));
    bus.connect({}, path, manager, "PrepareForShutdown", this, SLOT(onPrepareForShutdown(bool)));
}

void DesktopAnnouncements::onPrepareForSleep(bool begins)
{
    if (begins)
        _appData.emitSystemSuspended();
    else
        _appData.emitSystemResumed();
}

void DesktopAnnouncements::onPrepareForShutdown(bool begins)
{
    if (begins)
        _appData.emitSystemShutdown();
}
