#include "RetiredChannels.h"

#include "Channel.h"
#include "ChannelActions.h"
#include "ChannelUpdate.h"
#include "Logger.h"
#include "LoggerManager.h"
#include "Timer.h"
#include "TimerFactory.h"

#include <QElapsedTimer>

#include <iterator>

Logger* RetiredChannels::log = LoggerManager::logger();

RetiredChannels::RetiredChannels(ChannelActions& actions, TimerFactory* timers, QObject* parent)
    : QObject(parent), _actions(actions), _timers(timers), _timer(timers->createTimer())
{
    _timer->setSingleShot(true);
    connect(_timer, &Timer::timeout, this, &RetiredChannels::run);
}

RetiredChannels::~RetiredChannels()
{
    for (auto const& channel : _channels)
        _actions.destroy(channel.get());
    _timers->disposeTimer(_timer);
}

void RetiredChannels::take(std::vector<std::unique_ptr<Channel>> channels)
{
    for (auto const& channel : channels)
        channel->blockSignals(true); // It has nothing to say any more.
    _channels.insert(_channels.begin(), std::move_iterator(channels.begin()), std::move_iterator(channels.end()));
    _timer->start(0); // Whoever signs out has enough to do in this turn.
}

void RetiredChannels::run()
{
    QElapsedTimer time;
    time.start();
    for (int steps = 1; !_channels.empty(); ++steps) {
        if (steps > ChannelUpdate::minimumSteps && time.elapsed() >= ChannelUpdate::sliceTime) {
            _timer->start(0);
            return;
        }
        _actions.destroy(_channels.back().get());
        LOG_INFO("Removed channel %d %s", count() - 1, qUtf8Printable(_channels.back()->desc.title()));
        _channels.pop_back();
    }
}
