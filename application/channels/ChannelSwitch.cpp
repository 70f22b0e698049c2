#include "ChannelSwitch.h"

#include "Timer.h"
#include "TimerFactory.h"

#include <utility>

ChannelSwitch::ChannelSwitch(TimerFactory* timers, QObject* parent)
    : QObject(parent), _timers(timers), _timer(timers->createTimer())
{
    _timer->setSingleShot(true);
    connect(_timer, &Timer::timeout, this, &ChannelSwitch::fadedOut);
}

ChannelSwitch::~ChannelSwitch()
{
    _timers->disposeTimer(_timer);
}

bool ChannelSwitch::begin(Action action, QString const& channelId, int ms)
{
    bool const isFading = isPending();
    _pending = {action, channelId, {}};
    if (!isFading)
        _timer->start(ms);
    return !isFading;
}

void ChannelSwitch::addBeside(QString const& channelId)
{
    if (channelId != _pending.channelId && !_pending.beside.contains(channelId))
        _pending.beside.append(channelId);
}

ChannelSwitch::Pending ChannelSwitch::take()
{
    _timer->stop();
    return std::exchange(_pending, {});
}
