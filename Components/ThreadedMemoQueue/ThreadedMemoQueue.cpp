#include "ThreadedMemoQueue.h"

#include "Logger.h"
#include "LoggerManager.h"
#include "Memo.h"
#include "MonotonicTickCounter.h"
#include "QtTimerFactory.h"
#include "SortedMemoQueue.h"

#include <QUuid>

#include <memory>
#include <stdexcept>

Logger* ThreadedMemoQueue::log = LoggerManager::logger();

/// One call into the inner queue. It keeps the queue alive by being counted and not by a lock: a release may wait in
/// there for a running memo, and that memo may well post to this same queue.
class ThreadedMemoQueue::Call
{
public:
    explicit Call(ThreadedMemoQueue& thread) : _thread(thread)
    {
        std::lock_guard const locker(_thread._mutex);
        if (!_thread._queue)
            _thread.notReadyError();
        _queue = _thread._queue;
        ++_thread._calls;
    }
    ~Call()
    {
        std::lock_guard const locker(_thread._mutex);
        if (--_thread._calls == 0 && !_thread._queue)
            _thread._ready.notify_all();
    }
    Call(Call const&) = delete;
    Call& operator=(Call const&) = delete;

    MemoQueue* operator->() const { return _queue; }

private:
    ThreadedMemoQueue& _thread;
    MemoQueue* _queue;
};

ThreadedMemoQueue::ThreadedMemoQueue(QObject* parent)
    : QThread(parent), _name("ThreadedMemoQueue:" + QUuid::createUuid().toString().toStdString())
{
    setObjectName(QString::fromStdString(_name));
}

ThreadedMemoQueue::~ThreadedMemoQueue()
{
    exit();
    wait();
}

void ThreadedMemoQueue::waitUntilReady()
{
    std::unique_lock locker(_mutex);
    _ready.wait(locker, [this] { return _queue != nullptr; });
}

bool ThreadedMemoQueue::handleNow(Memo* memo)
{
    return handleSoon(0, memo);
}

bool ThreadedMemoQueue::handleSoon(unsigned int ms, Memo* memo)
{
    std::unique_ptr<Memo> refused(memo);
    Call queue(*this);
    return queue->handleSoon(ms, refused.release());
}

void ThreadedMemoQueue::acquire(void* owner)
{
    Call(*this)->acquire(owner);
}

void ThreadedMemoQueue::release(void* owner)
{
    Call(*this)->release(owner);
}

void ThreadedMemoQueue::clear(void* owner)
{
    Call(*this)->clear(owner);
}

void ThreadedMemoQueue::run()
{
    MonotonicTickCounter tickCounter;
    QtTimerFactory timerFactory;
    auto queue = std::make_unique<SortedMemoQueue>(&tickCounter, &timerFactory, nullptr);
    {
        std::lock_guard const locker(_mutex);
        _queue = queue.get();
    }
    _ready.notify_all();

    LOG_INFO("Starting %s...", _name.c_str());
    exec();
    LOG_INFO("Stopping %s...", _name.c_str());

    {
        std::unique_lock locker(_mutex);
        _queue = nullptr;
        // No memo runs any more, so that no call can be waiting for one.
        _ready.wait(locker, [this] { return _calls == 0; });
    }
}

void ThreadedMemoQueue::notReadyError() const
{
    throw std::runtime_error(_name + " not running.");
}
