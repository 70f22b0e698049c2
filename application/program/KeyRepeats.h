#pragma once

#include <QKeyEvent>
#include <QPointer>
#include <QTimer>

#include <functional>
#include <memory>

/// Marks what comes of a held key as an auto-repeat, on its way to a window.
///
/// X11 repeats a held key as a release and a press of the same time. Qt marks these if the press has come when it
/// takes the release, which mostly is a fraction of a millisecond too early. So a release waits here until it is sure
/// that no such press follows. Main thread only.
class KeyRepeats
{
public:
    /// Brings an event on to its receiver.
    using Deliver = std::function<void(QObject*, QEvent*)>;

    static constexpr int releaseDelay = 8; ///< ms; a press of the same time is there within a fraction of one.

    explicit KeyRepeats(Deliver deliver);

    /// What goes to a window, or to an action for its shortcut. True: it has been delivered marked, will be delivered
    /// later, or is for nobody. False: it is to be delivered as it is.
    bool take(QObject* receiver, QEvent* event);

private:
    bool takePress(QObject* window, QKeyEvent& event);
    bool hold(QObject* window, QKeyEvent const& event);
    void letGo();

    Deliver const _deliver;
    std::unique_ptr<QKeyEvent> _release; ///< Waits; null for none.
    QPointer<QObject> _window;           ///< Of the release.
    QTimer _timer;
    quint32 _repeatedKey = 0; ///< By its scan code, with the time in ms of its last repetition; 0 for none.
    quint64 _repeatTime = 0;
};
