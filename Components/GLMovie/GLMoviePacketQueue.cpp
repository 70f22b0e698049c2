#include "GLMoviePacketQueue.h"

extern "C" {
#include <libavcodec/packet.h>
}

#include <chrono>

GLMoviePacketQueue::~GLMoviePacketQueue()
{
    clear();
}

bool GLMoviePacketQueue::enqueuePacket(AVPacket* packet)
{
    AVPacket* const own = av_packet_alloc();
    if (!own || av_packet_make_refcounted(packet) < 0) {
        AVPacket* unused = own;
        av_packet_free(&unused);
        return false;
    }
    av_packet_move_ref(own, packet);
    append(own);
    return true;
}

void GLMoviePacketQueue::enqueueEnd()
{
    append(nullptr);
}

void GLMoviePacketQueue::append(AVPacket* packet)
{
    {
        std::lock_guard const lock(_mutex);
        _packets.append(packet);
        _bytes += packet ? packet->size : 0;
        _drained = false;
    }
    _changed.notify_one();
}

bool GLMoviePacketQueue::dequeuePacket(AVPacket** packet)
{
    std::lock_guard const lock(_mutex);
    if (_packets.isEmpty())
        return false;
    *packet = _packets.takeFirst();
    _bytes -= *packet ? (*packet)->size : 0;
    return true;
}

void GLMoviePacketQueue::endHandled()
{
    std::lock_guard const lock(_mutex);
    _drained = _packets.isEmpty();
}

bool GLMoviePacketQueue::isDrained() const
{
    std::lock_guard const lock(_mutex);
    return _drained;
}

void GLMoviePacketQueue::waitForPacket(int ms)
{
    std::unique_lock lock(_mutex);
    _changed.wait_for(lock, std::chrono::milliseconds(ms), [this] { return !_packets.isEmpty() || _woken; });
    _woken = false;
}

void GLMoviePacketQueue::wake()
{
    {
        std::lock_guard const lock(_mutex);
        _woken = true;
    }
    _changed.notify_all();
}

int GLMoviePacketQueue::length() const
{
    std::lock_guard const lock(_mutex);
    return static_cast<int>(_packets.size());
}

qint64 GLMoviePacketQueue::bytes() const
{
    std::lock_guard const lock(_mutex);
    return _bytes;
}

void GLMoviePacketQueue::clear()
{
    std::lock_guard const lock(_mutex);
    for (AVPacket*& packet : _packets)
        av_packet_free(&packet);
    _packets.clear();
    _bytes = 0;
    _drained = false;
}
