#include "SortedMemoQueue.h"

#include "Logger.h"
#include "LoggerManager.h"
#include "Memo.h"
#include "TickCounter.h"
#include "Timer.h"
#include "TimerFactory.h"

#include <QCoreApplication>
#include <QEvent>
#include <QScopedValueRollback>
#include <QThread>

#include <algorithm>
#include <cinttypes>
#include <limits>
#include <mutex>

namespace
{

constexpr auto resetTimerEvent = static_cast<QEvent::Type>(1000);

/// A pass that has lasted this long lets the event loop have a turn before it goes on. Otherwise those who post
/// faster than memos run would keep the thread from its sockets, and from ending.
constexpr qint64 longPassMs = 100;

/// An owner as the log shows it.
std::uintptr_t number(void* owner)
{
    return reinterpret_cast<std::uintptr_t>(owner);
}

} // namespace

Logger* SortedMemoQueue::log = LoggerManager::logger();

SortedMemoQueue::SortedMemoQueue(TickCounter* tickCounter, TimerFactory* timerFactory, QObject* parent)
    : QObject(parent), _tickCounter(tickCounter), _timerFactory(timerFactory), _timer(timerFactory->createTimer())
{
    _timer->setParent(this);
    _timer->setSingleShot(true);
    connect(_timer, &Timer::timeout, this, &SortedMemoQueue::onTimeout);
}

SortedMemoQueue::~SortedMemoQueue()
{
    _timerFactory->disposeTimer(_timer);
    for (SortedMemoQueueElement const& element : std::as_const(_queue))
        delete element.memo();
}

bool SortedMemoQueue::handleNow(Memo* memo)
{
    return handleSoon(0, memo);
}

bool SortedMemoQueue::handleSoon(unsigned int ms, Memo* memo)
{
    if (!memo) {
        LOG_WARNING("Cannot handle null memo; ignoring.");
        return false;
    }
    std::unique_ptr<Memo> refused(memo);
    QMutexLocker locker(&_mutex);
    if (!_owners.contains(memo->owner())) {
        locker.unlock();
        LOG_WARNING("You must first acquire() the right to post memos (once), and make your memos return the same "
                    "object as its owner. Also don't forget to release() the queue when you're finished with it "
                    "(first line in your destructor).");
        return false;
    }
    SortedMemoQueueElement const element(refused.release(), _tickCounter->msSinceEpoch() + ms);
    // The place that a stable sort would give it.
    _queue.insert(std::upper_bound(_queue.cbegin(), _queue.cend(), element), element);
    LOG_DEBUG("handleSoon(): Scheduled memo for %ums (%d now pending)...", ms, static_cast<int>(_queue.size()));
    locker.unlock();
    postResetTimer();
    return true;
}

void SortedMemoQueue::acquire(void* owner)
{
    {
        QMutexLocker locker(&_mutex);
        // A second acquire keeps the mutex: a release must find the one that a running memo holds.
        if (std::shared_ptr<QMutex>& ownerMutex = _owners[owner]; !ownerMutex)
            ownerMutex = std::make_shared<QMutex>();
    }
    LOG_DEBUG("acquire(): %" PRIxPTR " acquired...", number(owner));
}

void SortedMemoQueue::release(void* owner)
{
    QMutexLocker locker(&_mutex);
    std::shared_ptr<QMutex> const ownerMutex = _owners.take(owner);
    QList<Memo*> const cancelled = takeMemos(owner);
    locker.unlock();
    // Waits without _mutex, so that the running memo may post: what it posts for this owner is refused.
    if (ownerMutex && QThread::currentThread() != thread())
        QMutexLocker waitForRunningMemo(ownerMutex.get());
    qDeleteAll(cancelled);
    LOG_DEBUG("release(): %" PRIxPTR " released...", number(owner));
    postResetTimer();
}

void SortedMemoQueue::clear(void* owner)
{
    QMutexLocker locker(&_mutex);
    QList<Memo*> const cancelled = takeMemos(owner);
    locker.unlock();
    qDeleteAll(cancelled);
    LOG_DEBUG("clear(): %" PRIxPTR " cleared...", number(owner));
    postResetTimer();
}

/// Removes the owner's memos from the queue; the caller holds the mutex, and deletes them without it.
QList<Memo*> SortedMemoQueue::takeMemos(void* owner)
{
    QList<Memo*> memos;
    _queue.removeIf([&](SortedMemoQueueElement const& element) {
        if (element.memo()->owner() != owner)
            return false;
        memos.append(element.memo());
        return true;
    });
    return memos;
}

/// Hands the timer's setting over to the queue's thread.
void SortedMemoQueue::postResetTimer()
{
    if (!_isResetPosted.exchange(true))
        QCoreApplication::postEvent(this, new QEvent(resetTimerEvent));
}

bool SortedMemoQueue::event(QEvent* event)
{
    if (event->type() != resetTimerEvent)
        return QObject::event(event);
    // Before the queue is looked at: a change from here on posts an event of its own.
    _isResetPosted = false;
    QMutexLocker locker(&_mutex);
    resetTimer();
    return true;
}

/// Arms the timer for the head of the queue; the caller holds the mutex.
void SortedMemoQueue::resetTimer()
{
    if (_queue.isEmpty()) {
        _timer->stop();
        LOG_DEBUG("resetTimer(): queue empty; stopping timer.");
        return;
    }
    qint64 const now = _tickCounter->msSinceEpoch();
    qint64 const next = _queue.constFirst().msFire();
    qint64 const delay = std::clamp<qint64>(next - now, 0, std::numeric_limits<int>::max());
    LOG_DEBUG("resetTimer(): Now: %lld. Next memo: %lld (%lldms).", now, next, delay);
    _timer->start(static_cast<int>(delay));
}

void SortedMemoQueue::onTimeout(Timer*)
{
    if (_isHandling)
        return; // An event loop inside a memo: the pass that runs that memo goes on after it.
    QScopedValueRollback<bool> const isHandling(_isHandling, true);
    qint64 const begin = _tickCounter->msSinceEpoch();
    QMutexLocker locker(&_mutex);
    while (!_queue.isEmpty()) {
        qint64 const now = _tickCounter->msSinceEpoch();
        if (now < _queue.constFirst().msFire() || now - begin >= longPassMs) {
            resetTimer();
            return;
        }
        std::unique_ptr<Memo> memo(_queue.takeFirst().memo());
        std::shared_ptr<QMutex> const ownerMutex = _owners.value(memo->owner());
        std::unique_lock<QMutex> ownerLock;
        if (ownerMutex) {
            // Never taken at this moment: memos run one at a time, and a release removes it from _owners first.
            ownerLock = std::unique_lock<QMutex>(*ownerMutex, std::try_to_lock);
            Q_ASSERT(ownerLock.owns_lock());
        }
        locker.unlock();
        handle(memo.get());
        memo.reset();
        if (ownerLock)
            ownerLock.unlock();
        locker.relock();
        LOG_DEBUG("onTimeout(): Handled memo. %d pending memos remaining.", static_cast<int>(_queue.size()));
    }
}

void SortedMemoQueue::handle(Memo* memo)
{
    try {
        memo->handle();
    } catch (...) {
        LOG_ERROR("onTimeout(): Caught unhandled exception in memo queue.");
    }
}
