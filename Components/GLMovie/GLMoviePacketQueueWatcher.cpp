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
    while (!_movie._requests.watchersMustEnd()) {
        AVPacket* packet = nullptr;
        if (!_queue.dequeuePacket(&packet)) {
            _queue.waitForPacket(emptyQueueWait);
            continue;
        }
        handlePacket(packet);
        if (!packet)
            _queue.endHandled();
        av_packet_free(&packet);
    }
    QThread::exit(0);
}

void GLMovieVideoPacketQueueWatcher::handlePacket(AVPacket* packet)
{
    _movie.handleVideoPacket(packet);
}

void GLMovieAudioPacketQueueWatcher::handlePacket(AVPacket* packet)
{
    _movie.handleAudioPacket(packet);
}
