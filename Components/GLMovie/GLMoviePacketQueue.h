#pragma once

#include <QList>

#include <condition_variable>
#include <mutex>

struct AVPacket;

/// Demuxed packets on their way from the reader thread to a watcher thread, first in, first out.
///
/// Every operation locks the queue's mutex. The queue owns the packets in it.
class GLMoviePacketQueue
{
public:
    /// A queue that is full with more packets than this; it takes them nonetheless.
    explicit GLMoviePacketQueue(int limit) : _limit(limit) {}
    ~GLMoviePacketQueue();
    GLMoviePacketQueue(GLMoviePacketQueue const&) = delete;
    GLMoviePacketQueue& operator=(GLMoviePacketQueue const&) = delete;

    /// Appends the packet, whose data the queue takes over; the packet itself is left blank.
    /// Returns false, and leaves the packet as it is, when there is no memory.
    bool enqueuePacket(AVPacket* packet);

    /// Appends the mark of the stream's end.
    void enqueueEnd();

    /// Takes the first packet out; the caller frees it with av_packet_free(). The mark of the end comes as null, and
    /// endHandled() answers it. False when the queue is empty.
    bool dequeuePacket(AVPacket** packet);
    void endHandled();

    /// Whether the end has been handled, and with it all that was before it.
    bool isDrained() const;

    /// Waits until there is a packet, wake() is called or the time has passed.
    void waitForPacket(int ms);
    void wake();

    int length() const;
    bool isFull() const { return length() > _limit; }
    /// Bytes of all packets in the queue.
    qint64 bytes() const;
    void clear();

private:
    void append(AVPacket* packet);

    int const _limit;
    mutable std::mutex _mutex; ///< Guards everything below.
    std::condition_variable _changed;
    QList<AVPacket*> _packets;
    qint64 _bytes = 0;
    bool _drained = false;
    bool _woken = false;
};
