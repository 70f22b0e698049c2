#pragma once

#include "MemoQueue.h"

#include <QThread>

#include <condition_variable>
#include <mutex>
#include <string>

class Logger;

/// A MemoQueue on a thread of its own. Start the thread with start(), end it with exit() and wait().
///
/// Until the thread has built its queue, and after the thread has ended, every operation of MemoQueue throws
/// std::runtime_error; a memo given to it is then deleted.
class ThreadedMemoQueue : public QThread, public MemoQueue
{
    Q_OBJECT

public:
    explicit ThreadedMemoQueue(QObject* parent = nullptr);

    /// Ends the thread if it still runs, and waits for it.
    ~ThreadedMemoQueue() override;

    /// Blocks, with no time limit, until the started thread has built its queue.
    void waitUntilReady();

    bool handleNow(Memo* memo) override;
    bool handleSoon(unsigned int ms, Memo* memo) override;
    void acquire(void* owner) override;
    void release(void* owner) override;
    void clear(void* owner) override;

protected:
    void run() override;

private:
    class Call;

    [[noreturn]] void notReadyError() const;

    static Logger* log;

    std::string const _name; ///< The object name, for any thread.

    std::mutex _mutex;              ///< Guards the two fields below; held only to read or change them.
    std::condition_variable _ready; ///< Either field has changed.
    MemoQueue* _queue = nullptr;    ///< Lives in run(), on the thread.
    int _calls = 0;                 ///< Calls that are inside the queue now; it outlives them.
};
