#include "WindowManagerState.h"

#include <QEvent>
#include <QGuiApplication>
#include <QWidget>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <span>
#include <utility>
#include <xcb/xcb.h>

namespace
{

constexpr std::uint32_t removeState = 0;
constexpr std::uint32_t addState = 1;
constexpr std::uint32_t sourceIsApplication = 1;
constexpr std::uint32_t sourceIsViewer = 2;
constexpr std::uint32_t maximumStates = 64; // A window has a dozen at most.
constexpr std::uint8_t sentByClient = 0x80;

struct Free {
    void operator()(void* reply) const { std::free(reply); }
};

template<typename T>
using Reply = std::unique_ptr<T, Free>;

xcb_atom_t atomOf(xcb_connection_t* connection, char const* name)
{
    auto const cookie = xcb_intern_atom(connection, 0, static_cast<uint16_t>(std::strlen(name)), name);
    Reply<xcb_intern_atom_reply_t> const reply(xcb_intern_atom_reply(connection, cookie, nullptr));
    return reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
}

bool contains(std::vector<std::uint32_t> const& states, std::uint32_t state)
{
    return std::ranges::find(states, state) != states.end();
}

} // namespace

WindowManagerState::WindowManagerState(QWidget& window) : _window(window)
{
    auto const* const x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    if (!x11)
        return;
    _connection = x11->connection();
    _stateAtom = atomOf(_connection, "_NET_WM_STATE");
    _aboveAtom = atomOf(_connection, "_NET_WM_STATE_ABOVE");
    _fullScreenAtom = atomOf(_connection, "_NET_WM_STATE_FULLSCREEN");
    _activeWindowAtom = atomOf(_connection, "_NET_ACTIVE_WINDOW");
    _window.installEventFilter(this);
    qGuiApp->installNativeEventFilter(this);
}

WindowManagerState::~WindowManagerState()
{
    if (_connection)
        qGuiApp->removeNativeEventFilter(this);
}

void WindowManagerState::setAbove(bool above)
{
    if (std::exchange(_above, above) != above && _isManaged)
        request(_aboveAtom, above);
}

void WindowManagerState::setFullScreen(bool full)
{
    if (_isManaged)
        request(_fullScreenAtom, full);
}

void WindowManagerState::activate() const
{
    if (_connection && windowId() != XCB_WINDOW_NONE)
        send(_activeWindowAtom, {sourceIsViewer});
}

bool WindowManagerState::eventFilter(QObject* watched, QEvent* event)
{
    if (!event->spontaneous() && event->type() == QEvent::Show)
        prepare(); // The window is not mapped yet.
    if (!event->spontaneous() && event->type() == QEvent::Hide)
        _isManaged = false; // The window manager forgets the states of a withdrawn window.
    return QObject::eventFilter(watched, event);
}

bool WindowManagerState::nativeEventFilter(QByteArray const&, void* message, qintptr*)
{
    auto const* const event = static_cast<xcb_generic_event_t const*>(message);
    switch (event->response_type & ~sentByClient) {
    case XCB_MAP_NOTIFY:
        if (reinterpret_cast<xcb_map_notify_event_t const*>(event)->window == windowId())
            onMapped();
        break;
    case XCB_PROPERTY_NOTIFY: {
        auto const* const change = reinterpret_cast<xcb_property_notify_event_t const*>(event);
        if (change->atom == _stateAtom && change->window == windowId())
            onStateChanged();
        break;
    }
    default:
        break;
    }
    return false;
}

std::uint32_t WindowManagerState::windowId() const
{
    return static_cast<xcb_window_t>(_window.internalWinId());
}

std::vector<std::uint32_t> WindowManagerState::readStates() const
{
    auto const cookie = xcb_get_property(_connection, 0, windowId(), _stateAtom, XCB_ATOM_ATOM, 0, maximumStates);
    Reply<xcb_get_property_reply_t> const reply(xcb_get_property_reply(_connection, cookie, nullptr));
    if (!reply || reply->format != 32)
        return {};
    std::span const states(static_cast<xcb_atom_t const*>(xcb_get_property_value(reply.get())), reply->value_len);
    return {states.begin(), states.end()};
}

void WindowManagerState::request(std::uint32_t state, bool set) const
{
    send(_stateAtom, {set ? addState : removeState, state, 0, sourceIsApplication});
}

void WindowManagerState::send(std::uint32_t type, std::array<std::uint32_t, 5> const& data) const
{
    xcb_client_message_event_t message = {};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = windowId();
    message.type = type;
    std::ranges::copy(data, message.data.data32);
    xcb_window_t const root = xcb_setup_roots_iterator(xcb_get_setup(_connection)).data->root;
    xcb_send_event(_connection, 0, root, XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT,
                   reinterpret_cast<char const*>(&message));
    xcb_flush(_connection);
}

void WindowManagerState::prepare() const
{
    if (_above)
        xcb_change_property(_connection, XCB_PROP_MODE_APPEND, windowId(), _stateAtom, XCB_ATOM_ATOM, 32, 1,
                            &_aboveAtom);
}

void WindowManagerState::onMapped()
{
    _isManaged = true;
    // The window manager may have removed what was prepared while it withdrew the window.
    if (contains(readStates(), _aboveAtom) != _above)
        request(_aboveAtom, _above);
    if (contains(readStates(), _fullScreenAtom))
        emit fullScreenChanged(true);
}

void WindowManagerState::onStateChanged()
{
    if (!_isManaged)
        return;
    std::vector<std::uint32_t> const states = readStates();
    bool const above = contains(states, _aboveAtom);
    bool const full = contains(states, _fullScreenAtom);
    // Each time: what has been asked for and undone in between left no trace here.
    emit fullScreenChanged(full);
    if (std::exchange(_above, above) != above)
        emit aboveChanged(above);
}
