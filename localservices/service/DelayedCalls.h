#pragma once

#include <QObject>

#include <functional>
#include <map>

class Timer;
class TimerFactory;

/// Calls that are made after a while, if this is still there then. Lives on one thread.
class DelayedCalls : public QObject
{
    Q_OBJECT

public:
    /// The factory is borrowed.
    explicit DelayedCalls(TimerFactory& timerFactory, QObject* parent = nullptr)
        : QObject(parent), _timerFactory(timerFactory)
    {
    }
    ~DelayedCalls() override;

    void add(int ms, std::function<void()> const& call);
    void clear();

private:
    void onTimeout(Timer* timer);

    TimerFactory& _timerFactory;
    std::map<Timer*, std::function<void()>> _calls;
};
