#include "WindowPlace.h"

#include "AppSettings.h"

#include <QEvent>
#include <QGuiApplication>
#include <QScreen>
#include <QWidget>
#include <QWindow>

#include <utility>

namespace
{

constexpr int placeRestTime = 300; // ms
constexpr int settlingTime = 500;  // ms. The window manager, too, moves what is on a display that goes.

QList<QRect> availableDisplays()
{
    QList<QRect> displays(1, QGuiApplication::primaryScreen()->availableGeometry());
    for (QScreen const* const screen : QGuiApplication::screens())
        displays.append(screen->availableGeometry());
    return displays;
}

} // namespace

WindowPlace::WindowPlace(QWidget& window, AppSettings& settings) : _window(window), _settings(settings)
{
    _window.installEventFilter(this);
    _rest.setSingleShot(true);
    _rest.setInterval(placeRestTime);
    connect(&_rest, &QTimer::timeout, this, &WindowPlace::keep);
    _displays.setSingleShot(true);
    _displays.setInterval(settlingTime);
    connect(&_displays, &QTimer::timeout, this, &WindowPlace::onDisplaysChanged);
    connect(qGuiApp, &QGuiApplication::screenAdded, this, &WindowPlace::watch);
    connect(qGuiApp, &QGuiApplication::screenRemoved, &_displays, qOverload<>(&QTimer::start));
    for (QScreen* const screen : QGuiApplication::screens())
        watch(screen);
}

void WindowPlace::watch(QScreen* screen)
{
    connect(screen, &QScreen::availableGeometryChanged, &_displays, qOverload<>(&QTimer::start));
}

QRect WindowPlace::fitted(QRect const& rectangle, QList<QRect> const& displays)
{
    QRect room = displays.value(0);
    qint64 most = 0;
    for (QRect const& display : displays) {
        QRect const shared = display & rectangle;
        qint64 const area = shared.isEmpty() ? 0 : qint64{shared.width()} * shared.height();
        if (area > most) {
            most = area;
            room = display;
        }
    }
    QRect result(rectangle.topLeft(), rectangle.size().boundedTo(room.size()));
    result.moveLeft(qBound(room.left(), result.left(), room.right() + 1 - result.width()));
    result.moveTop(qBound(room.top(), result.top(), room.bottom() + 1 - result.height()));
    return result;
}

bool WindowPlace::restore()
{
    if (_settings.size().isEmpty())
        return false;
    QRect const place = fitted({_settings.position(), _settings.size()}, availableDisplays());
    _window.move(place.topLeft());
    _window.resize(place.size());
    if (_settings.maximised())
        _window.setWindowState(_window.windowState() | Qt::WindowMaximized);
    return true;
}

bool WindowPlace::isOrdinary() const
{
    return _window.isVisible() &&
           !(_window.windowState() & (Qt::WindowMaximized | Qt::WindowFullScreen | Qt::WindowMinimized));
}

void WindowPlace::keep()
{
    if (_window.isVisible() && !(_window.windowState() & (Qt::WindowFullScreen | Qt::WindowMinimized)))
        _settings.setMaximised(_window.isMaximized());
    if (!isOrdinary())
        return;
    _settings.setPosition(_window.pos());
    _settings.setSize(_window.size());
}

bool WindowPlace::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Move || event->type() == QEvent::Resize ||
        event->type() == QEvent::WindowStateChange)
        _rest.start();
    if (event->type() == QEvent::WindowStateChange && !_window.isFullScreen() &&
        std::exchange(_displaysChanged, false))
        _displays.start();
    // Shown again where it is now, not where the window manager would put a new one.
    if (QWindow* const native = _window.windowHandle();
        native && event->type() == QEvent::Hide && !event->spontaneous())
        native->setPosition(native->position());
    return QObject::eventFilter(watched, event);
}

void WindowPlace::onDisplaysChanged()
{
    if (QGuiApplication::screens().isEmpty())
        return;
    if (_window.isFullScreen()) {
        // Fills the display on which it is now; what it returns to later is looked at then.
        _displaysChanged = true;
        QRect const whole = _window.screen()->geometry();
        if (_window.geometry() != whole)
            _window.setGeometry(whole);
        return;
    }
    QRect const frame = _window.frameGeometry();
    QRect const place = fitted(frame, availableDisplays());
    if (!isOrdinary() || place == frame)
        return;
    _window.move(place.topLeft());
    _window.resize(_window.size() - (frame.size() - place.size()));
}
