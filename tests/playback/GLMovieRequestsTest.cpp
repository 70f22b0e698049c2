#include "GLMovieRequests.h"

#include <QThread>

#include <functional>
#include <gtest/gtest.h>
#include <memory>

TEST(GLMovieRequests, NobodyRestsOnceThereIsSomethingToDo)
{
    constexpr qint64 hour = 3'600'000'000;
    using Ask = std::function<void(GLMovieRequests&)>;
    using Rest = void (GLMovieRequests::*)(qint64);
    std::pair<Ask, Rest> const cases[] = {
        {[](auto& requests) { requests.requestStop(); }, &GLMovieRequests::pauseWatcher},
        {[](auto& requests) { requests.setRestarting(true); }, &GLMovieRequests::pauseWatcher},
        {[](auto& requests) { requests.requestStop(); }, &GLMovieRequests::pauseReader},
        {[](auto& requests) { requests.requestSeek(1.0); }, &GLMovieRequests::pauseReader},
    };
    for (auto const& [ask, rest] : cases) {
        GLMovieRequests requests([](bool) {});
        requests.begin();
        ask(requests);
        std::unique_ptr<QThread> const thread(QThread::create([&, rest = rest] { (requests.*rest)(hour); }));
        thread->start();
        EXPECT_TRUE(thread->wait(10000));
        requests.setPaused(true); // Wakes whoever rests all the same.
        thread->wait();
    }
}
