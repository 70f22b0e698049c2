#include "KeepAwakeManager.h"

#include <QGuiApplication>

// The X headers define words that Qt uses, so they come last.
#include <X11/Xlib.h>
#include <X11/extensions/XTest.h>

namespace
{
constexpr int intervalMs = 10000;
constexpr KeySym leftShift = 0xFFE1;
} // namespace

KeepAwakeManager::KeepAwakeManager(QObject* parent) : QObject(parent)
{
    connect(&_timer, &QTimer::timeout, this, &KeepAwakeManager::onTimer);
}

void KeepAwakeManager::setEnabled(bool enabled)
{
    if (enabled)
        _timer.stop();
    else
        _timer.start(intervalMs);
}

void KeepAwakeManager::onTimer()
{
    auto const* const x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    Display* const display = x11 ? x11->display() : nullptr;
    if (!display)
        return;
    KeyCode const key = XKeysymToKeycode(display, leftShift);
    XTestFakeKeyEvent(display, key, True, 0);
    XTestFakeKeyEvent(display, key, False, 0);
    XFlush(display);
}
