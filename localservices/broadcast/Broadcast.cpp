#include "Broadcast.h"

#include "AsfFile.h"
#include "Logger.h"
#include "LoggerManager.h"
#include "TickCounter.h"
#include "Timer.h"
#include "TimerFactory.h"

#include <algorithm>

Logger* Broadcast::log = LoggerManager::logger();

namespace
{
constexpr int msShortestWait = 5; // Packets that are due closer together go out together.
constexpr int msLongestWait = 1000;
constexpr int msBeforeBurst = 10'000;   // So long before the burst the first key frame is looked for.
constexpr qint64 maximumBacklog = 2000; // Packets: a process that slept for longer leaves the rest out.
} // namespace

Broadcast::Broadcast(QString const& name, std::vector<std::unique_ptr<AsfFile>> films, int msBurst,
                     TickCounter& tickCounter, TimerFactory& timerFactory, QObject* parent)
    : QObject(parent), _name(name), _films(std::move(films)), _msBurst(msBurst), _tickCounter(tickCounter),
      _timerFactory(timerFactory), _timer(timerFactory.createTimer()), _msClockStart(tickCounter.msSinceEpoch()),
      _msPositionThen(msBurst + msBeforeBurst), _timeline(*_films.front(), 0)
{
    _timer->setSingleShot(true);
    connect(_timer, &Timer::timeout, this, &Broadcast::onTimeout);
    makeHeader();
}

Broadcast::~Broadcast()
{
    _timerFactory.disposeTimer(_timer);
}

qint64 Broadcast::position() const
{
    return _msPositionThen + (_tickCounter.msSinceEpoch() - _msClockStart) * _ratePercent / 100;
}

void Broadcast::restartClock()
{
    _msPositionThen = position();
    _msClockStart = _tickCounter.msSinceEpoch();
}

void Broadcast::makeHeader()
{
    QString const title = _headerEdition == 1 ? _name : QStringLiteral("%1, part %2").arg(_name).arg(_headerEdition);
    _header = film().broadcastHeader(title);
}

void Broadcast::join(BroadcastListener* listener)
{
    if (_listening == 0)
        _next = _timeline.firstAfter(position());
    _listeners.push_back(listener);
    ++_listening;
    if (!_silent)
        burst(listener);
    schedule();
}

void Broadcast::burst(BroadcastListener* listener)
{
    size_t const place = _listeners.size() - 1;
    qint64 const affordable = _next - maximumBurst / film().header().packetSize();
    qint64 begin = _timeline.keyPacketUpTo(_timeline.firstAfter(position() - _msBurst) - 1, listener->beginsWith());
    if (begin < affordable) {
        // Then the longest burst that still begins with a key frame.
        begin = std::max<qint64>(affordable, 0);
        for (qint64 key = _next; (key = _timeline.keyPacketUpTo(key - 1, listener->beginsWith())) > begin;) {
            if (_timeline.keyPacketUpTo(key - 1, listener->beginsWith()) < affordable)
                begin = key;
        }
    }
    ++_deliveries;
    for (qint64 number = begin; number < _next && _listeners[place] == listener; ++number) {
        if (std::shared_ptr<SharedPacket> const made = packet(number))
            listener->packetArrived(*made);
    }
    endDelivery();
}

void Broadcast::leave(BroadcastListener* listener)
{
    auto const found = std::find(_listeners.begin(), _listeners.end(), listener);
    if (found == _listeners.end())
        return;
    --_listening;
    if (_deliveries > 0)
        *found = nullptr;
    else
        _listeners.erase(found);
    if (_listening == 0) {
        _timer->stop();
        _recent.clear();
    }
}

void Broadcast::endDelivery()
{
    if (--_deliveries == 0)
        std::erase(_listeners, nullptr);
}

template<typename Call>
void Broadcast::forEachListener(Call call)
{
    ++_deliveries;
    for (size_t i = 0, count = _listeners.size(); i < count; ++i) {
        if (_listeners[i])
            call(_listeners[i]);
    }
    endDelivery();
}

void Broadcast::onTimeout()
{
    qint64 const due = _timeline.firstAfter(position());
    if (due - _next > maximumBacklog) {
        LOG_WARNING("%s: %lld packets late, they are left out", qUtf8Printable(_name),
                    static_cast<long long>(due - _next));
        _next = due;
    }
    deliverDue();
    forgetOldPackets();
    schedule();
}

