#include "ChannelUpdate.h"

#include "Channel.h"
#include "ChannelDescriptionProvider.h"
#include "ChannelManager.h"
#include "KnownChannels.h"
#include "Logger.h"
#include "LoggerManager.h"
#include "Timer.h"
#include "TimerFactory.h"

#include <QElapsedTimer>

#include <algorithm>
#include <utility>

Logger* ChannelUpdate::log = LoggerManager::logger();

namespace
{

/// Streams are the same whatever opens them, but the next opening needs what does so now.
bool hasOtherKeys(ChannelDescription const& one, ChannelDescription const& other)
{
    return !std::ranges::equal(one.streamDescriptions(), other.streamDescriptions(),
                               [](StreamDescription const& a, StreamDescription const& b) {
                                   return a.uri() == b.uri() && a.key() == b.key() && a.provider() == b.provider() &&
                                          a.secure() == b.secure();
                               });
}

} // namespace

ChannelUpdate::ChannelUpdate(ChannelManager& channels, KnownChannels& known, TimerFactory* timers, QObject* parent)
    : QObject(parent), _channels(channels), _known(known), _timers(timers), _timer(timers->createTimer())
{
    _timer->setSingleShot(true);
    connect(_timer, &Timer::timeout, this, &ChannelUpdate::run);
}

ChannelUpdate::~ChannelUpdate()
{
    _timers->disposeTimer(_timer);
}

void ChannelUpdate::begin(ChannelDescriptionProvider const& provider)
{
    bool const hasChanged = _hasChanged;
    cancel();
    _hasChanged = hasChanged;
    LOG_INFO("Channel update started");
    _isRunning = true;
    for (long long i = 0; i < provider.numChannels(); ++i)
        _provided.append(provider.descriptionAt(i));
    run();
}

void ChannelUpdate::cancel()
{
    ++_number;
    _isRunning = false;
    _timer->stop();
    _provided.clear();
    _compared = 0;
    _providedIds.clear();
    _isCompared = false;
    _gone.clear();
    _modified.clear();
    _added.clear();
    _logos.clear();
    _hasChanged = false;
}

void ChannelUpdate::run()
{
    int const number = _number;
    QElapsedTimer time;
    time.start();
    for (int steps = 1; step(); ++steps) {
        if (number != _number)
            return; // Who was told of a change has cancelled the rest, or begun anew.
        if (steps >= minimumSteps && time.elapsed() >= sliceTime) {
            _timer->start(0);
            return;
        }
    }
    if (number == _number)
        end();
}

/// Does one piece. False when there is none.
bool ChannelUpdate::step()
{
    if (_compared < _provided.size()) {
        compare(_provided.at(_compared++));
    } else if (!_isCompared) {
        findGone();
    } else if (!_gone.isEmpty()) {
        if (Channel* const channel = _known.find(_gone.takeLast()))
            _channels.removeChannel(channel);
    } else if (!_modified.isEmpty()) {
        modify(withNewestLogo(_modified.takeLast()));
    } else if (!_added.isEmpty()) {
        if (ChannelDescription const description = _added.takeFirst(); !_known.find(description.rootId()))
            _channels.addChannel(withNewestLogo(description));
    } else {
        return false;
    }
    return true;
}

void ChannelUpdate::compare(ChannelDescription const& provided)
{
    ChannelDescription const description = withNewestLogo(provided);
    // Language variants share one channel: that of the first.
    if (_providedIds.contains(description.rootId()))
        return;
    _providedIds.insert(description.rootId());
    Channel const* const known = _known.find(description.rootId());
    if (!known)
        _added.append(description);
    else if (known->desc != description || hasOtherKeys(known->desc, description))
        _modified.append(description);
}

void ChannelUpdate::noteLogo(ChannelDescription const& description)
{
    if (_isRunning)
        _logos.insert(description.rootId(), description.packedLogo());
}

ChannelDescription ChannelUpdate::withNewestLogo(ChannelDescription description) const
{
    if (auto const logo = _logos.constFind(description.rootId()); logo != _logos.constEnd())
        description.setLogo(*logo);
    return description;
}

void ChannelUpdate::findGone()
{
    _isCompared = true;
    _gone = _known.idsBut(_providedIds);
    _hasChanged = _hasChanged || !_gone.isEmpty() || !_modified.isEmpty() || !_added.isEmpty();
}

void ChannelUpdate::modify(ChannelDescription const& description)
{
    Channel* const channel = _known.find(description.rootId());
    if (!channel)
        return; // Removed meanwhile.
    _isSorted = _isSorted && channel->desc.title() == description.title();
    // Streams are made anew only where they differ: what plays is not disturbed by a new title.
    bool const rebuild = channel->desc.streamDescriptions() != description.streamDescriptions();
    if (rebuild && _channels.isChannelOpen(channel)) {
        LOG_INFO("Some of the open channels were closed. Need to reopen them");
        _channels.reconnectChannel(channel, description);
    } else {
        bool const isPrepared = rebuild && (channel->isOpen() || channel->isBuffering());
        channel->setDesc(description, rebuild);
        if (isPrepared)
            _channels.prepareChannel(channel);
    }
    _channels.channelActions().update(channel);
}

void ChannelUpdate::end()
{
    bool const hasChanged = _hasChanged;
    if (!std::exchange(_isSorted, true))
        _known.sort();
    cancel();
    if (hasChanged)
        LOG_INFO("Channel update complete. Channels were modified");
    else
        LOG_INFO("Channel update complete. No channels were modified");
    emit completed(hasChanged);
}
