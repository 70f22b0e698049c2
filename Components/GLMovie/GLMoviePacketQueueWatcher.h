#pragma once

#include <QThread>

class GLMovie;
class GLMoviePacketQueue;
struct AVPacket;

/// The thread that takes packets of one kind out of a movie's queue and has the movie decode them, until the movie
/// wants to stop. Owned by the movie, which outlives it.
class GLMoviePacketQueueWatcher : public QThread
{
    Q_OBJECT

public:
    GLMoviePacketQueueWatcher(GLMovie& movie, GLMoviePacketQueue& queue);

protected:
    /// Decodes one packet, on this thread. Null is the end of the stream.
    virtual void handlePacket(AVPacket* packet) = 0;

    void run() override;

    GLMovie& _movie;
    GLMoviePacketQueue& _queue;
};

class GLMovieVideoPacketQueueWatcher : public GLMoviePacketQueueWatcher
{
    Q_OBJECT

public:
    using GLMoviePacketQueueWatcher::GLMoviePacketQueueWatcher;

protected:
    void handlePacket(AVPacket* packet) override;
};

class GLMovieAudioPacketQueueWatcher : public GLMoviePacketQueueWatcher
{
    Q_OBJECT

public:
    using GLMoviePacketQueueWatcher::GLMoviePacketQueueWatcher;

protected:
    void handlePacket(AVPacket* packet) override;
};
