#include "X11Presenter.h"

#include "Logger.h"
#include "LoggerManager.h"

#include <QGuiApplication>

#include <algorithm>
#include <cstdlib>

Logger* X11Presenter::log = LoggerManager::logger();

namespace
{
constexpr size_t maximumSegments = 3; ///< One that is written, one that is read, one that waits to be.
constexpr uint32_t opaqueBlack = 0xff000000;
constexpr int bitsPerPixel = 32;
constexpr int sentEventFlag = 0x80;

struct Free {
    void operator()(void* reply) const { std::free(reply); }
};
template<typename T>
using Reply = std::unique_ptr<T, Free>;

xcb_visualtype_t const* visualOf(xcb_setup_t const* setup, xcb_visualid_t id)
{
    for (auto screen = xcb_setup_roots_iterator(setup); screen.rem; xcb_screen_next(&screen))
        for (auto depth = xcb_screen_allowed_depths_iterator(screen.data); depth.rem; xcb_depth_next(&depth))
            for (auto visual = xcb_depth_visuals_iterator(depth.data); visual.rem; xcb_visualtype_next(&visual))
                if (visual.data->visual_id == id)
                    return visual.data;
    return nullptr;
}

bool isInWholeWords(xcb_setup_t const* setup, int depth)
{
    for (auto format = xcb_setup_pixmap_formats_iterator(setup); format.rem; xcb_format_next(&format))
        if (format.data->depth == depth)
            return format.data->bits_per_pixel == bitsPerPixel;
    return false;
}
} // namespace

X11Presenter::X11Presenter(QObject* parent) : QObject(parent) {}

X11Presenter::~X11Presenter()
{
    setWindow(0);
    if (_connection)
        QCoreApplication::instance()->removeNativeEventFilter(this);
}

bool X11Presenter::connectToServer()
{
    if (_connection)
        return true;
    auto* const x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    if (!x11 || !x11->connection()) // A platform without a display has the interface, too.
        return false;
    xcb_query_extension_reply_t const* const extension = xcb_get_extension_data(x11->connection(), &xcb_shm_id);
    if (!extension || !extension->present)
        return false;
    _connection = x11->connection();
    _completionEvent = extension->first_event + XCB_SHM_COMPLETION;
    QCoreApplication::instance()->installNativeEventFilter(this);
    return true;
}

bool X11Presenter::setWindow(xcb_window_t window)
{
    // Of what was put into a window that has gone, no completion need ever come.
    forgetSegments();
    _window = 0;
    if (window == 0)
        return false;
    if (!connectToServer()) {
        LOG_INFO("The display shares no memory");
        return false;
    }
    _depth = depthOf(window);
    if (_depth == 0) {
        LOG_INFO("The window has pixels of an unknown layout");
        return false;
    }
    _window = window;
    _black = xcb_generate_id(_connection);
    uint32_t const values[] = {opaqueBlack, 0};
    xcb_create_gc(_connection, _black, _window, XCB_GC_FOREGROUND | XCB_GC_GRAPHICS_EXPOSURES, values);
    return true;
}

int X11Presenter::depthOf(xcb_window_t window) const
{
    auto const attributesAsked = xcb_get_window_attributes(_connection, window);
    auto const geometryAsked = xcb_get_geometry(_connection, window);
    Reply<xcb_get_window_attributes_reply_t> const attributes(
        xcb_get_window_attributes_reply(_connection, attributesAsked, nullptr));
    Reply<xcb_get_geometry_reply_t> const geometry(xcb_get_geometry_reply(_connection, geometryAsked, nullptr));
    if (!attributes || !geometry)
        return 0;
    xcb_setup_t const* const setup = xcb_get_setup(_connection);
    xcb_visualtype_t const* const visual = visualOf(setup, attributes->visual);
    bool const isKnown = visual && visual->_class == XCB_VISUAL_CLASS_TRUE_COLOR && visual->red_mask == 0xff0000 &&
                         visual->green_mask == 0xff00 && visual->blue_mask == 0xff &&
                         setup->image_byte_order == XCB_IMAGE_ORDER_LSB_FIRST &&
                         isInWholeWords(setup, geometry->depth);
    return isKnown ? geometry->depth : 0;
}

void X11Presenter::forgetSegments()
{
    _segment = nullptr;
    _segments.clear();
    _isAwaited = false;
    if (_black != 0)
        xcb_free_gc(_connection, _black);
    _black = 0;
}

X11Presenter::State X11Presenter::begin(size_t bytes)
{
    if (_window == 0)
        return State::Failed;
    auto const isFree = [](auto const& segment) { return segment->pending == 0; };
    auto found = std::find_if(_segments.begin(), _segments.end(), isFree);
    if (found == _segments.end()) {
        if (_segments.size() == maximumSegments) {
            _isAwaited = true;
            return State::Busy;
        }
        _segments.emplace_back();
        found = std::prev(_segments.end());
    }
    if (!*found || (*found)->size() < bytes) {
        found->reset();
        *found = X11Segment::create(_connection, bytes);
    }
    if (!*found) {
        _segments.erase(found);
        LOG_INFO("The X server takes no shared memory of %zu bytes", bytes);
        return State::Failed;
    }
    _segment = found->get();
    return State::Ready;
}

void X11Presenter::put(size_t offset, QSize const& image, QRect const& part, QPoint const& place)
{
    xcb_shm_put_image(_connection, _window, _black, static_cast<uint16_t>(image.width()),
                      static_cast<uint16_t>(image.height()), static_cast<uint16_t>(part.x()),
                      static_cast<uint16_t>(part.y()), static_cast<uint16_t>(part.width()),
                      static_cast<uint16_t>(part.height()), static_cast<int16_t>(place.x()),
                      static_cast<int16_t>(place.y()), static_cast<uint8_t>(_depth), XCB_IMAGE_FORMAT_Z_PIXMAP,
                      /*send_event=*/1, _segment->id(), static_cast<uint32_t>(offset));
    ++_segment->pending;
}

void X11Presenter::fill(QRegion const& region)
{
    std::vector<xcb_rectangle_t> rectangles;
    for (QRect const& part : region)
        rectangles.push_back({static_cast<int16_t>(part.x()), static_cast<int16_t>(part.y()),
                              static_cast<uint16_t>(part.width()), static_cast<uint16_t>(part.height())});
    if (!rectangles.empty())
        xcb_poly_fill_rectangle(_connection, _window, _black, static_cast<uint32_t>(rectangles.size()),
                                rectangles.data());
}

void X11Presenter::end()
{
    _segment = nullptr;
    xcb_flush(_connection);
}

bool X11Presenter::nativeEventFilter(QByteArray const& eventType, void* message, qintptr*)
{
    if (eventType != "xcb_generic_event_t" ||
        (static_cast<xcb_generic_event_t const*>(message)->response_type & ~sentEventFlag) != _completionEvent)
        return false;
    auto const* const completion = static_cast<xcb_shm_completion_event_t const*>(message);
    auto const found = std::find_if(_segments.cbegin(), _segments.cend(),
                                    [completion](auto const& s) { return s->id() == completion->shmseg; });
    if (found == _segments.cend())
        return false; // Of a window before, or not ours.
    if (--(*found)->pending == 0 && std::exchange(_isAwaited, false))
        emit ready();
    return true;
}
