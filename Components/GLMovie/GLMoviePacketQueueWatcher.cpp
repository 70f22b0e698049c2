#include "GLMoviePacketQueueWatcher.h"

#include "GLMovie.h"
#include "GLMoviePacketQueue.h"

extern "C" {
#include <libavcodec/packet.h>
}

namespace
{
constexpr int emptyQueueWait = 20; // ms; a packet or a stop ends it at once.
}

GLMoviePacketQueueWatcher::GLMoviePacketQueueWatcher(GLMovie& movie, GLMoviePacketQueue& queue)
    : _movie(movie), _queue(queue)
{
}

void GLMoviePacketQueueWatcher::run()
{
    while (!_movie.isStopRequested()) {
        AVPacket* packet = nullptr;
        if (!_queue.dequeuePacket(&packet)) {
            _queue.waitForPacket(emptyQueueWait);
            continue;
        }
        handlePacket(packet);
        av_packet_free(&packet);
    }
    _ended.store(true, std::memory_order_release);
    QThread::exit(0);
}

void GLMoviePacketQueueWatcher::join()
{
    wait();
    static_cast<void>(_ended.load(std::memory_order_acquire));
}

void GLMovieVideoPacketQueueWatcher::handlePacket(AVPacket* packet)
{
    _movie.handleVideoPacket(packet);
}

void GLMovieAudioPacketQueueWatcher::handlePacket(AVPacket* packet)
{
    _movie.handleAudioPacket(packet);
}
