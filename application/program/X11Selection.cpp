#include "X11Selection.h"

#include <QGuiApplication>

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <xcb/xcb.h>

bool isX11SelectionOwned(char const* name)
{
    struct Free {
        void operator()(void* reply) const { std::free(reply); }
    };
    auto const* const x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    if (!x11)
        return false;
    xcb_connection_t* const connection = x11->connection();
    auto const length = static_cast<std::uint16_t>(std::strlen(name));
    std::unique_ptr<xcb_intern_atom_reply_t, Free> const atom(
        xcb_intern_atom_reply(connection, xcb_intern_atom(connection, 0, length, name), nullptr));
    if (!atom)
        return false;
    std::unique_ptr<xcb_get_selection_owner_reply_t, Free> const owner(
        xcb_get_selection_owner_reply(connection, xcb_get_selection_owner(connection, atom->atom), nullptr));
    return owner && owner->owner != XCB_WINDOW_NONE;
}
