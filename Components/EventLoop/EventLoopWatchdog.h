#pragma once

#include <QObject>
#include <QThread>

#include <atomic>
#include <functional>
#include <memory>

class Logger;
class QTimer;

/// Measures how long the event loop of a thread did not come round, for those who look for what holds up the window.
///
/// A thread of its own posts an event every few milliseconds, never two at a time, and the loop tells how late it
/// was, and how much of that the thread worked; the rest it waited, or others had the processor. Each time over the
/// limit becomes a debug line, and the longest one more at the end. Lives on the watched thread; nothing is counted
/// before the loop has come round once, nor after it has ended.
class EventLoopWatchdog : public QObject
{
    Q_OBJECT

public:
    /// Nanoseconds, of a monotonic clock and of the processor's time that the watched thread has had. Called on both
    /// threads.
    struct Clocks {
        std::function<qint64()> time;
        std::function<qint64()> work;
    };

    static constexpr qint64 limitNs = 16'000'000; ///< A frame of the screen.

    explicit EventLoopWatchdog(Clocks clocks = clocksOfThisThread());
    ~EventLoopWatchdog() override;

    bool event(QEvent* event) override;

private:
    static Clocks clocksOfThisThread();
    void postKnock();

    static Logger* log;

    Clocks const _clocks;
    QThread _thread;
    std::unique_ptr<QTimer> _timer;        ///< Lives on _thread.
    std::atomic<bool> _isKnocking = false; ///< An event is on its way. Guards nothing else, so order is no matter.
    bool _hasComeRound = false;
    qint64 _longestNs = 0;
    qint64 _longestWorkNs = 0;
};
