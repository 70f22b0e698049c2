// Work handed to another thread: how many pieces a second, posted and run. The baseline is what Qt offers for it, a
// queued call; the hand-off over a bare queue shows the bound: it knows neither times nor owners.

#include "AbstractMemo.h"
#include "ThreadedMemoQueue.h"

#include <QObject>
#include <QThread>

#include <benchmark/benchmark.h>
#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <semaphore>
#include <thread>

namespace
{

constexpr int batch = 10000;

/// The receiving side's work: counts the pieces, and tells when a batch is complete.
class Work
{
public:
    void operator()()
    {
        benchmark::DoNotOptimize(++_count);
        if (_count % batch == 0)
            _complete.release();
    }
    void wait() { _complete.acquire(); }

private:
    int _count = 0;
    std::binary_semaphore _complete{0};
};

class WorkMemo : public AbstractMemo
{
public:
    explicit WorkMemo(Work* work) : AbstractMemo(work), _work(*work) {}
    void handle() override { _work(); }

private:
    Work& _work;
};

template<typename Post>
void measure(benchmark::State& state, Work& work, Post const& post)
{
    for ([[maybe_unused]] auto const& iteration : state) {
        for (int i = 0; i < batch; ++i)
            post();
        work.wait();
    }
    state.SetItemsProcessed(state.iterations() * batch);
}

void queuedCall(benchmark::State& state)
{
    QThread thread;
    QObject receiver;
    receiver.moveToThread(&thread);
    thread.start();
    Work work;
    measure(state, work, [&] {
        QMetaObject::invokeMethod(
            &receiver, [&work] { work(); }, Qt::QueuedConnection);
    });
    thread.quit();
    thread.wait();
}

void bareQueue(benchmark::State& state)
{
    std::mutex mutex;
    std::condition_variable_any filled;
    std::deque<std::function<void()>> queue;
    std::jthread const thread([&](std::stop_token const& stop) {
        std::unique_lock lock(mutex);
        while (filled.wait(lock, stop, [&] { return !queue.empty(); })) {
            std::function<void()> const next = std::move(queue.front());
            queue.pop_front();
            lock.unlock();
            next();
            lock.lock();
        }
    });
    Work work;
    measure(state, work, [&] {
        {
            std::lock_guard const lock(mutex);
            queue.emplace_back([&work] { work(); });
        }
        filled.notify_one();
    });
}

void memoQueue(benchmark::State& state)
{
    ThreadedMemoQueue queue;
    queue.start();
    queue.waitUntilReady();
    Work work;
    queue.acquire(&work);
    // Time-outs and heartbeats are always pending in the program.
    for (unsigned int i = 0; i < state.range(0); ++i)
        queue.handleSoon(3600000 + i, new WorkMemo(&work));
    measure(state, work, [&] { queue.handleNow(new WorkMemo(&work)); });
    queue.release(&work);
}

BENCHMARK(queuedCall)->Name("Post/QueuedCall")->UseRealTime();
BENCHMARK(bareQueue)->Name("Post/BareQueue")->UseRealTime();
BENCHMARK(memoQueue)->Name("Post/MemoQueue")->Arg(0)->Arg(100)->UseRealTime();

} // namespace
