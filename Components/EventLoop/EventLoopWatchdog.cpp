#include "EventLoopWatchdog.h"

#include "Logger.h"
#include "LoggerManager.h"

#include <QCoreApplication>
#include <QEvent>
#include <QTimer>

#include <algorithm>
#include <chrono>
#include <ctime>
#include <pthread.h>

Logger* EventLoopWatchdog::log = LoggerManager::logger();

namespace
{

constexpr int intervalMs = 2;

class KnockEvent : public QEvent
{
public:
    KnockEvent(qint64 timeNs, qint64 workNs) : QEvent(kind()), postedNs(timeNs), workedNs(workNs) {}

    static Type kind()
    {
        static auto const number = static_cast<Type>(registerEventType());
        return number;
    }

    qint64 const postedNs;
    qint64 const workedNs; ///< By then.
};

double toMs(qint64 ns)
{
    return static_cast<double>(ns) / 1e6;
}

} // namespace

EventLoopWatchdog::EventLoopWatchdog(Clocks clocks) : _clocks(std::move(clocks)), _timer(std::make_unique<QTimer>())
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
    LOG_DEBUG("The event loop was away for %.1f ms at the longest (the most work was %.1f ms)", toMs(_longestNs),
              toMs(_longestWorkNs));
}

EventLoopWatchdog::Clocks EventLoopWatchdog::clocksOfThisThread()
{
    Clocks clocks;
    clocks.time = [] {
        return qint64{std::chrono::nanoseconds(std::chrono::steady_clock::now().time_since_epoch()).count()};
    };
    clockid_t processor = CLOCK_MONOTONIC;
    if (pthread_getcpuclockid(pthread_self(), &processor) != 0)
        LOG_DEBUG("Without a clock for the thread's work: waits count as such");
    clocks.work = [processor] {
        timespec spent{};
        clock_gettime(processor, &spent);
        return qint64{spent.tv_sec} * 1'000'000'000 + spent.tv_nsec;
    };
    return clocks;
}

void EventLoopWatchdog::postKnock()
{
    if (!_isKnocking.exchange(true, std::memory_order_relaxed))
        QCoreApplication::postEvent(this, new KnockEvent(_clocks.time(), _clocks.work()));
}

bool EventLoopWatchdog::event(QEvent* event)
{
    if (event->type() != KnockEvent::kind())
        return QObject::event(event);
    auto const* const knock = static_cast<KnockEvent const*>(event);
    qint64 const workNs = _clocks.work() - knock->workedNs;
    qint64 const awayNs = _clocks.time() - knock->postedNs;
    _isKnocking.store(false, std::memory_order_relaxed);
    if (!std::exchange(_hasComeRound, true))
        return true;
    _longestNs = std::max(_longestNs, awayNs);
    _longestWorkNs = std::max(_longestWorkNs, workNs);
    if (awayNs > limitNs)
        LOG_DEBUG("The event loop was away for %.1f ms (%.1f ms of work)", toMs(awayNs), toMs(workNs));
    return true;
}
