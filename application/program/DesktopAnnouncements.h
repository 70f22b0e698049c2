#pragma once

#include <QObject>

class AppData;

/// Passes on what the system announces before it sleeps, after it has woken, and before it is shut down: the signals
/// of systemd-logind's manager (org.freedesktop.login1) on the system bus. Without that bus nothing is announced.
/// Main thread only.
class DesktopAnnouncements : public QObject
{
    Q_OBJECT

public:
    /// Who is told is borrowed.
    explicit DesktopAnnouncements(AppData& appData, QObject* parent = nullptr);

private slots:
    // The manager's own signals; true before, false after.
    void onPrepareForSleep(bool begins);
    void onPrepareForShutdown(bool begins);

private:
    AppData& _appData;
};
