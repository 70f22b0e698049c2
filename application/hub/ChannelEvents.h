#pragma once

#include "TestEvent.h"

#include <QObject>

#include <functional>

class AppData;
class Channel;
class Logger;
class Timer;
class TimerFactory;

/// What follows from what channels and window do: what opens when there is something to open, a hidden window that
/// never plays, and test mode, which goes from channel to channel. Main thread only.
class ChannelEvents : public QObject
{
    Q_OBJECT

public:
    /// The timers are borrowed.
    ChannelEvents(AppData& appData, TimerFactory* timers, QObject* parent = nullptr);
    ~ChannelEvents() override;

    /// Nothing opens by itself before there is a surface to draw on. If it is made anew, what played comes back.
    void setSurfaceReady();
    /// The surface goes, to be made anew: all channels close before that.
    void closeForNewSurface();
    /// Closes what plays or is about to, does something that it has to go for, and opens it again.
    void closeAround(std::function<void()> const& work);

signals:
    void channelTestEvent(TestEvent event);

public slots:
    void onChannelsUpdated();
    void onChannelChanged(Channel* from, Channel* to);
    void onWindowVisibilityChanged(bool visible);
    void onSignedInChanged();
    /// The system sleeps next: nothing plays then.
    void onSystemSuspended();
    /// What played before comes back, and nothing else.
    void onSystemResumed();
    void onTestModeChanged();
    void onTestModeTimer();

private:
    void openFirst();
    void startTestModeTimer();
    void report(Channel const& channel);

    static Logger* log;

    AppData& _appData;
    TimerFactory* const _timers;
    Timer* const _testModeTimer; ///< Of the factory.
    bool _isSurfaceReady = false;
    bool _isVisible = true;
    bool _opensAgain = false;     ///< With the new surface.
    bool _wakesPlaying = false;   ///< When the system does.
    bool _hasOpenedFirst = false; ///< Since the directory began to be followed.
};
