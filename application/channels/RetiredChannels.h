#pragma once

#include <QObject>

#include <memory>
#include <vector>

class Channel;
class ChannelActions;
class Logger;
class Timer;
class TimerFactory;

/// Channels that nobody knows any more, and that are closed: deletes them and their menu entries in slices, since
/// there may be thousands, and at the latest with itself. Main thread only.
class RetiredChannels : public QObject
{
    Q_OBJECT

public:
    /// All are borrowed.
    RetiredChannels(ChannelActions& actions, TimerFactory* timers, QObject* parent = nullptr);
    ~RetiredChannels() override;

    /// Takes them over, and deletes them from the next turn of the event loop on.
    void take(std::vector<std::unique_ptr<Channel>> channels);

    int count() const { return static_cast<int>(_channels.size()); }

private:
    void run();

    static Logger* log;

    ChannelActions& _actions;
    TimerFactory* const _timers;
    Timer* const _timer; ///< Of the factory: to the next slice.
    std::vector<std::unique_ptr<Channel>> _channels;
};
