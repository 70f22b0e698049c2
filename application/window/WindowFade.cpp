#include "WindowFade.h"

#include "Look.h"

#include <QGuiApplication>
#include <QWidget>

#include <cstdlib>
#include <cstring>
#include <memory>
#include <xcb/xcb.h>

namespace
{

constexpr int fadeTick = 16; // ms
constexpr double fadeStep = 0.05;
constexpr double leastOpacity = 0.85;

/// Whether something composes the screen, by the selection that it owns (Extended Window Manager Hints).
bool isComposed()
{
    auto const* const x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    if (!x11)
        return false;
    struct Free {
        void operator()(void* reply) const { std::free(reply); }
    };
    xcb_connection_t* const connection = x11->connection();
    constexpr char name[] = "_NET_WM_CM_S0";
    std::unique_ptr<xcb_intern_atom_reply_t, Free> const atom(
        xcb_intern_atom_reply(connection, xcb_intern_atom(connection, 0, sizeof name - 1, name), nullptr));
    if (!atom)
        return false;
    std::unique_ptr<xcb_get_selection_owner_reply_t, Free> const owner(
        xcb_get_selection_owner_reply(connection, xcb_get_selection_owner(connection, atom->atom), nullptr));
    return owner && owner->owner != XCB_WINDOW_NONE;
}

} // namespace

WindowFade::WindowFade(QWidget& window) : _window(window)
{
    _fadeInTimer.setInterval(fadeTick);
    _fadeOutTimer.setInterval(fadeTick);
    connect(&_fadeInTimer, &QTimer::timeout, this, &WindowFade::onFadeIn);
    connect(&_fadeOutTimer, &QTimer::timeout, this, &WindowFade::onFadeOut);
}

void WindowFade::toggle()
{
    if (_window.windowOpacity() >= 1.0)
        fadeOut();
    else
        fadeIn();
}

void WindowFade::fadeIn()
{
    _hidesAfter = false;
    _fadeOutTimer.stop();
    _fadeInTimer.start();
}

void WindowFade::fadeOut()
{
    _fadeInTimer.stop();
    _fadeOutTimer.start();
}

void WindowFade::onFadeIn()
{
    double const opacity = qMin(1.0, _window.windowOpacity() + fadeStep);
    _window.setWindowOpacity(opacity);
    if (opacity >= 1.0)
        _fadeInTimer.stop();
}

void WindowFade::onFadeOut()
{
    _window.setWindowOpacity(_window.windowOpacity() - fadeStep);
    if (_window.windowOpacity() >= leastOpacity)
        return;
    _fadeOutTimer.stop();
    if (!std::exchange(_hidesAfter, false))
        return;
    _window.hide();
    _window.setWindowOpacity(1.0);
}

bool WindowFade::isFadingOn() const
{
    return !Look::reducedMotion() && isComposed();
}

void WindowFade::hideWindow()
{
    if (!isFadingOn()) {
        _window.hide();
        return;
    }
    _hidesAfter = true;
    fadeOut();
}

void WindowFade::showWindow()
{
    if (std::exchange(_hidesAfter, false))
        fadeIn();
}
