#pragma once

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QList>
#include <QObject>
#include <QThread>
#include <QVariant>

#include <chrono>
#include <condition_variable>
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
            state->changed.notify_all();
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

    /// Runs the thread's event loop until the signal has come so often; false after ten seconds, which only a fault
    /// takes.
    bool wait(int wanted = 1) const
    {
        QElapsedTimer timer;
        timer.start();
        while (count() < wanted && timer.elapsed() < patience) {
            QCoreApplication::processEvents();
            std::unique_lock lock(_state->mutex);
            if (_state->emissions.size() < wanted)
                _state->changed.wait_for(lock, std::chrono::milliseconds(turn));
        }
        return count() >= wanted;
    }

private:
    static constexpr int patience = 10000; // ms
    static constexpr int turn = 10;        // ms between two looks at the event loop

    struct State {
        std::mutex mutex;
        std::condition_variable changed;
        QList<QVariantList> emissions;
    };

    std::shared_ptr<State> _state = std::make_shared<State>(); ///< Shared with an emission that is under way.
    QMetaObject::Connection _connection;
};