void Broadcast::deliverDue()
{
    // A listener may change the broadcast from within a delivery; the bound is looked at anew each time.
    while (_next < _timeline.firstAfter(position()) && _listening > 0) {
        std::shared_ptr<SharedPacket> const made = packet(_next++);
        if (made && !_silent)
            forEachListener([&](BroadcastListener* listener) { listener->packetArrived(*made); });
    }
}

void Broadcast::schedule()
{
    if (_listening == 0)
        return;
    qint64 const ms = (_timeline.msOf(_next) - position()) * 100 / _ratePercent + 1;
    _timer->start(static_cast<int>(std::clamp<qint64>(ms, msShortestWait, msLongestWait)));
}

std::shared_ptr<SharedPacket> Broadcast::packet(qint64 number)
{
    auto const found = std::lower_bound(_recent.begin(), _recent.end(), number,
                                        [](auto const& entry, qint64 wanted) { return entry.first < wanted; });
    if (found != _recent.end() && found->first == number)
        return found->second;
    std::optional<AsfPacket> read = _films[_entry]->packet(_timeline.indexOf(number));
    if (!read) {
        LOG_WARNING("%s: cannot read a data packet, has the file changed?", qUtf8Printable(_name));
        return nullptr;
    }
    auto const repetition = static_cast<quint32>(_timeline.repetitionOf(number));
    QMap<int, quint32> objects = _objectsBefore;
    for (auto count = film().objectCounts().cbegin(); count != film().objectCounts().cend(); ++count)
        objects[count.key()] += repetition * count.value();
    read->shift(static_cast<quint32>(_timeline.msStart()) + repetition * film().duration(), objects);
    auto const made = std::make_shared<SharedPacket>(_firstLocation + static_cast<quint32>(number), *std::move(read));
    _recent.emplace(found, number, made);
    return made;
}

/// Keeps what the next who joins gets.
void Broadcast::forgetOldPackets()
{
    qint64 const newest = _timeline.firstAfter(position() - _msBurst) - 1;
    qint64 oldest = newest;
    for (int const stream : film().keyPackets().keys())
        oldest = std::min(oldest, _timeline.keyPacketUpTo(newest, stream));
    while (!_recent.empty() && _recent.front().first < oldest)
        _recent.pop_front();
}

void Broadcast::setRate(int percent)
{
    restartClock();
    _ratePercent = std::clamp(percent, 1, 1000);
    schedule();
}

void Broadcast::setSilent(bool silent)
{
    _silent = silent;
}

void Broadcast::nextEntry()
{
    deliverDue();
    // The new film begins when the next packet of the old one would come, and counts on from all that could have been
    // sent.
    for (auto count = film().objectCounts().cbegin(); count != film().objectCounts().cend(); ++count)
        _objectsBefore[count.key()] += count.value() * static_cast<quint32>(_timeline.repetitionOf(_next) + 1);
    qint64 const first = _timeline.firstAfter(position());
    qint64 const msStart = _timeline.msOf(first);
    _firstLocation += static_cast<quint32>(first);
    _entry = (_entry + 1) % _films.size();
    _timeline = BroadcastTimeline(film(), msStart);
    _next = 0;
    _recent.clear();
    ++_generation;
    _headerEdition = 1;
    makeHeader();
    LOG_INFO("%s: entry %zu of its playlist, generation %u", qUtf8Printable(_name), _entry + 1, _generation);
    forEachListener(
        [](BroadcastListener* listener) { listener->headerChanged(BroadcastListener::Change::NextEntry); });
    schedule();
}

void Broadcast::changeHeader()
{
    ++_headerEdition;
    makeHeader();
    LOG_INFO("%s: header %d", qUtf8Printable(_name), _headerEdition);
    forEachListener([](BroadcastListener* listener) { listener->headerChanged(BroadcastListener::Change::Header); });
}

void Broadcast::end()
{
    LOG_INFO("%s: the end, for those who listen", qUtf8Printable(_name));
    forEachListener([](BroadcastListener* listener) { listener->ended(); });
}
