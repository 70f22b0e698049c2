#pragma once

#include "EventLoop.h"

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QList>
#include <QObject>
#include <QVariant>

#include <memory>
#include <mutex>

/// Takes down a signal that is emitted on any thread, at once, which QSignalSpy cannot.
class SignalRecorder
{
public:
    template<typename Sender, typename Emitter, typename... Arguments>
    SignalRecorder(Sender* sender, void (Emitter::*signal)(Arguments...))
    {
        auto const record = [state = _state](Arguments const&... arguments) {
            std::lock_guard const lock(state->mutex);
            state->emissions.append(QVariantList{QVariant::fromValue(arguments)...});
            QCoreApplication::eventDispatcher()->wakeUp();
        };
        _connection = QObject::connect(sender, signal, sender, record, Qt::DirectConnection);
    }
    ~SignalRecorder() { QObject::disconnect(_connection); }
    SignalRecorder(SignalRecorder const&) = delete;
    SignalRecorder& operator=(SignalRecorder const&) = delete;

    int count() const
    {
        std::lock_guard const lock(_state->mutex);
        return static_cast<int>(_state->emissions.size());
    }
    bool isEmpty() const { return count() == 0; }
    void clear()
    {
        std::lock_guard const lock(_state->mutex);
        _state->emissions.clear();
    }
    QVariantList first() const { return at(0); }
    QVariantList last() const { return at(count() - 1); }
    QVariantList at(int index) const
    {
        std::lock_guard const lock(_state->mutex);
        return _state->emissions.value(index);
    }

    /// Runs the main thread's event loop until the signal has come so often; false after ten seconds, which only a
    /// fault takes.
    bool wait(int wanted = 1) const
    {
        return processEventsUntil([&] { return count() >= wanted; });
    }

private:
    struct State {
        std::mutex mutex;
        QList<QVariantList> emissions;
    };

    std::shared_ptr<State> _state = std::make_shared<State>(); ///< Shared with an emission that is under way.
    QMetaObject::Connection _connection;
};
