#pragma once

#include <cstddef>
#include <memory>
#include <xcb/shm.h>

/// Memory that this process and the X server share (MIT-SHM), for as long as the object lives.
class X11Segment
{
public:
    /// Null when there is no memory, or when the server cannot see it: one on another machine, say.
    static std::unique_ptr<X11Segment> create(xcb_connection_t* connection, size_t bytes);
    ~X11Segment();
    X11Segment(X11Segment const&) = delete;
    X11Segment& operator=(X11Segment const&) = delete;

    xcb_shm_seg_t id() const { return _id; }
    unsigned char* data() const { return _data; }
    size_t size() const { return _size; }

    /// Requests by which the server still has to read the memory; it must not be written to meanwhile.
    int pending = 0;

private:
    X11Segment(xcb_connection_t* connection, unsigned char* data, size_t size);

    xcb_connection_t* const _connection;
    xcb_shm_seg_t const _id;
    unsigned char* const _data;
    size_t const _size;
};
