#include "KeyRepeats.h"

#include <QAction>

#include <utility>

namespace
{

/// What the window system said, but for the mark.
class Repetition : public QKeyEvent
{
public:
    explicit Repetition(QKeyEvent const& event) : QKeyEvent(event) { m_autoRepeat = true; }
};

bool isModifier(int key)
{
    return (key >= Qt::Key_Shift && key <= Qt::Key_ScrollLock) || key == Qt::Key_AltGr;
}

} // namespace

KeyRepeats::KeyRepeats(Deliver deliver) : _deliver(std::move(deliver))
{
    _timer.setSingleShot(true);
    _timer.setInterval(releaseDelay);
    QObject::connect(&_timer, &QTimer::timeout, &_timer, [this] { letGo(); });
}

bool KeyRepeats::take(QObject* receiver, QEvent* event)
{
    switch (event->type()) {
    case QEvent::Shortcut: { // Follows the press, and knows nothing of the mark that it gets here.
        auto const* const action = qobject_cast<QAction*>(receiver);
        return _repeatedKey != 0 && action && !action->autoRepeat();
    }
    case QEvent::ShortcutOverride:
    case QEvent::KeyPress:
        return takePress(receiver, *static_cast<QKeyEvent*>(event));
    case QEvent::KeyRelease:
        letGo();
        return hold(receiver, *static_cast<QKeyEvent*>(event));
    case QEvent::MouseButtonPress:
    case QEvent::Wheel:
    case QEvent::FocusOut:
        letGo();
        return false;
    case QEvent::Close: // Windows that end say so in their destructors: nobody is there for keys any more.
        _timer.stop();
        _release.reset();
        return false;
    default:
        return false;
    }
}

bool KeyRepeats::takePress(QObject* window, QKeyEvent& event)
{
    quint32 const key = event.nativeScanCode();
    bool const isAgain = _release && _window == window && _release->nativeScanCode() == key &&
                         _release->timestamp() == event.timestamp();
    if (isAgain) {
        _repeatedKey = key;
        _repeatTime = event.timestamp();
        _release = std::make_unique<Repetition>(*_release);
    }
    letGo();
    if (event.isAutoRepeat())
        return false;
    if (_repeatedKey != key || _repeatTime != event.timestamp()) {
        _repeatedKey = 0;
        return false;
    }
    Repetition marked(event);
    _deliver(window, &marked);
    event.setAccepted(marked.isAccepted());
    return true;
}

bool KeyRepeats::hold(QObject* window, QKeyEvent const& event)
{
    if (event.isAutoRepeat() || isModifier(event.key()))
        return false;
    _release.reset(event.clone());
    _window = window;
    _timer.start();
    return true;
}

void KeyRepeats::letGo()
{
    _timer.stop();
    auto const release = std::exchange(_release, nullptr);
    if (release && _window)
        _deliver(_window, release.get());
}
