#pragma once

#include <QObject>
#include <QString>

#include <memory>
#include <optional>

class Logger;
class Timer;
class TimerFactory;

/// Finds out whether this machine has a way to a host: a name that is known and a local address to go from. Sends
/// nothing to the host.
///
/// A name look-up can block for many seconds, so it runs on a thread of its own, which is left behind when nobody
/// waits for it any more and ends without effect. Everything else is on the thread of this object.
class NetworkTest : public QObject
{
    Q_OBJECT

public:
    static constexpr int limit = 5000; ///< ms; a name service that is silent for longer counts as no network.

    /// The factory is borrowed.
    explicit NetworkTest(TimerFactory* timerFactory, QObject* parent = nullptr);
    ~NetworkTest() override;

    /// The answer, if it is known at once, as for a numeric address; and no while an earlier look-up still blocks.
    /// Otherwise finished() brings it within the limit.
    std::optional<bool> start(QString const& host);

    /// Nothing more is heard of what was started.
    void cancel();

signals:
    void finished(bool isAvailable);
    /// The thread has its answer. For this object only.
    void answered();

private:
    struct Answer {
        bool isAvailable = false;
        QString failure; ///< For the log.
    };
    struct Shared;

    static Answer test(QString const& host, bool isNumeric);
    void onAnswer();
    void finish(bool isAvailable);

    static Logger* log;

    TimerFactory* const _timerFactory;
    Timer* _timer = nullptr;         ///< Runs while someone waits.
    std::shared_ptr<Shared> _shared; ///< With the thread that looks up; null when none does.
};
