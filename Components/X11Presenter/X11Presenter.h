#pragma once

#include "X11Segment.h"

#include <QAbstractNativeEventFilter>
#include <QObject>
#include <QRect>
#include <QRegion>

#include <memory>
#include <vector>

class Logger;

/// Puts pictures into one X window through shared memory (MIT-SHM), without OpenGL.
///
/// Works on Qt's own connection, which OpenGL draws through too, so that the server sees both in the order in which
/// they were called. What is put goes: begin(), write into memory(), put() and fill() as often as needed, end().
/// Coordinates are pixels of the window. GUI thread only.
class X11Presenter : public QObject, private QAbstractNativeEventFilter
{
    Q_OBJECT

public:
    enum class State {
        Ready,
        Busy,  ///< The server has not read the last frames yet; ready() tells when it has.
        Failed ///< There is no memory to share.
    };

    static constexpr int bytesPerPixel = 4; ///< Blue, green, red, 255.

    explicit X11Presenter(QObject* parent = nullptr);
    ~X11Presenter() override;

    /// Takes a window, or none with 0, in place of the one before. Returns false, with the reason in the log, where
    /// pictures cannot be put into it: no X11, a server that shares no memory with us, pixels of another layout.
    bool setWindow(xcb_window_t window);

    /// Begins a frame that needs this much memory.
    State begin(size_t bytes);
    /// The memory of the frame that was begun; its content is undefined.
    unsigned char* memory() const { return _segment->data(); }
    /// Shows a part of an image, whose rows lie in the memory without gaps from an offset on, at a place.
    void put(size_t offset, QSize const& image, QRect const& part, QPoint const& place);
    /// Paints a region black.
    void fill(QRegion const& region);
    void end();

signals:
    /// After begin() was refused as Busy: it may be called again.
    void ready();

private:
    bool nativeEventFilter(QByteArray const& eventType, void* message, qintptr* result) override;
    bool connectToServer();
    /// The depth of a window whose pixels are laid out as ours; 0 of any other.
    int depthOf(xcb_window_t window) const;
    void forgetSegments();

    static Logger* log;

    xcb_connection_t* _connection = nullptr; ///< Qt's; null before the first window, or without X11.
    int _completionEvent = 0;
    xcb_window_t _window = 0;
    int _depth = 0;
    xcb_gcontext_t _black = 0;
    std::vector<std::unique_ptr<X11Segment>> _segments;
    X11Segment* _segment = nullptr; ///< That of the frame that was begun.
    bool _isAwaited = false;        ///< Somebody was refused and waits for ready().
};
