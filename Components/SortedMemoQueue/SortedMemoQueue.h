#pragma once

#include "MemoQueue.h"
#include "SortedMemoQueueElement.h"

#include <QHash>
#include <QList>
#include <QMutex>
#include <QObject>

#include <atomic>
#include <memory>

class Logger;
class TickCounter;
class Timer;
class TimerFactory;

/// A MemoQueue on the thread this object lives on, driven by that thread's event loop.
///
/// Every memo that is due runs in one pass, those that are posted during the pass with no delay included; only a pass
/// of more than 100 ms is interrupted for one turn of the event loop. An event loop inside a memo runs no other
/// memos.
class SortedMemoQueue : public QObject, public MemoQueue
{
    Q_OBJECT

public:
    /// Clock and factory are borrowed, and outlive the queue.
    SortedMemoQueue(TickCounter* tickCounter, TimerFactory* timerFactory, QObject* parent = nullptr);

    /// Deletes the pending memos without running them.
    ~SortedMemoQueue() override;

    bool handleNow(Memo* memo) override;
    bool handleSoon(unsigned int ms, Memo* memo) override;
    void acquire(void* owner) override;

    /// As in MemoQueue. A running memo may post, release others and even release its own owner meanwhile: on the
    /// queue's own thread there is nothing to wait for.
    void release(void* owner) override;

    void clear(void* owner) override;

    bool event(QEvent* event) override;

public slots:
    /// Runs the memos that are due, and arms the timer for the next one.
    virtual void onTimeout(Timer* timer);

private:
    QList<Memo*> takeMemos(void* owner);
    void handle(Memo* memo);
    void postResetTimer();
    void resetTimer();

    static Logger* log;

    TickCounter* const _tickCounter;
    TimerFactory* const _timerFactory;
    Timer* const _timer;      ///< A child; touched on the queue's thread only.
    bool _isHandling = false; ///< Whether a memo is running; touched on the queue's thread only.

    std::atomic<bool> _isResetPosted{false}; ///< One event is enough for any number of changes.

    /// Guards the two collections below. Held neither while a memo runs nor while one is deleted.
    QMutex _mutex;

    /// The owners, each with the mutex that is held while one of its memos runs. A release shares the mutex with
    /// the run it waits for. Locked after _mutex, never before it.
    QHash<void*, std::shared_ptr<QMutex>> _owners;

    QList<SortedMemoQueueElement> _queue; ///< Pending memos, sorted.
};
