#include "WindowFade.h"

#include "Look.h"
#include "X11Selection.h"

#include <QWidget>

#include <utility>

namespace
{

constexpr int fadeTick = 16; // ms
constexpr double fadeStep = 0.05;
constexpr double leastOpacity = 0.85;

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
    return !Look::reducedMotion() && isX11SelectionOwned("_NET_WM_CM_S0");
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
