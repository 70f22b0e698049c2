#include "HibernationManager.h"
#include "ScreenSaverManager.h"

#include <QDeadlineTimer>
#include <QGuiApplication>

#include <gtest/gtest.h>
#include <memory>

// The X headers define words that Qt uses, so they come last.
#include <X11/XKBlib.h>
#include <X11/Xlib.h>
#include <X11/keysym.h>

namespace
{

/// The next event that the server has for us, waiting for it a few seconds at most; 0 when there is none.
int nextEventType(Display* display, KeySym& key)
{
    XEvent event = {};
    QDeadlineTimer const deadline(5000);
    while (!deadline.hasExpired()) {
        XSync(display, False);
        if (!XCheckMaskEvent(display, KeyPressMask | KeyReleaseMask, &event))
            continue;
        key = XkbKeycodeToKeysym(display, static_cast<KeyCode>(event.xkey.keycode), 0, 0);
        return event.type;
    }
    return 0;
}

} // namespace

TEST(X11KeepAwakeManager, PressesAndReleasesTheLeftShiftKey)
{
    if (QGuiApplication::platformName() != "xcb")
        GTEST_SKIP() << "needs an X server";
    std::unique_ptr<Display, int (*)(Display*)> const display(XOpenDisplay(nullptr), &XCloseDisplay);
    ASSERT_TRUE(display);
    // A grab brings us the key whatever window has the focus.
    KeyCode const shift = XKeysymToKeycode(display.get(), XK_Shift_L);
    XGrabKey(display.get(), shift, AnyModifier, DefaultRootWindow(display.get()), False, GrabModeAsync,
             GrabModeAsync);
    XSync(display.get(), False);

    HibernationManager hibernation;
    ScreenSaverManager screenSaver;
    for (KeepAwakeManager* const manager : std::initializer_list<KeepAwakeManager*>{&hibernation, &screenSaver}) {
        manager->onTimer();
        KeySym key = 0;
        EXPECT_EQ(nextEventType(display.get(), key), KeyPress);
        EXPECT_EQ(key, KeySym(XK_Shift_L));
        EXPECT_EQ(nextEventType(display.get(), key), KeyRelease);
        EXPECT_EQ(key, KeySym(XK_Shift_L));
    }
}
