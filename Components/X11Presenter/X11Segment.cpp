#include "X11Segment.h"

#include <cstdlib>
#include <sys/ipc.h>
#include <sys/shm.h>

namespace
{
constexpr int ownerOnly = 0600;
}

X11Segment::X11Segment(xcb_connection_t* connection, unsigned char* data, size_t size)
    : _connection(connection), _id(xcb_generate_id(connection)), _data(data), _size(size)
{
}

std::unique_ptr<X11Segment> X11Segment::create(xcb_connection_t* connection, size_t bytes)
{
    int const memory = shmget(IPC_PRIVATE, bytes, IPC_CREAT | ownerOnly);
    if (memory < 0)
        return nullptr;
    void* const data = shmat(memory, nullptr, 0);
    bool const isMapped = data != reinterpret_cast<void*>(-1);
    std::unique_ptr<X11Segment> segment;
    bool isShared = false;
    if (isMapped) {
        segment.reset(new X11Segment(connection, static_cast<unsigned char*>(data), bytes));
        auto const cookie =
            xcb_shm_attach_checked(connection, segment->_id, static_cast<uint32_t>(memory), /*read_only=*/1);
        xcb_generic_error_t* const error = xcb_request_check(connection, cookie);
        isShared = !error;
        std::free(error);
    }
    shmctl(memory, IPC_RMID, nullptr); // It lives on while somebody is attached, and no longer, whatever ends us.
    return isShared ? std::move(segment) : nullptr;
}

X11Segment::~X11Segment()
{
    // Of a segment that was never attached the server says so in an error, which is nobody's concern.
    xcb_discard_reply(_connection, xcb_shm_detach_checked(_connection, _id).sequence);
    shmdt(_data);
}
