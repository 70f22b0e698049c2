#pragma once

#include <QObject>
#include <QString>
#include <QStringList>

class Timer;
class TimerFactory;

/// The change from what plays to something else: what waits for the fade to be over. There is one at a time; another
/// choice during the fade replaces what waits, and the fade ends when it was to. Main thread only.
class ChannelSwitch : public QObject
{
    Q_OBJECT

public:
    enum class Action { None, OpenChannel, OpenSponsorship };

    struct Pending {
        Action action = Action::None;
        QString channelId;
        QStringList beside; ///< What is opened beside it afterwards.
    };

    /// The timers are borrowed.
    explicit ChannelSwitch(TimerFactory* timers, QObject* parent = nullptr);
    ~ChannelSwitch() override;

    bool isPending() const { return _pending.action != Action::None; }
    Pending const& pending() const { return _pending; }

    /// Makes fadedOut() come after so many ms, or when the fade that is under way ends: false then.
    bool begin(Action action, QString const& channelId, int ms);
    /// Opens another channel beside the one that waits, once.
    void addBeside(QString const& channelId);
    /// What waited, which waits no more.
    Pending take();

signals:
    void fadedOut();

private:
    TimerFactory* const _timers;
    Timer* const _timer; ///< Of the factory.
    Pending _pending;
};
