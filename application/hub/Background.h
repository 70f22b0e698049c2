#pragma once

#include "DetachedThreads.h"

#include <QFutureWatcher>
#include <QObject>
#include <QPromise>

#include <memory>
#include <type_traits>
#include <utility>

/// Work that may wait for a disk, a network or a sound server, away from the GUI thread.
class Background
{
public:
    /// Runs work on a thread of its own, and hands its result to `then` on the caller's thread, unless the context
    /// has gone by then. The work must not touch what belongs to the caller's thread.
    template<class Work, class Then>
    static void run(QObject* context, Work work, Then then)
    {
        using Result = std::invoke_result_t<Work>;
        auto const promise = std::make_shared<QPromise<Result>>();
        auto* const watcher = new QFutureWatcher<Result>(context);
        QObject::connect(watcher, &QFutureWatcherBase::finished, context,
                         [watcher, then = std::move(then)]() mutable {
                             watcher->deleteLater();
                             then(watcher->result());
                         });
        promise->start();
        watcher->setFuture(promise->future());
        threads().start([promise, work = std::move(work)]() mutable {
            promise->addResult(work());
            promise->finish();
        });
    }

private:
    static DetachedThreads& threads();
};
