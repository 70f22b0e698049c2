#include "EventLoopWatchdog.h"

#include "Logger.h"
#include "LoggerManager.h"

#include <QCoreApplication>
#include <QEvent>
#include <QTimer>

#include <algorithm>
#include <chrono>

Logger* EventLoopWatchdog::log = LoggerManager::logger();

namespace
{

constexpr int intervalMs = 2;

class KnockEvent : public QEvent
{
public:
    explicit KnockEvent(qint64 timeNs) : QEvent(kind()), postedNs(timeNs) {}

    static Type kind()
    {
        static auto const number = static_cast<Type>(registerEventType());
        return number;
    }

    qint64 const postedNs;
};

double toMs(qint64 ns)
{
    return static_cast<double>(ns) / 1e6;
}

} // namespace

EventLoopWatchdog::EventLoopWatchdog(Clock clock) : _clock(std::move(clock)), _timer(std::make_unique<QTimer>())
{
    _timer->setTimerType(Qt::PreciseTimer);
    _timer->setInterval(intervalMs);
    _timer->moveToThread(&_thread);
    connect(_timer.get(), &QTimer::timeout, this, &EventLoopWatchdog::postKnock, Qt::DirectConnection);
    connect(&_thread, &QThread::started, _timer.get(), qOverload<>(&QTimer::start));
    connect(&_thread, &QThread::finished, _timer.get(), &QTimer::stop, Qt::DirectConnection);
    _thread.setObjectName("EventLoopWatchdog");
    _thread.start();
}

EventLoopWatchdog::~EventLoopWatchdog()
{
    _thread.quit();
    _thread.wait();
    LOG_DEBUG("The event loop was away for %.1f ms at the longest", toMs(_longestNs));
}

qint64 EventLoopWatchdog::monotonicNs()
{
    return std::chrono::nanoseconds(std::chrono::steady_clock::now().time_since_epoch()).count();
}

void EventLoopWatchdog::postKnock()
{
    if (!_isKnocking.exchange(true, std::memory_order_relaxed))
        QCoreApplication::postEvent(this, new KnockEvent(_clock()));
}

bool EventLoopWatchdog::event(QEvent* event)
{
    if (event->type() != KnockEvent::kind())
        return QObject::event(event);
    qint64 const awayNs = _clock() - static_cast<KnockEvent const*>(event)->postedNs;
    _isKnocking.store(false, std::memory_order_relaxed);
    if (!std::exchange(_hasComeRound, true))
        return true;
    _longestNs = std::max(_longestNs, awayNs);
    if (awayNs > limitNs)
        LOG_DEBUG("The event loop was away for %.1f ms", toMs(awayNs));
    return true;
}
